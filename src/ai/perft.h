// SPDX-License-Identifier: GPL-3.0-or-later
// Counting move sequences: the usual proof that a move generator misses nothing and adds nothing.
#pragma once

#include <cstdint>

#include "rules/position.h"

namespace ai {

/// The sequences of `depth` test moves from the live position, `side` moving first. A pawn that
/// reaches the last row stays a pawn. 1 for depth 0.
std::int64_t CountMoveSequences(rules::Side side, int depth, rules::LastMove lastMove,
                                int sideInCheck);

}  // namespace ai
