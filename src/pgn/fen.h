// SPDX-License-Identifier: GPL-3.0-or-later
// A position in the notation of Forsyth and Edwards, which every other chess program reads: the
// rows from 8 down, the side to move, who may castle, the square that a pawn has just passed over,
// the plies since a pawn was moved or a piece taken, and the number of the move.
#pragma once

#include <string>
#include <string_view>

#include "pgn/turn.h"
#include "store/game_record.h"

namespace pgn {

inline constexpr std::string_view startFen =
    "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

/// The live position at this moment of its game.
std::string WriteFen(const Turn& turn);

/// The position behind the last entry of a stored game. The live position is left as it is.
std::string FenOfGame(const store::GameRecord& game, const store::MoveRecords& moves);

struct FenReading {
  std::string trouble;  ///< what is wrong with the text, as a sentence; the rest means nothing then
  rules::BoardSquares board;
  rules::CastleFlags hasMoved{};
  Turn turn;
};

/// The two counters may be left out.
FenReading ReadFen(std::string_view text);

/// Why no game can begin here, as a sentence; empty where one can. A game begins with White's move
/// from a board alone, where king and rook at home may always castle; what the board itself has to
/// be is what can be set up.
std::string WhyNoStart(const FenReading& reading);

}  // namespace pgn
