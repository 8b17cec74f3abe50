// SPDX-License-Identifier: GPL-3.0-or-later
// The real mail servers that trials/with_servers.py has started around this program. They keep each
// mailbox as a Maildir, so a look at its files shows what they keep, and a change there is one by
// another program of the user.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>

#include "post/accounts/mail_account.h"

namespace servers {

/// What the environment tells of them; trials/with_servers.py has the names.
inline std::string Told(const std::string& name) {
  if (const char* value = std::getenv(name.c_str())) return value;
  throw std::runtime_error("No " + name + ": run it by trials/with_servers.py");
}

/// Has an order of trials/with_servers.py carried out, and answers its number, if it has one.
inline int Order(const std::string& order) {
  std::ofstream(Told("ORDERS")) << order;
  std::string answer;
  std::ifstream stream(Told("ANSWERS"));
  std::getline(stream, answer);
  if (std::all_of(answer.begin(), answer.end(), ::isdigit)) return std::stoi(answer);
  throw std::runtime_error(answer);
}

/// All mailboxes are gone but the user's, which is empty.
inline void Empty() { Order("empty"); }

/// Returns when all that was accepted lies in its mailbox.
inline void AwaitDelivery() { Order("settle"); }

/// How often somebody has shown a password so far, a right one or a wrong one.
inline int PasswordsSeen() { return Order("count passwords"); }

/// The account of the user at one of the hosts.
inline post::MailAccount Account(const std::string& host = "GOOD_HOST",
                                 const std::string& security = "Tls") {
  const bool tls = security == "Tls";
  post::MailAccount account;
  account.MailKind = "Imap";
  account.MyName = "Jürgen Müller";
  account.MyAddress = account.UserName = Told("MAIL_USER");
  account.ImapHost = account.SmtpHost = Told(host);
  account.ImapPort = std::stoi(Told(tls ? "IMAPS_PORT" : "IMAP_PORT"));
  account.SmtpPort = std::stoi(Told(tls ? "SMTPS_PORT" : "SMTP_PORT"));
  account.ImapSecurity = account.SmtpSecurity = security;
  return account;
}

class Box {
 public:
  explicit Box(const std::string& address)
      : folder_(std::filesystem::path(Told("MAIL_FOLDER")) / address) {}

  /// As the last one, marked with a Maildir's letters. It must be the user's.
  void Put(const std::string& mail, const std::string& flags = "") const {
    static int number = 1'000'000'000;  // where Maildirs have the time
    const std::string name = std::to_string(++number) + ".mail:2," + flags;
    std::ofstream(folder_ / "cur" / name, std::ios::binary) << mail;
  }

  /// The files of all mails in order, with their content.
  std::map<std::filesystem::path, std::string> Mails() const {
    std::map<std::filesystem::path, std::string> mails;
    for (const char* part : {"cur", "new"}) {
      if (!std::filesystem::exists(folder_ / part)) continue;
      for (const auto& file : std::filesystem::directory_iterator(folder_ / part)) {
        std::ifstream stream(file.path(), std::ios::binary);
        mails[file.path()] = {std::istreambuf_iterator<char>(stream), {}};
      }
    }
    return mails;
  }

 private:
  std::filesystem::path folder_;
};

/// A Maildir's letters: F, R, S, T and D.
inline std::string FlagsOf(const std::filesystem::path& mail) {
  const std::string name = mail.filename();
  const auto flags = name.find(":2,");
  return flags == std::string::npos ? "" : name.substr(flags + 3);
}

}  // namespace servers
