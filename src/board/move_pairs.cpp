// SPDX-License-Identifier: GPL-3.0-or-later
#include "board/move_pairs.h"

namespace board {

namespace {

/// Of an entry without a move both squares are the same.
bool IsMove(rules::LastMove move) { return move.from != move.to; }

}  // namespace

int NumberOfPair(const MoveList& moves, int pair) {
  if (!IsMove(moves.MoveOf(2 * pair - 1))) return 0;
  int number = 0;
  for (int row = 1; row < 2 * pair; row += 2) number += IsMove(moves.MoveOf(row)) ? 1 : 0;
  return number;
}

}  // namespace board
