// SPDX-License-Identifier: GPL-3.0-or-later
// Telling the user of moves that have come in, and leading him to them.
#pragma once

#include "platform/windows.h"

namespace shell {

/// Plays the sound, and asks about the games in PendingGames one after the other; where the user
/// wants that, the desktop tells him, too, and he may answer there. While the game list is open,
/// which shows them, only the desktop tells, and only where he has another program before him. What
/// the user hasn't answered stays pending.
void NotifyNewMoves();

/// Says beside the tray's icon, where the user wants to be told by a message, how many games by
/// mail wait for his move. For the start of the program; what has just come in is told by
/// NotifyNewMoves.
void TellOfWaitingGames();

/// Asks about the first game in PendingGames. A game that is gone is told and counts as Later.
platform::NotifyChoice ShowNotification();

}  // namespace shell
