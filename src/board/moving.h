// SPDX-License-Identifier: GPL-3.0-or-later
// From the press on a piece to the pending move, and back. A square beside the board is {}.
#pragma once

#include "board/game.h"

namespace board {

/// A press of the left button; true where a drag of the square's piece begins.
bool CBoard_MouseDown(Game& game, rules::Square square);

void CBoard_DragDrop(Game& game, rules::Square square, rules::Square source);
void MovePiece(Game& game, rules::Square to, rules::Square from);
void TakePiece(Game& game, rules::Square to, rules::Square from);
void ClassifyMove(Game& game, rules::LastMove move);
void CheckNotification();
void DisplaySelfCheckMessage(Game& game, rules::PieceCode piece);
void UndoLastMove(Game& game);

}  // namespace board
