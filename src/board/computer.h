// SPDX-License-Identifier: GPL-3.0-or-later
// The computer's turn.
#pragma once

#include "board/game.h"

namespace board {

/// One turn of the computer, as Black, from the search to the stored move. Events run meanwhile.
void MakeComputerMove(Game& game);

}  // namespace board
