// SPDX-License-Identifier: GPL-3.0-or-later
// Names of mail domains and of the servers in them.
#pragma once

#include <string>
#include <string_view>

namespace post {

/// What stands behind the last "@", in lower case; blank where nothing does.
std::string DomainOf(std::string_view address);

/// Whether a host is the domain itself or lies beneath it, in any case.
bool IsWithin(std::string_view host, std::string_view domain);

/// Whether a text from outside is a server's full name and nothing else.
bool IsServerName(std::string_view text);

}  // namespace post
