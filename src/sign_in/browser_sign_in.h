// SPDX-License-Identifier: GPL-3.0-or-later
// A sign-in in the user's own browser: authorization code with proof of origin (RFC 6749, 4.1;
// RFC 7636; RFC 8252).
#pragma once

#include <functional>
#include <string>

#include "sign_in/token_endpoint.h"

namespace sign_in {

/// Shows an address to the user in his browser; false where that can't be done. Callable from any
/// thread.
using OpenBrowser = std::function<bool(const std::string& url)>;

/// Waits for the user, for ten minutes at most, or until the patience is over: not for the window's
/// thread. `address` is what the provider's page begins with. Raises MailError with a sentence.
Tokens SignInByBrowser(const Service& service, const std::string& address, const OpenBrowser& open,
                       const post::Patience& patience);

}  // namespace sign_in
