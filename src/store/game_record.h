// SPDX-License-Identifier: GPL-3.0-or-later
// A game as the program holds it in memory, and a move of one. The members are the first thirteen
// fields of a line of the game file, and the four of each move behind them, in file order.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace store {

/// GAME_STATUS.
enum GameStatus : std::int16_t {
  MoveWaiting = 1,  ///< a move has arrived; also every open game against the computer
  WaitingForOpponent = 2,
  GameWon = 3,
  GameLost = 4,
  DrawOfferSent = 5,  ///< a draw offer is in play and the user waits for the opponent
  GameDrawn = 6
};

struct GameRecord {
  std::int32_t GAME_ID = 0;    ///< this copy's number of the game, from 1
  std::string GAME_DATESTAMP;  ///< 12 digits "ddmmyyyyhhmm", the same in both players' copies
  std::int32_t GAME_OPPONENTS_ID = 0;  ///< GAME_ID of the opponent's copy; 0 while unknown
  std::string GAME_NAME;
  std::string GAME_DATE;  ///< dd/mm/yyyy
  std::string GAME_OPPONENTS_EMAIL;
  std::string GAME_WHITE_NAME;  ///< may be empty
  std::string GAME_BLACK_NAME;
  bool GAME_HOST = false;  ///< this copy's owner created the game and plays White
  std::string GAME_OPPONENTS_NAME;
  std::int16_t GAME_STATUS = 0;
  bool GAME_VS_COMPUTER = false;
  std::string GAME_START_BOARD;  ///< board text; empty stands for the normal start
};

struct MoveRecord {
  std::int32_t MoveNumber = 0;  ///< from 1, counting each side's move
  std::string MoveCoordinates;  ///< four digits: from column, from row, to column, to row
  std::string MoveText;         ///< at most 15 characters
  std::string MoveComment;      ///< at most 200 characters, may be empty
};

/// Recordsets are copies that go stale at the next save; their size is the count.
using GameRecords = std::vector<GameRecord>;
using MoveRecords = std::vector<MoveRecord>;

}  // namespace store
