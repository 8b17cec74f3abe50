// SPDX-License-Identifier: GPL-3.0-or-later
// The user's other mail program, and the eyes of the tests: it says what it is told to.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "mail_servers/mail_servers.h"

class OtherClient {
 public:
  /// Logs on and opens the Inbox.
  OtherClient(const MailServers& servers, const std::string& user);

  /// The whole answer. Raises where it isn't "OK".
  std::string Command(const std::string& command);

  /// Puts a mail into a folder as its last one.
  void Append(const std::string& folder, const std::string& flags, const std::string& bytes);

  struct Mail {
    std::string uid;
    std::string flags;  ///< but for \Recent
    std::string bytes;
  };
  /// Marks nothing. The folder is the open one then.
  std::vector<Mail> Mails(const std::string& folder);

 private:
  void Send(const std::string& bytes);
  std::string ReadLine();
  std::string ReadUntil(const std::string& start);

  struct Close {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
  };
  std::unique_ptr<std::FILE, Close> stream_;
};
