// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/mail_service.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <stop_token>
#include <thread>
#include <utility>

#include "letters/mail_text.h"
#include "letters/message_ids.h"
#include "platform/mail_address.h"
#include "platform/seams.h"
#include "platform/settings_store.h"
#include "post/account_check.h"
#include "post/post_office.h"
#include "post/servers/mail_failures.h"

namespace post {
namespace {

using platform::AccountError;
using platform::MailError;

/// What leaves the service, whatever the transport found. Who gives no name is called by his
/// address.
std::vector<letters::FetchedMail> HandedOut(std::vector<letters::FetchedMail> mails) {
  for (letters::FetchedMail& mail : mails) {
    for (std::string* text : {&mail.subject, &mail.name, &mail.address}) {
      *text = letters::WithoutReserved(*text);
    }
    if (mail.name.find_first_not_of(' ') == std::string::npos) mail.name = mail.address;
  }
  return mails;
}

constexpr std::chrono::seconds openingPatience(4);

/// Ends a wait that nobody else ends.
class Alarm {
 public:
  Alarm(platform::Events& events, std::chrono::milliseconds time)
      : end_(Clock::now() + time), thread_([&events, end = end_](const std::stop_token& stop) {
          std::mutex mutex;
          std::unique_lock lock(mutex);
          std::condition_variable_any ringing;
          ringing.wait_until(lock, stop, end, [] { return false; });
          if (!stop.stop_requested()) events.Wake();
        }) {}

  bool HasRung() const { return Clock::now() >= end_; }

 private:
  using Clock = std::chrono::steady_clock;

  const Clock::time_point end_;
  const std::jthread thread_;
};

}  // namespace

/// A look at the Inbox that is under way or has been taken. The mail thread fills it before `done`
/// is set, the window's thread reads it behind that.
struct MailService::Listing {
  bool unreadOnly;
  bool goesOn;   ///< behind the set that was taken last
  long changes;  ///< marks and deletions that were ahead of it
  std::vector<letters::FetchedMail> mails;
  std::string problem;  ///< a mail that had to be left out
  bool moreToCome = false;
  std::exception_ptr failure;
  std::atomic<bool> done = false;
};

/// Marks the service as busy for its lifetime. Raises where it is: a second dialog or transport
/// beside the first would be nobody's.
class MailService::Errand {
 public:
  explicit Errand(bool& busy) : busy_(busy) {
    if (busy_) throw MailError("the mail service is busy");
    busy_ = true;
  }
  ~Errand() { busy_ = false; }
  Errand(const Errand&) = delete;
  Errand& operator=(const Errand&) = delete;

