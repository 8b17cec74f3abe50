// SPDX-License-Identifier: GPL-3.0-or-later
// The mail session of one call of the console.
#pragma once

#include <string>

#include "cli/collected_messages.h"
#include "cli/json.h"
#include "store/game_record.h"

namespace cli {

/// Logs on because the user asked for it, whatever became of the logon before. Offline then tells
/// whether there is a session; the messages say why not.
void LogOn();

/// What became of a mail by the end of the call.
struct Sending {
  bool ok = false;     ///< it was sent, or waits to be
  std::string state;   ///< "sent", "waiting", "perhaps" or "failed"
  std::string reason;  ///< why it isn't sent; blank where it is
};

/// Mails a stored game, and waits for what becomes of it, but not for ever. Where not even the
/// outbox took it the reason is in the messages.
Sending SendGame(const store::GameRecord& game);

/// Adds the state, and the reason where there is one.
void AddSending(JsonObject& answer, const Sending& sending);

/// Waits until all that can be sent now is sent, but not for ever.
void AwaitDelivery();

/// A sentence that begins with `what`, or with what was said.
std::string WhyNotSent(const std::string& what, const Sending& sending,
                       CollectedMessages& messages);

/// What was said of a failure, and behind it what the mail service itself says.
std::string WithServiceReason(const std::string& said);

}  // namespace cli
