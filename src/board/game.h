// SPDX-License-Identifier: GPL-3.0-or-later
// The game that the Board window shows: a record of its whole state, and beside it one header for
// each errand of the window's logic, with procedures over the record. Opening a game builds the
// state from the store (moves, players, position, whose turn it is); the user's move stays pending,
// and can be taken back, until it is sent; nothing survives the closing of the window.
//
// The procedures carry the window's names. A view (BoardView) shows what the record holds.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "ai/search.h"
#include "board/board_view.h"
#include "board/move_list.h"
#include "rules/position.h"

namespace board {

struct Game {
  explicit Game(BoardView& shownBy) : view(shownBy) {}

  BoardView& view;

  // Who plays, and what is known of the game.
  std::string WhiteName;
  std::string BlackName;
  bool PlaysWhite = true;
  bool storedOnly = false;  ///< the user's moves needn't reach the opponent
  std::int16_t GameStatus = 0;
  std::int32_t SavedGameID = 0;
  std::string StartBoard;
  std::int64_t LastMail = 0;  ///< when the last one came, in seconds since 1970; 0 where unknown

  // The moves.
  MoveList Moves;
  std::string PlayerComment;  ///< what the user typed into the comment box
  rules::GameStateSnapshot Undo;
  bool AwaitingOpponent = false;
  bool ListUpdating = false;

  // How the game ends, and what is to be said of it.
  bool Surrendered = false;
  bool GameDrawn = false;
  bool DrawOffered = false;
  bool DrawButtonsUp = false;       ///< Accept and Decline are in place
  bool DrawMessagePending = false;  ///< the opponent's offer is to be announced
  bool DrawMessageShown = false;
  bool MateMessageShown = false;
  bool SetupWarned = false;
  bool SetupPlayable = false;  ///< what is set up has both kings and a third piece

  // What the window shows.
  std::string Caption;          ///< the window's title
  std::string PlayersTag;       ///< "You are playing ..."
  std::string Title;            ///< as the players have named the game
  std::string OpponentComment;  ///< the comment of the selected entry
  rules::Side ViewSide = rules::White;
  std::array<rules::PieceCode, 64> DisplayedBoard{};
  std::vector<rules::Square> MovePointers;  ///< the dots of the highlighted move
  bool HilightVisible = false;
  bool HilightAsked = false;  ///< by the user, and not just because the game was opened
  bool CoordsVisible = false;
  bool FlashPhase = true;
  bool KingMarked = false;
  int SelfCheckFlashes = 0;
  int StalemateFlashes = 0;
  bool LockedForDialog = false;
  bool NoticeUp = false;  ///< a notice of the timer is on the screen; the kings flash on
  bool UnloadPending = false;
  bool ClosingDown = false;

  // The computer's turn.
  bool ComputerThinking = false;
  ai::SearchWatch Search;  ///< under way, or the last one
  std::int16_t LastMoveScore = 0;
};

inline std::string OpponentName(const Game& game) {
  return game.PlaysWhite ? game.BlackName : game.WhiteName;
}

inline bool EntryIsMine(const Game& game, int row) { return (row % 2 == 1) == game.PlaysWhite; }

inline bool LastMoveIsMine(const Game& game) { return EntryIsMine(game, game.Moves.Count()); }

/// Whether the last entry is the user's and was not sent yet.
inline bool EntryIsPending(const Game& game) {
  return LastMoveIsMine(game) && !game.AwaitingOpponent;
}

}  // namespace board
