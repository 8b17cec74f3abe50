// SPDX-License-Identifier: GPL-3.0-or-later
// One question to a web server, and its answer. What is asked is encrypted, but on this machine.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "post/servers/patience.h"

namespace sign_in {

using Fields = std::vector<std::pair<std::string, std::string>>;

/// "name=value&name=value", encoded for an address or a form. What is blank is left out: to say
/// nothing means the same (RFC 6749, 3.1), and not every provider bears with a blank.
std::string Encoded(const Fields& fields);

struct WebAnswer {
  long status = 0;
  std::string content;
};

/// Raises MailError for an address that a sign-in has no business at: secrets go out only
/// encrypted, or to this machine itself.
void RequireSafe(const std::string& url);

// Not for the window's thread. Both raise ConnectionLost where nobody answers, CertificateRefused
// where it is a stranger, and what RequireSafe does.
WebAnswer Get(const std::string& url, const post::Patience& patience);
WebAnswer PostForm(const std::string& url, const Fields& fields, const post::Patience& patience);

}  // namespace sign_in
