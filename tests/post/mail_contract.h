// SPDX-License-Identifier: GPL-3.0-or-later
// What the program relies on in every mail service. A test program that has mail_contract.cpp asks
// it of the kinds that it names in INSTANTIATE_TEST_SUITE_P.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

#include "post/mail_world.h"

struct MailKind {
  const char* name;
  std::unique_ptr<MailWorld> (*make)();
};

inline void PrintTo(const MailKind& kind, std::ostream* out) { *out << kind.name; }

inline std::string NameOfKind(const testing::TestParamInfo<MailKind>& kind) {
  return kind.param.name;
}

class MailContractTest : public testing::TestWithParam<MailKind> {
 protected:
  void SignOn() {
    session_.SignOn();
    messages_.SessionID(session_.SessionID());
  }

  void Deliver(const std::string& subject) {
    world_->Deliver({{"You", "you@localhost"}, {{userName, userAddress}}, subject, "text"});
  }

  /// The subjects of the set behind the prefix, in order.
  std::string Subjects() {
    std::string subjects;
    for (int i = 0; i < messages_.MsgCount(); ++i) {
      messages_.MsgIndex(i);
      subjects += messages_.MsgSubject().substr(std::string("Tarvolenix : ").size()) + ' ';
    }
    return subjects;
  }

  std::string FetchedSubjects(bool unreadOnly) {
    messages_.FetchUnreadOnly(unreadOnly);
    messages_.Fetch();
    return Subjects();
  }

  std::string TextOf(int index) {
    messages_.MsgIndex(index);
    return messages_.MsgNoteText();
  }

  void Compose(const std::string& address, const std::string& subject, const std::string& text) {
    messages_.MsgIndex(-1);
    while (messages_.RecipCount() > 0) {
      messages_.RecipIndex(0);
      messages_.DeleteRecipient();
    }
    messages_.RecipAddress(address);
    messages_.RecipDisplayName(userName);
    messages_.RecipType(1);
    messages_.MsgSubject(subject);
    messages_.MsgNoteText(text);
    messages_.MsgPage({text.empty() ? "" : "<p>A page", "a picture"});
  }

  /// Answers what is left of it in the outbox.
  std::vector<platform::MailOnItsWay> SendAndWait() {
    const auto isSending = [](const auto& mail) {
      return mail.stage == platform::MailStage::Sending;
    };
    std::vector<platform::MailOnItsWay> left;
    messages_.Send();
    world_->Events().RunUntil([&] {
      left = world_->State().OnItsWay();
      return std::none_of(left.begin(), left.end(), isSending);
    });
    if (left.empty()) world_->AwaitDelivery();
    return left;
  }

  std::unique_ptr<MailWorld> world_ = GetParam().make();
  platform::MAPISession& session_ = world_->Session();
  platform::MAPIMessages& messages_ = world_->Messages();
};
