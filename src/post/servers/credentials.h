// SPDX-License-Identifier: GPL-3.0-or-later
// Who the user is to a mail server, and how that is said.
#pragma once

#include <string>

namespace post {

struct Login {
  std::string userName;
  std::string password;
  std::string token;  ///< stands for the password where it isn't blank
};

/// What the mechanisms XOAUTH2, OAUTHBEARER (RFC 7628) and PLAIN (RFC 4616) say, before it is
/// encoded.
std::string TokenCredentials(const Login& login);
std::string BearerCredentials(const Login& login);
std::string PlainCredentials(const Login& login);

std::string InBase64(const std::string& bytes);

/// What a server says; nothing where it says the password aloud.
std::string WithoutSecrets(const std::string& said, const Login& login);

}  // namespace post
