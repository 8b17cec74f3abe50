// SPDX-License-Identifier: GPL-3.0-or-later
// Asking the network about a mail domain: name servers, and the domain's own web servers. Nobody
// else learns the address.
#pragma once

#include <string>

#include "post/accounts/discovery.h"
#include "post/servers/patience.h"

namespace post {

/// All that was heard before the patience's silence was over, or nothing more was to come. Not
/// for the window's thread.
DomainFacts AskAboutDomainOf(const std::string& address, const Patience& patience);

}  // namespace post
