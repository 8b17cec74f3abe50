// SPDX-License-Identifier: GPL-3.0-or-later
// Sends what lies in the outbox, on a thread of its own: at once, and then ever more rarely while
// the trouble may pass by itself. What is refused for good stays in the outbox as failed. Of all
// programs of a user only one delivers at a time; the others try it later.
//
// Everything here belongs to the window's thread, but for what says otherwise.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/events.h"
#include "platform/mail_state.h"
#include "post/accounts/mail_account.h"
#include "post/mail_thread.h"
#include "post/mail_transport.h"
#include "post/outbox.h"

namespace post {

/// How long a mail that couldn't be sent for the `tries`-th time waits, in seconds, without the
/// jitter.
std::int64_t PauseAfter(int tries);

/// Whether it is to be tried now. A next try further away than the longest pause is none: the clock
/// has been set back.
bool IsDue(const QueuedMail& mail, std::int64_t now);

/// Whether it has been tried often and long enough.
bool IsGivenUp(const QueuedMail& mail, std::int64_t now);

class Delivery {
 public:
  using MakeTransport = std::function<std::unique_ptr<MailTransport>(const MailAccount& account,
                                                                     const std::string& password)>;

  /// `changed` is called on the window's thread, from its event loop.
  Delivery(platform::Events& events, std::function<void()> changed);
  ~Delivery();
  Delivery(const Delivery&) = delete;
  Delivery& operator=(const Delivery&) = delete;

  /// From now on the mails of this account are known, and delivered when somebody asks for it.
  /// `make` is called on the thread that delivers.
  void Begin(const AccountAnswer& answer, MakeTransport make);

  /// What is under way is given up within a second, and nothing is delivered any more.
  void End();

  /// Lets events run until all that is ended.
  void Finish() { thread_.Flush(); }

  /// Ends it for good, with its thread; no event runs meanwhile.
  void Stop();

  /// Returns when the mail lies in the outbox, and is about to be tried. Raises MailError or
  /// platform::FileError.
  void Add(const letters::OutgoingMail& mail);

  /// Tries what is due: all that waits, where it is the session's first look.
  void LookAround();

  /// Tries all that waits.
  void DeliverNow();

  void NoteTold(const std::string& thread);

  std::vector<platform::MailOnItsWay> OnItsWay() const;

  /// When something that waits is tried again, in seconds since 1970; 0 where nothing is planned.
  std::int64_t NextTry() const;

  /// What the last try found of the way that all mails take; None where it told nothing.
  struct Way {
    platform::MailLink link = platform::MailLink::None;
    std::string reason;
    bool wantsSignIn = false;
    std::int64_t since = 0;  ///< seconds since 1970
  };
  Way TheWay() const;

  /// Callable from any thread: has `changed` called, once where it is about to be already.
  void Changed();

  /// Callable from any thread: what is under way is given up within a second.
  void Hurry();

 private:
  struct Session;
  using SessionPtr = std::shared_ptr<Session>;
  enum class Which { Due, New, All };

  // On the window's thread.
  void Post(Which which);

  // On the thread that delivers.
  void Deliver(const SessionPtr& session, Which which);
  void DeliverWhat(const SessionPtr& session, Which which);
  std::vector<QueuedMail> ToTry(Session& session, Which which);
  void TryAll(Session& session, const std::vector<QueuedMail>& mails);
  bool Try(Session& session, QueuedMail mail);
  void BeginToTry(const std::string& file);
  void EndTry(const QueuedMail& mail, bool isSent, const Way& found);
  void Settle(Session& session, const QueuedMail& mail);
  void PlanNext(const SessionPtr& session, std::int64_t notBefore);
  void PlanAt(const SessionPtr& session, std::int64_t next);
  std::vector<QueuedMail> LookInto(Session& session);
  void ForgetWay();
  bool IsTryingAll() const;
  void EndOfTryingAll();
  void Find(Way way);  // with mutex_ held

  platform::Events& events_;
  std::function<void()> changed_;
  std::shared_ptr<bool> audience_;
  SessionPtr session_;
  bool looked_ = false;  // the session's first look has been taken

  mutable std::mutex mutex_;  // guards what follows
  std::vector<QueuedMail> mails_;
  bool tryingAll_ = false;
  std::string trying_;  // the file of the mail that is being sent
  Way way_;
  std::int64_t nextTry_ = 0;
  bool isTold_ = false;  // of a change that nobody has looked at yet

  MailThread thread_;  // the last member: it stops before anything that its work uses goes
};

}  // namespace post
