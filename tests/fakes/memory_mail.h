// SPDX-License-Identifier: GPL-3.0-or-later
// A mail service in memory: an Inbox that the test fills, and what was sent. Members can be made to
// raise by their names.
#pragma once

#include <deque>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "platform/address_book.h"
#include "platform/mail_client.h"

namespace fakes {

struct InboxMail {
  std::string subject;
  std::string text;
  std::string senderName;
  std::string senderAddress;
  bool read = false;
  bool marked = false;   ///< read at the next flush
  bool brought = false;  ///< by a look of the round that is under way
  bool isSpam = false;
  std::optional<platform::Undelivered> undelivered = {};
};

struct SentMail {
  std::string subject;
  std::string text;
  std::string recipientName;
  std::string recipientAddress;
  platform::MovePage page = {};
};

class MemoryMail : public platform::MAPISession, public platform::MAPIMessages {
 public:
  std::vector<InboxMail> inbox;
  std::vector<SentMail> sent;
  std::string ownAddress = "me@example.org";
  std::vector<platform::Recipient> people;  ///< whom the address book knows
  std::vector<platform::Recipient> picked;  ///< in the address book, where it is shown
  std::size_t perLook = 1000;               ///< mails that one look brings
  std::string problem;                      ///< what the service says of a failure
  std::set<std::string> failing;            ///< names of the members that raise
  bool answersLater = false;                ///< a look is ready when the test calls AnswerLook
  bool answersStale = false;  ///< the set of a look is of no use any more when it comes
  std::vector<std::string>* log = nullptr;  ///< where logons and logoffs are told, too
  std::vector<std::string> calls;           ///< "SignOn", "Fetch", "Delete", "Send", ... in order

  /// The mail service answers the oldest look that is under way.
  void AnswerLook();
  std::size_t LooksUnderWay() const { return ready_.size(); }

  void SignOn() override;
  void SignOff() override;
  std::string LastProblem() override { return problem; }
  long SessionID() override { return session_; }
  void SessionID(long id) override { session_ = id; }

  void FetchUnreadOnly(bool unreadOnly) override { unreadOnly_ = unreadOnly; }
  void Prefetch(std::function<void()> ready) override;
  bool Prefetched() override { return prefetched_; }
  void Fetch() override;
  bool MoreToCome() override { return moreToCome_; }
  int MsgCount() override { return static_cast<int>(set_.size()); }
  void MsgIndex(int index) override { index_ = index; }
  std::string MsgSubject() override { return Current().subject; }
  std::string MsgNoteText() override;
  std::string MsgOrigDisplayName() override { return Current().senderName; }
  std::string MsgOrigAddress() override;
  std::optional<platform::Undelivered> MsgUndelivered() override { return Current().undelivered; }
  bool MsgIsSpam() override { return Current().isSpam; }
  void LeaveUnread() override { Current().marked = false; }
  void Delete() override;
  void Flush() override;
  void FlushLater() override;
  bool IsOwnAddress(const std::string& address) override { return address == ownAddress; }

  void MsgSubject(const std::string& subject) override { subject_ = subject; }
  void MsgNoteText(const std::string& text) override { text_ = text; }
  void MsgPage(const platform::MovePage& page) override { page_ = page; }
  void MsgThread(const std::string&) override {}
  int RecipCount() override { return static_cast<int>(recipients_.size()); }
  void RecipIndex(int index) override { recipient_ = static_cast<std::size_t>(index); }
  std::string RecipAddress() override { return recipients_.at(recipient_).address; }
  void RecipAddress(const std::string& address) override { CurrentRecipient().address = address; }
  std::string RecipDisplayName() override { return recipients_.at(recipient_).name; }
  void RecipDisplayName(const std::string& name) override { CurrentRecipient().name = name; }
  void RecipType(int) override {}
  void DeleteRecipient() override;
  void Send() override;
  void AddressCaption(const std::string&) override {}
  void Show(bool details) override;
  void AddressResolveUI(bool mayAsk) override { mayAsk_ = mayAsk; }
  void ResolveName() override;

 private:
  /// Records the call and raises where the test wants it.
  void Called(const std::string& member);
  void CarryOutMarks();
  InboxMail& Current() { return inbox.at(set_.at(static_cast<std::size_t>(index_))); }
  platform::Recipient& CurrentRecipient();

  long session_ = 0;
  std::deque<std::function<void()>> ready_;
  bool prefetched_ = false;
  bool unreadOnly_ = false;
  std::vector<std::size_t> set_;  // indexes into the inbox
  bool moreToCome_ = false;
  int index_ = 0;
  std::string subject_, text_;
  platform::MovePage page_;
  std::vector<platform::Recipient> recipients_;
  std::size_t recipient_ = 0;
  bool mayAsk_ = false;
};

}  // namespace fakes
