// SPDX-License-Identifier: GPL-3.0-or-later
// The window's own timer: kings that flash, and the notices that wait until the window is seen.
#pragma once

#include "board/game.h"

namespace board {

/// A tick of the timer.
void CheckTimer(Game& game);

/// Shows a king in danger that is flashed away just now.
void ShowKing(Game& game);

/// Shows both kings, neither of whom is in danger any more.
void StopFlashing(Game& game);

/// One flicker of a side's king, the last of which leaves him in sight.
void FlickerKing(Game& game, int& ticksLeft, rules::Side side);

}  // namespace board
