// SPDX-License-Identifier: GPL-3.0-or-later
// Moves played on the live position and taken back. Test moves nest: each goes onto a stack of this
// thread with all that is needed to undo it. Nothing promotes here: a pawn that reaches the last
// row stays a pawn.
#pragma once

#include "rules/position.h"

namespace rules {

/// Plays the move of `piece`, the code on the from-square. `sideInCheck` becomes the other side
/// where the move gives check, else nobody.
void MakeTestMove(Side side, Square from, Square to, PieceCode piece, LastMove lastMove,
                  int& sideInCheck);

/// Takes the newest test move back.
void UndoTestMove(int& sideInCheck);

/// True if the move doesn't leave `side` in check.
bool TestMoveIsLegal(Side side, PieceCode piece, Square from, Square to, LastMove lastMove);

/// Where the piece on a square of `side` may go, as the move itself would be judged. Leaves the
/// position as it found it, and says nothing.
Bitboard LegalTargets(Side side, Square from, LastMove lastMove);

/// Forgets the moves on the stack without taking them back.
void ClearTestMoves();

}  // namespace rules
