// SPDX-License-Identifier: GPL-3.0-or-later
// The program's mail session and messages over one transport. The transport works on a thread of
// its own; this class belongs to the window's thread, keeps the fetched set in memory there, and
// hands values only from one to the other. What is sent goes by the outbox, on a thread and a
// transport of its own. A session goes on while nothing answers: a look then brings nothing, and
// the next one may find the way open again.
#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/address_book.h"
#include "platform/events.h"
#include "platform/mail_client.h"
#include "platform/mail_state.h"
#include "post/accounts/mail_account.h"
#include "post/delivery.h"
#include "post/mail_thread.h"
#include "post/mail_transport.h"

namespace post {

class MailService : public platform::MAPISession,
                    public platform::MAPIMessages,
                    public platform::MailState {
 public:
  /// Asks the user for his account, given a suggestion; nothing where he cancels.
  using AskAccount = std::function<std::optional<AccountAnswer>(const MailAccount& suggestion)>;
  using MakeTransport = Delivery::MakeTransport;

  /// What the user answers to the address book; nothing where he cancels, or nobody is found.
  struct AskRecipients {
    using Recipients = std::vector<platform::Recipient>;
    std::function<std::optional<Recipients>(const std::string& caption)> show;
    std::function<std::optional<platform::Recipient>(const platform::Recipient& typed, bool mayAsk)>
        resolve;
  };

  /// The user is asked where there is no account yet, or no password for it. Without `ask` the
  /// logon fails there. `make` is called on the threads that use what it makes. `events` and
  /// `passwords` must outlive the service.
  MailService(platform::Events& events, Passwords& passwords, AskAccount ask = {},
              MakeTransport make = MakeMailTransport);

  /// The user is waiting to leave: what is under way is given up within a second.
  void Hurry() {
    for (const auto& transport : {opening_, transport_}) {
      if (transport) transport->Hurry();
    }
    delivery_.Hurry();
  }

  /// For good, ahead of the end of what all seams are needed for.
  void StopDelivering() { delivery_.Stop(); }

  // SignOn and Fetch let events run while they wait. An event that calls one of them or Send is
  // refused with a MailError.

  // The session. It begins also where nothing answers.
  void SignOn() override;
  void SignOff() override;
  std::string LastProblem() override { return problem_; }

  // Of both: there is one session, so a message set that was told of it has its number.
  long SessionID() override { return session_; }

  // The messages.
  void SessionID(long) override {}
  void FetchUnreadOnly(bool unreadOnly) override;
  void Prefetch(std::function<void()> ready) override;
  bool Prefetched() override;
  /// Where only the user can mend a failure, it ends the session: the next logon begins anew. Any
  /// other leaves the set empty, and LastProblem tells of it.
  void Fetch() override;
  bool MoreToCome() override { return moreToCome_; }
  int MsgCount() override { return static_cast<int>(set_.size()); }
  void MsgIndex(int index) override { index_ = index; }
  std::string MsgSubject() override;
  void MsgSubject(const std::string& subject) override { outgoing_.subject = subject; }
  std::string MsgNoteText() override;
  void MsgNoteText(const std::string& text) override { outgoing_.text = text; }
  void MsgPage(const platform::MovePage& page) override { outgoing_.page = page; }
  void MsgThread(const std::string& thread) override { outgoing_.thread = thread; }
  std::string MsgOrigDisplayName() override;
  std::string MsgOrigAddress() override;
  std::optional<platform::Undelivered> MsgUndelivered() override { return Current().undelivered; }
  bool MsgIsSpam() override { return Current().isSpam; }
  int RecipCount() override { return static_cast<int>(outgoing_.to.size()); }
  void RecipIndex(int index) override { recipient_ = index; }
  std::string RecipAddress() override { return Recipient().address; }
  void RecipAddress(const std::string& address) override { MadeRecipient().address = address; }
  std::string RecipDisplayName() override { return Recipient().name; }
  void RecipDisplayName(const std::string& name) override { MadeRecipient().name = name; }
  void RecipType(int) override {}  // there are no others than "to"
  void LeaveUnread() override;
  void Delete() override;
  void DeleteRecipient() override;
  void Flush() override;
  void FlushLater() override;
  void Send() override;
  bool IsOwnAddress(const std::string& address) override;
  void AddressCaption(const std::string& caption) override { addressCaption_ = caption; }
  void Show(bool details) override;
  void AddressResolveUI(bool mayAsk) override { addressResolveUI_ = mayAsk; }
  void ResolveName() override;

  // What is told of it all.
  platform::MailConnection Connection() override;
  std::vector<platform::MailOnItsWay> OnItsWay() override { return delivery_.OnItsWay(); }
  void OnChange(const std::function<void()>& changed) override { changed_ = changed; }
  void DeliverNow() override { delivery_.DeliverNow(); }
  void NoteTold(const std::string& thread) override { delivery_.NoteTold(thread); }

  /// Without it nobody is found.
  void SetAskRecipients(AskRecipients ask) { askRecipients_ = std::move(ask); }

 private:
  class Errand;
  struct Listing;

  AccountAnswer Account();
  AccountAnswer StoredAccount() const;
  void Open(const AccountAnswer& answer);
  void OpenWithPatience(const std::shared_ptr<MailTransport>& transport);
  std::shared_ptr<Listing> List();
  bool IsCurrent(const std::shared_ptr<Listing>& listing) const;
  template <typename Work>
  void Telling(const Work& work);
  void EndSession();
  void RequireSession() const;
  void Found(platform::MailLink link, const std::string& reason, bool wantsSignIn = false);
  void FailedLook(const std::exception_ptr& failure);
  void HandOverMarks();
  letters::FetchedMail& Current();
  letters::Mailbox& Recipient();
  letters::Mailbox& MadeRecipient();

  platform::Events& events_;
  Passwords& passwords_;
  AskAccount ask_;
  MakeTransport make_;

  std::function<void()> changed_;
  MailAccount account_;
  std::shared_ptr<MailTransport> transport_;  // used on the mail thread only
  std::shared_ptr<MailTransport> opening_;    // the same, while a logon is under way
  long session_ = 0;                          // 0 while not signed on
  long lastSession_ = 0;
  std::shared_ptr<const bool> audience_;  // goes when nobody wants to hear of prefetches any more
  platform::MailConnection connection_;   // as the looks have found it
  std::exception_ptr cantOpen_;           // what the next look needn't find out again
  std::string problem_;
  bool busy_ = false;  // one of the operations that wait is under way

  bool unreadOnly_ = false;
  std::vector<letters::FetchedMail> set_;
  bool moreToCome_ = false;  // behind the set
  bool goesOn_ = false;      // the next look there, instead of beginning anew
  int index_ = 0;
  std::vector<std::string> marks_;       // of mails that were read, until the next flush
  long changes_ = 0;                     // marks and deletions handed over so far
  std::shared_ptr<Listing> prefetched_;  // what the next Fetch takes

  letters::OutgoingMail outgoing_;
  int recipient_ = 0;
  AskRecipients askRecipients_;
  std::string addressCaption_;
  bool addressResolveUI_ = false;

  // The last members: they stop before anything that their work uses goes.
  MailThread thread_;
  Delivery delivery_;
};

}  // namespace post
