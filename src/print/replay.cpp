// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/replay.h"

#include "board/stored_positions.h"

namespace print {

std::vector<Diagram> DiagramsOf(const store::GameRecord& game, const store::MoveRecords& moves,
                                rules::Side viewSide) {
  std::vector<Diagram> diagrams;
  board::WalkStoredGame(game.GAME_ID, moves, [&] { diagrams.push_back(DiagramText(viewSide)); });
  return diagrams;
}

}  // namespace print
