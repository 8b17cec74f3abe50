// SPDX-License-Identifier: GPL-3.0-or-later
// Real mail servers on this machine for the tests, and nobody else's: Dovecot keeps the mailboxes
// (IMAP) and takes the users' mail (SMTP), OpenSMTPD behind it delivers. Every address is a user's
// name, and all have one password. It all lies in one temporary folder; the servers go with this
// object, and with the process whatever ends it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "mail_servers/server_process.h"

class MailServers {
 public:
  static constexpr const char* password = "secret";

  // The servers answer alike under each of these, on the same ports, but with another certificate.
  static constexpr const char* host = "localhost";
  static constexpr const char* numericHost = "127.0.0.1";
  static constexpr const char* expiredHost = "127.0.0.2";  ///< its certificate has expired
  static constexpr const char* foreignHost = "127.0.0.3";  ///< has the certificate of another
  static constexpr const char* plainHost = "127.0.0.4";    ///< offers no STARTTLS

  /// Starts them, and lets this process trust their certificate authority. Raises a sentence where
  /// that can't be: there is one OpenSMTPD on a machine, and it needs root.
  MailServers();
  ~MailServers();
  MailServers(const MailServers&) = delete;
  MailServers& operator=(const MailServers&) = delete;

  /// For "Tls" and "StartTls".
  int ImapPort(const std::string& security) const { return security == "Tls" ? imaps_ : imap_; }
  int SmtpPort(const std::string& security) const { return security == "Tls" ? smtps_ : smtp_; }

  /// Files with the authority that all good certificates come from, and one that knows nobody.
  std::string Authority() const { return folder_ / "authority.pem"; }
  std::string OtherAuthority() const { return folder_ / "other.pem"; }

  /// All mailboxes are gone, and nobody is refused any more.
  void Empty();

  /// Puts many small mails from others into the Inbox at once, where nobody looks at it.
  void DeliverOthers(const std::string& address, int count);

  /// From now on nothing can be sent to `address`.
  void Refuse(const std::string& address);

  /// Returns when all that was accepted lies in its mailbox.
  void AwaitDelivery() const;

  /// Hangs up on everybody who is logged on at the IMAP server.
  void CutConnections();

  /// How often somebody has shown a password so far, a right one or a wrong one.
  int PasswordsSeen() const;

 private:
  void WriteSettings() const;
  std::filesystem::path BoxOf(const std::string& address) const {
    return folder_ / "mail" / address;
  }

  std::filesystem::path folder_;
  int imap_ = 0;
  int imaps_ = 0;
  int smtp_ = 0;
  int smtps_ = 0;
  int relay_ = 0;
  std::optional<ServerProcess> delivery_;
  std::optional<ServerProcess> boxes_;
};
