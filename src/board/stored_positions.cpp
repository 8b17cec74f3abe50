// SPDX-License-Identifier: GPL-3.0-or-later
#include "board/stored_positions.h"

#include <algorithm>

#include "board/history.h"
#include "board/load_board.h"
#include "rules/position_guard.h"

namespace board {
void WalkStoredGame(std::int32_t gameID, const store::MoveRecords& moves,
                    const std::function<void()>& seen) {
  const rules::PositionGuard guard;
  int sideInCheck = rules::NobodyInCheck;
  bool flashPhase = false;
  LoadBoard(gameID, sideInCheck, flashPhase, false, false);
  seen();
  rules::LastMove previous;
  rules::Side side = rules::White;
  for (const store::MoveRecord& entry : moves) {
    const auto move = rules::LastMove::FromText(entry.MoveCoordinates);
    if (move.from != move.to) ReplayPieceMove(entry, previous, side);
    seen();
    previous = move;
    side = rules::OtherSide(side);
  }
}

rules::LastMove LastPieceMove(const store::MoveRecords& moves) {
  const auto moveOf = [](const store::MoveRecord& entry) {
    return rules::LastMove::FromText(entry.MoveCoordinates);
  };
  const auto last = std::find_if(moves.rbegin(), moves.rend(), [&moveOf](const auto& entry) {
    const rules::LastMove move = moveOf(entry);
    return move.from != move.to;
  });
  return last == moves.rend() ? rules::LastMove() : moveOf(*last);
}

rules::BoardSquares LastSquares(std::int32_t gameID, const store::MoveRecords& moves) {
  rules::BoardSquares squares;
  WalkStoredGame(gameID, moves, [&squares] { squares = rules::ThePosition().BoardState; });
  return squares;
}

}  // namespace board
