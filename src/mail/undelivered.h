// SPDX-License-Identifier: GPL-3.0-or-later
// The games whose last mail couldn't be delivered, as a mail server has reported. Each report
// counts and is told of once; what it says of the game stands until a mail goes either way.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/mail_client.h"

namespace mail {

/// Why the last mail of this thread (ThreadOf) couldn't be delivered: the remote server's sentence,
/// which may be blank. Nothing where no such report has come, or what is remembered can't be read.
std::optional<std::string> UndeliveredReason(std::string_view thread);

/// Remembers a report. False where it is of no game, or was met before. Raises StoreFailure.
bool NoteUndelivered(const platform::Undelivered& report);

/// Tells the user, once for each game.
void TellOfUndelivered(const std::vector<platform::Undelivered>& reports);

/// A mail of the thread goes out or has come in. What can't be forgotten stays.
void ForgetUndelivered(std::string_view thread);

}  // namespace mail
