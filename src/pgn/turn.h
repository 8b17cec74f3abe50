// SPDX-License-Identifier: GPL-3.0-or-later
// A game played move by move on this thread's position, by the rules that the board plays by.
#pragma once

#include <string_view>

#include "rules/position.h"

namespace pgn {

struct ChessMove {
  rules::Square from;
  rules::Square to;
  rules::PieceCode becomes = rules::NoPiece;  ///< what stands on the to-square then
};

/// What there is to a moment of a game beside its position.
struct Turn {
  rules::Side side = rules::White;
  rules::LastMove lastMove;
  int quietPlies = 0;  ///< since a pawn was moved or a piece taken
  int number = 1;      ///< of the next move, as players count: one for both sides
};

/// Puts up the start of a game. What may castle follows from what stands at home.
void BeginFrom(const rules::BoardSquares& board);

/// Whether the rules allow the move. The piece that it becomes isn't asked for.
bool IsLegal(const Turn& turn, rules::Square from, rules::Square to);

/// Plays a move on the position, whose SideInCheck is then that of the side to move.
void Play(Turn& turn, const ChessMove& move);

enum class Ending { None, Mate, Stalemate, DeadPosition };

/// Whether the side to move has lost, or nobody can win any more.
Ending EndingAt(const Turn& turn);

/// The result of a game that the board has ended so.
std::string_view ResultOf(Ending ending, const Turn& turn);

}  // namespace pgn
