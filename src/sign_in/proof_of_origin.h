// SPDX-License-Identifier: GPL-3.0-or-later
// What proves that an answer belongs to our own question, and a code to whoever asked for it
// (RFC 7636).
#pragma once

#include <string>

namespace sign_in {

/// 43 characters that nobody can guess, fit for an address.
std::string RandomText();

/// What is told ahead of the random text itself: its SHA-256 in base64url.
std::string ChallengeOf(const std::string& verifier);

}  // namespace sign_in
