// SPDX-License-Identifier: GPL-3.0-or-later
// Which squares a piece attacks, and whether a king stands in check or is mated.
//
// An attack is whatever ValidMove accepts as a capture: a pinned piece still attacks, a pawn
// attacks its forward diagonals only. Mate is reasoned as a player does (step away, take, block),
// not by trying all moves. Every operation here may move pieces to find its answer and puts them
// back before it returns.
#pragma once

#include "rules/position.h"

namespace rules {

/// The pieces of `attacker` that a capture on `target` would be accepted for. Nothing is asked of
/// what stands on the target: its own side's pieces defend it.
Bitboard AttackersOf(Square target, Side attacker);

/// The same where lines end on the squares of `occupied` alone, as they would after a move. What
/// has left its square, or was taken there, is still among them.
Bitboard AttackersOf(Square target, Side attacker, Bitboard occupied);

enum class Standing { Check = 1, Checkmate = 2, Neither = 3 };

/// True if the king of `side` is attacked; false also when that side has no king.
bool IsInCheck(Side side);

/// Classifies `side`. Without `lookForMate` a mated side counts as in Check, at a fraction of the
/// cost. `sideInCheck` is handed on to ValidMove, where only the castling test reads it. `lastMove`
/// lets an en-passant capture count as a way out of mate.
Standing GameState(Side side, bool lookForMate, int sideInCheck, LastMove lastMove = {});

/// The squares that the piece on `from` may be able to go to. A filter, not a proof: a square
/// outside it is ruled out, one inside it still has to pass ValidMove.
Bitboard MarkTargetSquares(Side side, PieceCode piece, Square from);

}  // namespace rules
