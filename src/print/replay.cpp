// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/replay.h"

#include "board/history.h"
#include "board/load_board.h"

namespace print {
namespace {

class PositionGuard {
 public:
  PositionGuard() : saved_(rules::ThePosition()) {}
  ~PositionGuard() { rules::ThePosition() = saved_; }
  PositionGuard(const PositionGuard&) = delete;
  PositionGuard& operator=(const PositionGuard&) = delete;

 private:
  rules::Position saved_;
};

}  // namespace

std::vector<Diagram> DiagramsOf(const store::GameRecord& game, const store::MoveRecords& moves,
                                rules::Side viewSide) {
  const PositionGuard guard;
  int sideInCheck = rules::NobodyInCheck;
  bool flashPhase = false;
  board::LoadBoard(game.GAME_ID, sideInCheck, flashPhase, false, false);
  std::vector<Diagram> diagrams{DiagramText(viewSide)};
  rules::LastMove previous;
  rules::Side side = rules::White;
  for (const store::MoveRecord& entry : moves) {
    const auto move = rules::LastMove::FromText(entry.MoveCoordinates);
    if (move.from != move.to) board::ReplayPieceMove(entry, previous, side);
    diagrams.push_back(DiagramText(viewSide));
    previous = move;
    side = rules::OtherSide(side);
  }
  return diagrams;
}

}  // namespace print
