// SPDX-License-Identifier: GPL-3.0-or-later
// How moves come in by themselves: the tick of the polling timer, and the user's own retrieve.
//
// A tick never waits for the mail service. It asks for a look at the Inbox, and what that brings is
// taken when it is in memory, if polling is still free by then; else the next tick looks again.
#pragma once

namespace shell {

/// The polling timer fired.
void CheckTimerTick();

/// The tray's retrieve: logs on where need be, and takes read mails too. Waits.
void RetrieveByHand();

}  // namespace shell
