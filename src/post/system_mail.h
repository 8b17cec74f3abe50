// SPDX-License-Identifier: GPL-3.0-or-later
// Mail as the machine itself has it: what arrives is delivered into the user's own Maildir, what
// goes out is handed to the system's sendmail program.
#pragma once

#include <chrono>
#include <string>

#include "post/maildir.h"
#include "post/servers/patience.h"

namespace post {

class SystemMail : public MailTransport {
 public:
  /// The Maildir is $MAIL where that is a folder, else ~/Maildir.
  SystemMail();

  /// `sendmail` is the path of a program that understands the traditional arguments. It may take
  /// as long as `timeLimit` for one mail.
  SystemMail(const std::string& maildir, std::string sendmail,
             std::chrono::milliseconds timeLimit = std::chrono::minutes(1));

  /// Raises where either end isn't there. A Maildir isn't made: without one, the system delivers
  /// elsewhere.
  void Open() override;

  std::vector<letters::FetchedMail> List(bool unreadOnly) override {
    return inbox_.List(unreadOnly);
  }
  bool MoreToCome() const override { return inbox_.MoreToCome(); }
  void BeginAnew() override { inbox_.BeginAnew(); }
  std::string Problem() const override { return inbox_.Problem(); }
  void MarkRead(const std::string& id) override { inbox_.MarkRead(id); }
  void Remove(const std::string& id) override { inbox_.Remove(id); }
  void Send(const letters::OutgoingMail& mail) override;
  void Close() override {}
  void Hurry() override { patience_.Hurry(); }

 private:
  std::string folder_;
  std::string sendmail_;
  Maildir inbox_;
  Patience patience_;
};

}  // namespace post
