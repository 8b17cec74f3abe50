// SPDX-License-Identifier: GPL-3.0-or-later
// The list of moves as a book of chess prints it, White's move and Black's answer in one row. That
// is for the eye only: entry by entry the list stays what it is, and so do the numbers in it.
#pragma once

#include "board/move_list.h"

namespace board {

/// The pair that an entry belongs to; both count from 1.
constexpr int PairOf(int entry) { return (entry + 1) / 2; }

/// The number in front of a pair, which is that of White's move in it. 0 where White only said
/// something there: an offer of a draw or an answer to one is no move.
int NumberOfPair(const MoveList& moves, int pair);

}  // namespace board
