// SPDX-License-Identifier: GPL-3.0-or-later
// A stored game, played through for its diagrams. The position of the program, which may be that of
// a game on the board, is what it was when this has ended.
#pragma once

#include <vector>

#include "print/diagram.h"
#include "store/game_record.h"

namespace print {

/// The start of the game, and the position behind each entry of its moves. An entry that moves no
/// piece has the diagram of the entry before.
std::vector<Diagram> DiagramsOf(const store::GameRecord& game, const store::MoveRecords& moves,
                                rules::Side viewSide);

}  // namespace print
