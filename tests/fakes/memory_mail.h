// SPDX-License-Identifier: GPL-3.0-or-later
// A mail service in memory: an Inbox that the test fills, and what was sent. Any member can be made
// to raise by its name.
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
};

struct SentMail {
  std::string subject;
  std::string text;
  std::string recipientName;
  std::string recipientAddress;
};

class MemoryMail {
 public:
  MemoryMail();

  std::vector<InboxMail> inbox;
  std::vector<SentMail> sent;
  std::string ownAddress = "me@example.org";
  std::vector<platform::Recipient> people;  ///< whom the address book knows
  std::vector<platform::Recipient> picked;  ///< in the address book, where it is shown
  std::size_t perLook = 1000;               ///< mails that one look brings
  std::set<std::string> failing;            ///< names of the members that raise
  std::string problem;                      ///< what the service says of the last failure
  bool answersLater = false;                ///< a look is ready when the test calls AnswerLook
  bool answersStale = false;  ///< the set of a look is of no use any more when it comes
  bool prefetched = false;    ///< the set of a look is in memory
  std::vector<std::string>* log = nullptr;  ///< where logons and logoffs are told, too
  std::vector<std::string> calls;           ///< "SignOn", "Fetch", "Delete", "Send", ... in order

  /// The mail service answers the oldest look that is under way.
  void AnswerLook();
  std::size_t LooksUnderWay() const { return ready_.size(); }

  class Session : public platform::MAPISession {
   public:
    explicit Session(MemoryMail& mail) : mail_(mail) {}
    void SignOn() override;
    long SessionID() override { return id_; }
    void SignOff() override;
    std::string LastProblem() override { return mail_.problem; }

   private:
    MemoryMail& mail_;
    long id_ = 0;
  };

  class Messages : public platform::MAPIMessages {
   public:
    explicit Messages(MemoryMail& mail) : mail_(mail) {}
    long SessionID() override;
    void SessionID(long id) override { sessionID_ = id; }
    void FetchUnreadOnly(bool unreadOnly) override;
    void Prefetch(std::function<void()> ready) override;
    bool Prefetched() override { return mail_.prefetched; }
    void Fetch() override;
    bool MoreToCome() override { return moreToCome_; }
    int MsgCount() override { return static_cast<int>(set_.size()); }
    void MsgIndex(int index) override { index_ = index; }
    std::string MsgSubject() override;
    void MsgSubject(const std::string& subject) override { outgoing_.subject = subject; }
    std::string MsgNoteText() override;
    void MsgNoteText(const std::string& text) override { outgoing_.text = text; }
    std::string MsgOrigDisplayName() override;
    std::string MsgOrigAddress() override;
    int RecipCount() override { return static_cast<int>(recipients_.size()); }
    void RecipIndex(int index) override;
    std::string RecipAddress() override { return recipients_.at(recipient_).recipientAddress; }
    void RecipAddress(const std::string& address) override;
    std::string RecipDisplayName() override { return recipients_.at(recipient_).recipientName; }
    void RecipDisplayName(const std::string& name) override;
    void RecipType(int) override {}
    void LeaveUnread() override { Current().marked = false; }
    void Delete() override;
    void DeleteRecipient() override;
    void Flush() override;
    void FlushLater() override;
    void Send() override;
    bool IsOwnAddress(const std::string& address) override { return address == mail_.ownAddress; }
    void AddressCaption(const std::string& caption) override {
      mail_.Called("AddressCaption " + caption);
    }
    void Show(bool details) override;
    void AddressResolveUI(bool mayAsk) override { addressResolveUI_ = mayAsk; }
    void ResolveName() override;

   private:
    void CarryOutMarks();
    InboxMail& Current();
    SentMail& CurrentRecipient();

    MemoryMail& mail_;
    long sessionID_ = 0;
    bool unreadOnly_ = false;
    int index_ = 0;
    std::vector<std::size_t> set_;  // indexes into the inbox
    bool moreToCome_ = false;
    SentMail outgoing_;
    std::vector<SentMail> recipients_;
    std::size_t recipient_ = 0;
    bool addressResolveUI_ = false;
  };

  Session session;
  Messages messages;

 private:
  std::deque<std::function<void()>> ready_;

  /// Records the call and raises where the test wants it.
  void Called(const std::string& member);
};

}  // namespace fakes
