// SPDX-License-Identifier: GPL-3.0-or-later
// Who the user is to his mail service, and which service that is. The password is no part of the
// account, so that it never goes where the account's values go.
#pragma once

#include <optional>
#include <string>

namespace platform {

/// The settings' section "Mail": each value stands there under its member's name.
struct MailAccount {
  std::string MailKind = "Post";  ///< "Post", "Imap" or "System"
  std::string MyName;
  std::string MyAddress;
  std::string PostFolder;  ///< ends in "/"; relative to the program folder or absolute
  std::string ImapHost;
  int ImapPort = 993;
  std::string ImapSecurity = "Tls";  ///< "Tls", "StartTls" or "None"
  std::string SmtpHost;
  int SmtpPort = 465;
  std::string SmtpSecurity = "Tls";
  std::string UserName;
  bool SendPage = true;      ///< beside each move's text, for people who open the mail
  std::string TokenCommand;  ///< prints a token that stands for the password; blank: a password
  std::string SignIn;  ///< whose sign-in stands for the password; blank: a password, or the command

  bool operator==(const MailAccount&) const = default;
};

/// What the user says when he is asked for his account.
struct AccountAnswer {
  MailAccount account;
  /// Or what the sign-in left in its place. Nothing: what is kept stays.
  std::optional<std::string> password;
};

}  // namespace platform
