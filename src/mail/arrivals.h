// SPDX-License-Identifier: GPL-3.0-or-later
// When the last mail of a game came that brought something new, and when the user's last one went.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "mail/mail_memory.h"

namespace mail {

/// A mail of the thread (ThreadOf) has come or gone, just now.
void NoteMoment(const std::string& thread, std::vector<Arrival>& moments);

/// In seconds since 1970. Nothing where no mail came, or what is remembered can't be read.
std::optional<std::int64_t> LastArrival(const std::string& thread);

/// A mail of the thread has been handed to the mail service, just now. What can't be remembered is
/// forgotten.
void NoteDeparture(const std::string& thread);

/// Of each thread whose mails are remembered, when the last one came or went. Raises nothing.
std::map<std::string, std::int64_t> LastMails();

}  // namespace mail
