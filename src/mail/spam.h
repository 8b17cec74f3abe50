// SPDX-License-Identifier: GPL-3.0-or-later
// Telling the user of move mails that a filter has put away.
#pragma once

#include <string>
#include <vector>

namespace mail {

/// One message for all of them, by their senders' addresses; silent where there are none. What lies
/// there is the user's business: nothing is moved.
void TellOfSpam(const std::vector<std::string>& addresses);

}  // namespace mail
