// SPDX-License-Identifier: GPL-3.0-or-later
// Turning the Inbox into games. A move mail that was saved is deleted; one that fails its check or
// was set aside stays, marked as read; all other mail is left alone, unread as it was.
#pragma once

#include <vector>

#include "mail/received_game.h"

namespace mail {

/// Takes the move mails of the Inbox, read ones too with `fetchAll`, and answers what became of
/// each. PendingGames then lists the games that changed, and NewMoveArrived tells whether the last
/// mail saved brought something new. A failure ends the walk with what was saved so far and is
/// reported, but for a failing Fetch, which only sets Offline. Holds polling meanwhile.
std::vector<MoveArrival> RetrieveMoveMails(bool showStatus, bool fetchAll);

}  // namespace mail
