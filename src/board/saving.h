// SPDX-License-Identifier: GPL-3.0-or-later
// The pending move on its way: into the store, and from there to the opponent.
#pragma once

#include "board/game.h"

namespace board {

/// Stores the pending entry, with a record of the game where it is the first. False where that
/// failed, which the user was told; the entry then stays pending.
bool SaveMove(Game& game);

void SendNewMove(Game& game);
void ResendLastMove(Game& game);

}  // namespace board
