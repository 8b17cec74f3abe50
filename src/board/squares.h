// SPDX-License-Identifier: GPL-3.0-or-later
// The squares as the window shows them: where each stands, and which cell of the chess set's sheet
// is on it.
#pragma once

#include "board/game.h"

namespace board {

/// Where a square stands: columns from the left and rows from the bottom, both from 0.
struct GridPlace {
  int column = 0;
  int row = 0;
};

GridPlace PlaceOf(const Game& game, rules::Square square);
void ChangeView(Game& game);
void ToggleCoords(Game& game);

/// A click takes the coordinates off again, unless the user wants them for good. True where it did.
bool ClickCoordsAway(Game& game);

/// The cell of the piece on a square, or of the empty square.
int SquareCell(const Game& game, rules::Square square);

/// Shows a square as it is. A square beside the board, of a king who isn't there, is no mistake.
void PaintNormally(const Game& game, rules::Square square);

/// Shows a square without its piece.
void PaintEmpty(const Game& game, rules::Square square);

/// Keeps the present board as the one that is shown.
void CopyBoard(Game& game);

/// Shows the squares that differ from what CopyBoard kept, or all of them.
void DisplayBoardState(const Game& game, bool all);

}  // namespace board
