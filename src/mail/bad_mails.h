// SPDX-License-Identifier: GPL-3.0-or-later
// Telling the user of mails that look like moves and aren't of good form. They stay in the Inbox,
// so each would be met again at every start: he hears of all new ones in one message, once, and
// again only when he retrieves by hand and hasn't said that he knows.
#pragma once

#include <string>
#include <vector>

namespace mail {

struct BadMail {
  std::string id;
  std::string from;  ///< the sender's name or address; blank where the service can't say
  int stage = 0;     ///< of the form check; 0 where it failed unexpectedly
};

/// "anna@x.y, bob@x.y and 3 others": each once, as somebody where his address is blank.
std::string SendersListed(const std::vector<std::string>& senders);

/// Silent where there is nothing that he must hear of. What can't be remembered is told again.
void TellOfBadMails(const std::vector<BadMail>& mails, bool byHand);

}  // namespace mail
