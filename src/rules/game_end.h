// SPDX-License-Identifier: GPL-3.0-or-later
// Stalemate, and the positions in which nobody can mate any more. There are no other automatic
// draws: neither repetition nor a fifty-move rule is known.
#pragma once

#include "rules/position.h"

namespace rules {

/// True if the side has at least one piece and none of them has a legal move. Doesn't look at
/// check.
bool NoLegalMoves(Side side, LastMove lastMove, int sideInCheck);

bool PieceHasLegalMove(Side side, PieceCode piece, Square from, LastMove lastMove, int sideInCheck);

enum class ForcedDraw {
  None = 0,
  KingsAlone = 1,
  OneMinorPiece = 2,      ///< kings and one knight or one bishop
  BishopsOfOneColour = 3  ///< kings and one bishop each, on squares of the same colour
};

ForcedDraw ForcedDrawType();

}  // namespace rules
