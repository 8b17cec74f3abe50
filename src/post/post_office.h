// SPDX-License-Identifier: GPL-3.0-or-later
// Mail without any server: a folder with one Maildir for each address. Two people on one machine,
// or with one folder that their machines share or synchronise, play with nothing else.
#pragma once

#include <string>

#include "post/maildir.h"

namespace post {

/// The mail with local addresses at both ends.
letters::OutgoingMail LocalMail(letters::OutgoingMail mail);

class PostOffice : public MailTransport {
 public:
  explicit PostOffice(const MailAccount& account);

  void Open() override;
  std::vector<letters::FetchedMail> List(bool unreadOnly) override {
    return inbox_.List(unreadOnly);
  }
  bool MoreToCome() const override { return inbox_.MoreToCome(); }
  void BeginAnew() override { inbox_.BeginAnew(); }
  std::string Problem() const override { return inbox_.Problem(); }
  void MarkRead(const std::string& id) override { inbox_.MarkRead(id); }
  void Remove(const std::string& id) override { inbox_.Remove(id); }

  /// Makes the recipient's box where he has never been here yet.
  void Send(const letters::OutgoingMail& mail) override;

  void Close() override {}

 private:
  std::string folder_;
  Maildir inbox_;
};

}  // namespace post
