// SPDX-License-Identifier: GPL-3.0-or-later
// The score of a move as one would write it down: squares walked, ValidMove asked, nothing shared
// and nothing remembered. It is slow, and the measure for the program's own.
#pragma once

#include "rules/position.h"

namespace ai::literal {

/// The score of one pass, before the move or with the move played.
std::int16_t EvaluateMove(int fromX, int fromY, int toX, int toY, int sideInCheck, bool doMove,
                          rules::LastMove lastMove);

}  // namespace ai::literal
