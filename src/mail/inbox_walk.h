// SPDX-License-Identifier: GPL-3.0-or-later
// One way through the set of mails that was fetched. Move mails are read some at a time and saved
// together, as the disk takes as long for many games as for one.
#pragma once

#include <string>
#include <vector>

#include "mail/bad_mails.h"
#include "mail/received_game.h"
#include "platform/mail_client.h"

namespace mail {

/// What a retrieval has met so far.
struct Findings {
  std::vector<MoveArrival> arrivals;
  std::vector<BadMail> badMails;
  std::vector<platform::Undelivered> reports;
  std::vector<std::string> spamSenders;
  std::string leftOut;  ///< what the mail service says of a mail that it couldn't read
};

/// Takes the move mails of the set. A game's own mail is deleted once the game is safe; bad ones,
/// and those set aside, stay. Raises StoreFailure, or what the mail service raises, with all saved
/// that came before.
void WalkInbox(Findings& findings);

}  // namespace mail
