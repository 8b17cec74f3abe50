// SPDX-License-Identifier: GPL-3.0-or-later
// What a mail server means when it doesn't let the user in (RFC 5530, RFC 4954), for incoming and
// outgoing mail alike.
#pragma once

#include <string>
#include <string_view>

#include "post/servers/credentials.h"

namespace post {

struct LoginFailure {
  enum class Reason { WrongLogin, WantsAppPassword, OnlyNow };

  Reason reason;
  std::string sentence;  ///< for the user, with the server's own words behind it
};

/// `code` is that of an SMTP reply and 0 for IMAP; `reply` is what the server says: of an IMAP
/// server all behind the tag, of an SMTP server what stands behind the code. Secrets of `login`
/// aren't repeated.
LoginFailure LoginFailureIn(const std::string& host, const Login& login, int code,
                            const std::string& reply);

/// Raises LoginRefused; ConnectionLost where the server may let the same user in another time.
[[noreturn]] void RaiseLoginFailure(const std::string& host, const Login& login, int code,
                                    const std::string& reply);

/// What the server says, in a sentence of readable length without what is meant for programs; blank
/// where it says nothing.
std::string ServersOwnWords(std::string_view reply);

}  // namespace post
