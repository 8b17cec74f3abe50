// SPDX-License-Identifier: GPL-3.0-or-later
// A position as one small picture, for places that show a game in passing.
#pragma once

#include <QImage>

#include "boards/chess_graphics.h"
#include "rules/position.h"

namespace boards {

struct ShownPosition {
  rules::BoardSquares squares;
  rules::LastMove lastMove;  ///< marked by its two squares, where there is one
  rules::Side viewSide = rules::White;
};

/// A square picture without coordinates, of the largest multiple of eight up to `edge` pixels.
QImage SmallBoard(const ShownPosition& shown, const ChessGraphics& graphics, int edge);

}  // namespace boards