 private:
  bool& busy_;
};

MailService::MailService(platform::Events& events, Passwords& passwords, AskAccount ask,
                         MakeTransport make)
    : events_(events),
      passwords_(passwords),
      ask_(std::move(ask)),
      make_(std::move(make)),
      audience_(std::make_shared<bool>()),
      thread_(events),
      delivery_(events, [this] {
        if (changed_) changed_();
      }) {}

/// Runs `work`; whatever it raises is kept for whoever asks, and becomes the one exception that
/// callers know.
template <typename Work>
void MailService::Telling(const Work& work) {
  problem_.clear();
  try {
    work();
  } catch (const std::exception& error) {
    problem_ = InPlainWords(error, account_);
    if (dynamic_cast<const MailError*>(&error)) throw;
    throw MailError(error.what());
  }
}

AccountAnswer MailService::StoredAccount() const {
  try {
    const std::string reason = ask_ ? "" : WhyNoAccount();
    if (!reason.empty()) throw AccountError(reason);
    AccountAnswer stored{LoadMailAccount(), {}};
    if (NeedsPassword(stored.account)) {
      stored.password = passwords_.Read(PasswordKey(stored.account));
    }
    return stored;
  } catch (const platform::SettingsError& error) {
    throw AccountError(error.what());
  }
}

AccountAnswer MailService::Account() {
  AccountAnswer account = StoredAccount();
  const bool complete =
      !account.account.MyAddress.empty() && (account.password || !NeedsPassword(account.account));
  account.account = WithLoginName(account.account);
  const bool asks = ask_ && !complete;
  if (asks) {
    const auto answer = ask_(account.account);
    if (!answer) throw MailError("no mail account");
    account = {WithLoginName(answer->account), answer->password};
  }
  if (!HasUsableAddress(account.account)) {
    throw MailError("your address \"" + account.account.MyAddress +
                    "\" can't be used as a mail address");
  }
  if (asks) {
    SaveAccountAnswer(account, passwords_);
  } else if (!complete && NeedsPassword(account.account)) {
    throw MailError("no password is kept for this mail account");
  }
  account.account = WithAbsolutePostFolder(account.account);
  return account;
}

void MailService::SignOn() {
  if (session_ != 0) return;
  const Errand errand(busy_);
  Telling([this] {
    const AccountAnswer answer = Account();
    account_ = answer.account;
    delivery_.Begin(answer, make_);
    Open(answer);
    session_ = ++lastSession_;
  });
}

/// The transport is made and, where it is refused, destroyed on its own thread. It is known here
/// ahead of that, so that it can be hurried.
void MailService::Open(const AccountAnswer& answer) {
  const auto made = std::make_shared<std::shared_ptr<MailTransport>>();
  thread_.Run([made, make = make_, answer] {
    *made = make(answer.account, answer.password.value_or(std::string{}));
  });
  opening_ = std::move(*made);
  cantOpen_ = nullptr;
  try {
    OpenWithPatience(opening_);
    Found(platform::MailLink::Connected, {});
  } catch (const AccountRefused& error) {
    thread_.Post([transport = std::exchange(opening_, nullptr)] {});
    Found(platform::MailLink::Refused, InPlainWords(error, account_), WantsSignIn(error, account_));
    throw;
  } catch (const std::exception& error) {
    cantOpen_ = std::current_exception();
    Found(platform::MailLink::Waiting, InPlainWords(error, account_));
  }
  transport_ = std::move(opening_);
}

/// A logon needs no network: one that doesn't answer is left to the looks that follow.
void MailService::OpenWithPatience(const std::shared_ptr<MailTransport>& transport) {
  struct Opening {
    std::exception_ptr failure;
    std::atomic<bool> done = false;
  };
  const auto opening = std::make_shared<Opening>();
  thread_.Post([opening, transport, &events = events_] {
    try {
      transport->Open();
    } catch (...) {
      opening->failure = std::current_exception();
    }
    opening->done = true;
    events.Wake();
  });
  {
    const Alarm alarm(events_, openingPatience);
    events_.RunUntil([&opening, &alarm] { return opening->done || alarm.HasRung(); });
  }
  if (!opening->done) throw ConnectionLost("The mail server hasn't answered yet.");
  if (opening->failure) std::rethrow_exception(opening->failure);
}

/// What a look or a logon says of the connection.
void MailService::Found(platform::MailLink link, const std::string& reason, bool wantsSignIn) {
  const std::int64_t now = platform::TheSeams().clock->Seconds();
  const bool isNew = link != connection_.link;
  if (isNew) connection_.since = now;
  connection_.link = link;
  connection_.reason = reason;
  connection_.wantsSignIn = wantsSignIn;
  if (link == platform::MailLink::Waiting) connection_.triedAt = now;
  if (isNew) delivery_.Changed();
}

/// The looks and the mails that go out may find different things: the worse one counts.
platform::MailConnection MailService::Connection() {
  platform::MailConnection connection = connection_;
  connection.nextTry = delivery_.NextTry();
  const Delivery::Way way = delivery_.TheWay();
  if (session_ == 0 || way.link <= connection.link) return connection;
  connection.link = way.link;
  connection.since = way.since;
  connection.reason = way.reason;
  connection.wantsSignIn = way.wantsSignIn;
  return connection;
}

void MailService::SignOff() {
  if (session_ == 0) return;
  HandOverMarks();
  EndSession();
  try {
    delivery_.Finish();
    thread_.Flush();
  } catch (const std::exception&) {
    // the session ends in any case
  }
}

/// What is queued, and the goodbye, are the mail thread's business from here on.
void MailService::EndSession() {
  session_ = 0;
  Found(platform::MailLink::None, {});
  audience_ = std::make_shared<bool>();
  prefetched_.reset();
  set_.clear();
  moreToCome_ = goesOn_ = false;
  marks_.clear();  // who hasn't said that his games are safe takes the mails again
  delivery_.End();
  transport_->Hurry();
  thread_.Post([transport = std::exchange(transport_, nullptr)] {
    try {
      transport->Flush();
    } catch (const std::exception&) {
      // it couldn't be done while there was time
    }
    transport->Close();
  });
}

void MailService::RequireSession() const {
  if (session_ == 0) throw MailError("not signed on");
}

/// A look that nobody takes leaves the following one to begin anew: what it brought would be passed
/// over.
std::shared_ptr<MailService::Listing> MailService::List() {
  auto listing = std::make_shared<Listing>();
  listing->unreadOnly = unreadOnly_;
  listing->goesOn = std::exchange(goesOn_, false);
  listing->changes = changes_;
  if (!transport_) {
    listing->failure = std::make_exception_ptr(MailError("not signed on"));
    listing->done = true;
    return listing;
  }
  delivery_.LookAround();
  if (cantOpen_) {
    listing->failure = std::exchange(cantOpen_, nullptr);
    listing->done = true;
    return listing;
  }
  thread_.Post([listing, transport = transport_, &events = events_] {
    try {
      if (!listing->goesOn) transport->BeginAnew();
      listing->mails = HandedOut(transport->List(listing->unreadOnly));
      listing->moreToCome = transport->MoreToCome();
      listing->problem = transport->Problem();
    } catch (...) {
      listing->failure = std::current_exception();
    }
    listing->done = true;
    events.Wake();
  });
  return listing;
}

void MailService::FetchUnreadOnly(bool unreadOnly) {
  if (unreadOnly != std::exchange(unreadOnly_, unreadOnly)) goesOn_ = false;
}

void MailService::Prefetch(std::function<void()> ready) {
  const bool underWay = IsCurrent(prefetched_) && !prefetched_->done;
  if (!underWay) prefetched_ = List();
  // Behind the look in the queue, so it is done by then. `ready` lives and dies with the window.
  thread_.Post(
      [ready = std::move(ready), audience = std::weak_ptr(audience_), &events = events_]() mutable {
        events.Post([ready = std::move(ready), audience = std::move(audience)] {
          if (!audience.expired()) ready();
        });
      });
}

bool MailService::Prefetched() { return IsCurrent(prefetched_) && prefetched_->done; }

/// A set that was looked up ahead of a mark or a deletion would bring them back.
bool MailService::IsCurrent(const std::shared_ptr<Listing>& listing) const {
  return listing && listing->unreadOnly == unreadOnly_ && listing->changes == changes_;
}

void MailService::Fetch() {
  const Errand errand(busy_);
  set_.clear();
  index_ = 0;
  moreToCome_ = false;
  auto listing = std::exchange(prefetched_, nullptr);
  if (!IsCurrent(listing)) listing = List();
  events_.RunUntil([&listing] { return listing->done.load(); });
  if (const auto failure = std::exchange(listing->failure, nullptr)) return FailedLook(failure);
  const bool isBack = connection_.link == platform::MailLink::Waiting;
  Found(platform::MailLink::Connected, {});
  if (isBack && delivery_.TheWay().link == platform::MailLink::Waiting) delivery_.DeliverNow();
  problem_ = std::move(listing->problem);
  set_ = std::move(listing->mails);
  moreToCome_ = listing->moreToCome;
  goesOn_ = moreToCome_ && !prefetched_;
}

void MailService::FailedLook(const std::exception_ptr& failure) {
  if (session_ == 0) return Telling([&failure] { std::rethrow_exception(failure); });
  try {
    Telling([&failure] { std::rethrow_exception(failure); });
  } catch (const AccountRefused& error) {
    EndSession();
    Found(platform::MailLink::Refused, problem_, WantsSignIn(error, account_));
    throw;
  } catch (const MailError&) {
    Found(platform::MailLink::Waiting, problem_);
  }
}

letters::FetchedMail& MailService::Current() {
  if (index_ < 0 || index_ >= MsgCount()) throw MailError("no such message");
  return set_[static_cast<std::size_t>(index_)];
}

std::string MailService::MsgSubject() { return index_ < 0 ? outgoing_.subject : Current().subject; }

std::string MailService::MsgNoteText() {
  if (index_ < 0) return outgoing_.text;
  letters::FetchedMail& mail = Current();
  if (!mail.read) {
    RequireSession();
    mail.read = true;
    marks_.push_back(mail.id);
  }
  return mail.text;
}

std::string MailService::MsgOrigDisplayName() { return Current().name; }

std::string MailService::MsgOrigAddress() { return Current().address; }

letters::Mailbox& MailService::Recipient() {
  if (recipient_ < 0 || recipient_ >= RecipCount()) throw MailError("no such recipient");
  return outgoing_.to[static_cast<std::size_t>(recipient_)];
}

letters::Mailbox& MailService::MadeRecipient() {
  if (recipient_ < 0 || recipient_ >= RecipCount()) {
    recipient_ = RecipCount();
    outgoing_.to.emplace_back();
  }
  return Recipient();
}

void MailService::LeaveUnread() {
  letters::FetchedMail& mail = Current();
  if (std::erase(marks_, mail.id) > 0) mail.read = false;
}

void MailService::Delete() {
  const std::string id = Current().id;
  RequireSession();
  set_.erase(set_.begin() + index_);
  std::erase(marks_, id);
  ++changes_;
  thread_.Post([transport = transport_, id] { transport->Remove(id); });
}

void MailService::DeleteRecipient() {
  Recipient();
  outgoing_.to.erase(outgoing_.to.begin() + recipient_);
}

/// A mark that stands before the game is safe would hide the mail from the next look after a crash.
void MailService::HandOverMarks() {
  for (const std::string& id : std::exchange(marks_, {})) {
    ++changes_;
    thread_.Post([transport = transport_, id] { transport->MarkRead(id); });
  }
}

void MailService::Flush() {
  HandOverMarks();
  if (transport_) thread_.Post([transport = transport_] { transport->Flush(); });
  Telling([this] { thread_.Flush(); });
}

void MailService::FlushLater() {
  if (!transport_) return;
  HandOverMarks();
  thread_.Post([transport = transport_] { transport->Flush(); });
  thread_.ForgetFailure();
}

void MailService::Send() {
  const Errand errand(busy_);
  RequireSession();
  if (outgoing_.to.empty()) throw MailError("no recipient");
  letters::OutgoingMail mail = outgoing_;
  mail.from = {account_.MyName, account_.MyAddress};
  if (!account_.SendPage) mail.page = {};
  Telling([this, &mail] {
    // What can't be a mail must not wait for ever.
    const bool isLocal = account_.MailKind == "Post";
    if (isLocal) mail = LocalMail(mail);
    letters::ComposeMail(mail);
    mail.messageID = letters::NewMessageID(mail);  // the same however often it is tried
    delivery_.Add(mail);
  });
}

bool MailService::IsOwnAddress(const std::string& address) {
  // Of another kind of account the user name is a remnant of an earlier one.
  return platform::SameAddress(address, account_.MyAddress) ||
         (account_.MailKind == "Imap" && platform::SameAddress(address, account_.UserName));
}

void MailService::Show(bool) {
  RequireSession();
  const auto picked = askRecipients_.show ? askRecipients_.show(addressCaption_) : std::nullopt;
  if (!picked) throw MailError("nobody was picked");
  outgoing_.to.clear();
  for (const auto& [name, address] : *picked) outgoing_.to.push_back({name, address});
  recipient_ = 0;
}

void MailService::ResolveName() {
  RequireSession();
  const letters::Mailbox& typed = Recipient();
  const auto found = askRecipients_.resolve
                         ? askRecipients_.resolve({typed.name, typed.address}, addressResolveUI_)
                         : std::nullopt;
  if (!found) throw MailError("nobody is known as \"" + typed.name + "\"");
  Recipient() = {found->name, found->address};
}

}  // namespace post
