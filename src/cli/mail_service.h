// SPDX-License-Identifier: GPL-3.0-or-later
// The mail session of one call of the console.
#pragma once

#include <cstdint>
#include <string>

namespace cli {

/// Logs on because the user asked for it, whatever became of the logon before. Offline then tells
/// whether there is a session; the messages say why not.
void LogOn();

/// Mails a stored game. False, with the reason in the messages, where that failed.
bool SendGame(std::int32_t gameID);

/// What was said of a failure, and behind it what the mail service itself says.
std::string WithServiceReason(const std::string& said);

}  // namespace cli
