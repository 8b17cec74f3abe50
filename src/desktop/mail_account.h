// SPDX-License-Identifier: GPL-3.0-or-later
// Who the user is to his mail service, and which service that is: the settings' section "Mail",
// each value under its member's name.
#pragma once

#include <string>

namespace desktop {

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
};

/// What is stored, defaults standing in for what isn't. Without a stored account MyAddress is
/// blank.
MailAccount LoadMailAccount();

/// `account` with a name and an address where they are blank: the login name, and that name at this
/// machine.
MailAccount WithLoginName(MailAccount account);

/// False where the settings can't be written.
bool SaveMailAccount(const MailAccount& account);

}  // namespace desktop
