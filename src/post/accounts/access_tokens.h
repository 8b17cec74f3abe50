// SPDX-License-Identifier: GPL-3.0-or-later
// Tokens that stand for a password at the servers of an account that signs in by its provider.
#pragma once

#include <string>

#include "post/accounts/mail_account.h"
#include "post/servers/patience.h"

namespace post {

class AccessTokens {
 public:
  virtual ~AccessTokens() = default;

  /// Callable from any thread; may wait. `refresh` is what the sign-in left among the passwords.
  /// Another one than `stale`, which a server refused; blank where none was. Raises SignInLapsed
  /// where the user has to sign in again, AccountRefused, ConnectionLost, or MailError.
  virtual std::string Token(const MailAccount& account, const std::string& refresh,
                            const std::string& stale, const Patience& patience) = 0;
};

}  // namespace post
