// SPDX-License-Identifier: GPL-3.0-or-later
// A side's turn, with all that a move has to be judged by: a copy, whatever becomes of the live
// position.
#pragma once

#include "rules/position.h"

namespace ai {

struct Moment {
  rules::Position position;  ///< with SideInCheck as it is
  rules::Side side = rules::White;
  rules::LastMove lastMove;  ///< the one that led here
};

}  // namespace ai
