// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/delivery.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <random>
#include <set>
#include <utility>

#include "platform/files.h"
#include "platform/seams.h"
#include "post/account_check.h"
#include "post/servers/mail_failures.h"

namespace post {
namespace {

using platform::MailLink;
using platform::MailStage;

constexpr std::int64_t minute = 60;
constexpr std::int64_t pauses[] = {30,          1 * minute,  2 * minute, 5 * minute,
                                   15 * minute, 30 * minute, 60 * minute};
constexpr std::int64_t longestPause = 60 * minute;
constexpr std::int64_t longestJitter = longestPause / 10;
constexpr std::int64_t shortestPause = 5;  ///< also where another program is delivering

// Both: a clock that jumps loses nothing.
constexpr std::int64_t longestWaiting = minute * 60 * 24 * 5;
constexpr int fewestTries = 24;

std::int64_t Now() { return platform::TheSeams().clock->Seconds(); }

/// So that many who were cut off together don't come back together.
std::int64_t WithJitter(std::int64_t pause) {
  std::random_device random;
  return pause + static_cast<std::int64_t>(random() % static_cast<unsigned>(pause / 10 + 1));
}

bool HasFailed(const QueuedMail& mail) {
  return mail.state == QueueState::Failed || mail.state == QueueState::FailedAndTold;
}

/// What a failed try means for the mail, and for the way that the others take, too.
struct Verdict {
  QueueState state;
  MailLink link;
};

Verdict VerdictOf(const std::exception& failure, QueueState before) {
  if (dynamic_cast<const MailRefused*>(&failure)) return {QueueState::Failed, MailLink::Connected};
  if (dynamic_cast<const AccountRefused*>(&failure)) return {before, MailLink::Refused};
  if (dynamic_cast<const PerhapsSent*>(&failure)) return {QueueState::Perhaps, MailLink::Waiting};
  if (dynamic_cast<const ConnectionLost*>(&failure)) return {before, MailLink::Waiting};
  return {before, MailLink::Connected};
}

bool IsBlocked(MailLink link) { return link == MailLink::Waiting || link == MailLink::Refused; }

MailStage StageOf(const QueuedMail& mail, bool isOnTheWay) {
  if (HasFailed(mail)) return MailStage::Failed;
  if (isOnTheWay) return MailStage::Sending;
  return mail.state == QueueState::Perhaps ? MailStage::Perhaps : MailStage::Waiting;
}

bool IsFar(std::int64_t time, std::int64_t now) {
  return time > now + longestPause + longestJitter;
}

bool IsSame(const QueuedMail& one, const QueuedMail& other) {
  return one.file == other.file && one.tries == other.tries && one.state == other.state;
}

/// 0 where nothing waits.
std::int64_t EarliestTry(const std::vector<QueuedMail>& mails) {
  std::int64_t earliest = 0;
  for (const QueuedMail& mail : mails) {
    const std::int64_t next = std::max(Now(), mail.nextTry);
    if (!HasFailed(mail)) earliest = earliest == 0 ? next : std::min(earliest, next);
  }
  return earliest;
}

QueuedMail PutOff(QueuedMail mail, QueueState state, const std::string& reason) {
  ++mail.tries;
  mail.nextTry = Now() + WithJitter(PauseAfter(mail.tries));
  mail.state = state;
  mail.reason = reason;
  if (state != QueueState::Failed && IsGivenUp(mail, Now())) {
    mail.state = QueueState::Failed;
    mail.reason = "It was tried for five days. " + reason;
  }
  return mail;
}

}  // namespace

std::int64_t PauseAfter(int tries) {
  const auto last = static_cast<int>(std::size(pauses)) - 1;
  return pauses[std::clamp(tries - 1, 0, last)];
}

bool IsDue(const QueuedMail& mail, std::int64_t now) {
  return !HasFailed(mail) && (mail.nextTry <= now || IsFar(mail.nextTry, now));
}

bool IsGivenUp(const QueuedMail& mail, std::int64_t now) {
  return mail.tries >= fewestTries && now - mail.queued >= longestWaiting;
}

/// The account's outbox, and the transport, which is made by the first mail and closed behind the
/// last one that is due.
struct Delivery::Session {
  Session(const AccountAnswer& account, MakeTransport makeTransport)
      : answer(account),
        make(std::move(makeTransport)),
        outbox(OutboxFolder(account.account.MyAddress)) {}

  MailTransport& Transport() {
    if (!transport) {
      std::shared_ptr<MailTransport> made =
          make(answer.account, answer.password.value_or(std::string{}));
      const bool isEnding = IsEnding();
      const std::lock_guard lock(mutex);
      transport = std::move(made);
      if (isEnding) transport->Hurry();
    }
    return *transport;
  }

  void CloseTransport() {
    if (!transport) return;
    try {
      transport->KeepCopies();
      transport->Close();
    } catch (const std::exception&) {
      // the mails are on their way
    }
    const std::lock_guard lock(mutex);
    transport.reset();
  }

  /// What goes out in no time still does.
  void End() {
    const std::lock_guard lock(mutex);
    end = std::min(end, MailThread::Clock::now() + std::chrono::milliseconds(500));
    if (transport) transport->Hurry();
  }

  bool IsOver() {
    const std::lock_guard lock(mutex);
    return MailThread::Clock::now() > end;
  }

  bool IsEnding() {
    const std::lock_guard lock(mutex);
    return end != MailThread::Clock::time_point::max();
  }

  const AccountAnswer answer;
  const MakeTransport make;
  Outbox outbox;
  std::int64_t pausedUntil = 0;                 // nobody answered
  std::set<std::string> sent;                   // files of mails that can't be removed
  std::map<std::string, QueuedMail> unwritten;  // what became of mails, by file

 private:
  std::mutex mutex;
  std::shared_ptr<MailTransport> transport;
  MailThread::Clock::time_point end = MailThread::Clock::time_point::max();
};

Delivery::Delivery(platform::Events& events, std::function<void()> changed)
    : events_(events),
      changed_(std::move(changed)),
      audience_(std::make_shared<bool>()),
      thread_(events) {}

Delivery::~Delivery() { End(); }

void Delivery::Begin(const AccountAnswer& answer, MakeTransport make) {
  End();
  const auto session = std::make_shared<Session>(answer, std::move(make));
  std::vector<QueuedMail> mails = session->outbox.Mails();
  session_ = session;
  const std::lock_guard lock(mutex_);
  looked_ = tryingAll_ = false;
  way_ = {};
  const std::int64_t next = EarliestTry(mails);
  nextTry_ = next == 0 ? 0 : std::max(next, Now());
  mails_ = std::move(mails);
}

void Delivery::End() {
  if (!session_) return;
  session_->End();
  session_.reset();
  const std::lock_guard lock(mutex_);
  tryingAll_ = false;
}

void Delivery::Stop() {
  End();
  thread_.Stop();
}

void Delivery::Hurry() {
  if (session_) session_->End();
}

void Delivery::Add(const letters::OutgoingMail& mail) {
  if (!session_) throw platform::MailError("not signed on");
  const QueuedMail queued = session_->outbox.Add(mail, Now());
  {
    const std::lock_guard lock(mutex_);
    std::erase_if(mails_, [&queued](const QueuedMail& older) {
      return !queued.mail.thread.empty() && older.mail.thread == queued.mail.thread;
    });
    mails_.push_back(queued);
  }
  Changed();
  Post(Which::New);
}

void Delivery::LookAround() { Post(looked_ ? Which::Due : Which::All); }

void Delivery::DeliverNow() { Post(Which::All); }

void Delivery::Post(Which which) {
  if (!session_) return;
  looked_ = true;
  {
    const std::lock_guard lock(mutex_);
    // What was refused is asked for anew.
    const bool isRefused = way_.link == MailLink::Refused;
    if (isRefused) way_ = {};
    tryingAll_ = tryingAll_ || isRefused || which == Which::All;
  }
  thread_.Post([this, session = session_, which] { Deliver(session, which); });
}

void Delivery::NoteTold(const std::string& thread) {
  const std::lock_guard lock(mutex_);
  for (QueuedMail& mail : mails_) {
    if (mail.mail.thread != thread || mail.state != QueueState::Failed) continue;
    mail.state = QueueState::FailedAndTold;
    try {
      if (session_) session_->outbox.Update(mail);
    } catch (const platform::FileError&) {
      // he hears of it once more after the next start
    }
  }
}

void Delivery::Deliver(const SessionPtr& session, Which which) {
  try {
    if (!session->IsOver()) DeliverWhat(session, which);
  } catch (const std::exception& error) {
    // The outbox can't be read just now.
    {
      const std::lock_guard lock(mutex_);
      Find({MailLink::Waiting, InPlainWords(error, session->answer.account)});
    }
    EndOfTryingAll();
    Changed();
    PlanAt(session, Now() + PauseAfter(1));
  }
}

void Delivery::DeliverWhat(const SessionPtr& session, Which which) {
  std::int64_t notBefore = session->pausedUntil;
  const std::vector<QueuedMail> mails = ToTry(*session, which);
  const auto lock = mails.empty() ? nullptr : session->outbox.TryToDeliver();
  if (lock) {
    TryAll(*session, mails);
    notBefore = session->pausedUntil;
  } else if (!mails.empty()) {
    notBefore = Now() + shortestPause;
  }
  PlanNext(session, notBefore);
  if (lock || mails.empty()) EndOfTryingAll();
}

/// Those that were tried less often come first, so that none holds up the others. A new mail is
/// tried whatever the others have met: the user has just sent it.
std::vector<QueuedMail> Delivery::ToTry(Session& session, Which which) {
  if (IsTryingAll()) which = Which::All;
  std::vector<QueuedMail> mails = LookInto(session);
  if (std::all_of(mails.begin(), mails.end(), HasFailed)) ForgetWay();
  const std::int64_t now = Now();
  const bool paused = now < session.pausedUntil && !IsFar(session.pausedUntil, now);
  if (which == Which::Due && paused) return {};
  std::erase_if(mails, [which, now](const QueuedMail& mail) {
    return which == Which::All ? HasFailed(mail) : !IsDue(mail, now);
  });
  std::stable_sort(mails.begin(), mails.end(), [](const QueuedMail& one, const QueuedMail& other) {
    return one.tries < other.tries;
  });
  return mails;
}

/// Until one finds that the others would fare no better just now.
void Delivery::TryAll(Session& session, const std::vector<QueuedMail>& mails) {
  session.pausedUntil = 0;
  for (const QueuedMail& mail : mails) {
    if (session.IsOver()) break;
    if (session.outbox.IsThere(mail) && !Try(session, mail)) break;
  }
  session.CloseTransport();
}

/// False where the others would fare no better just now.
bool Delivery::Try(Session& session, QueuedMail queued) {
  BeginToTry(queued.file);
  queued.mail.from = {session.answer.account.MyName, session.answer.account.MyAddress};
  Way found;
  found.link = MailLink::Connected;
  bool isSent = false;
  try {
    session.Transport().Send(queued.mail);
    isSent = session.sent.insert(queued.file).second;
  } catch (const std::exception& error) {
    const MailAccount& account = session.answer.account;
    const Verdict verdict = VerdictOf(error, queued.state);
    found = {verdict.link, InPlainWords(error, account), WantsSignIn(error, account)};
    const bool isBroughtToEnd = verdict.state == queued.state && session.IsEnding();
    if (!isBroughtToEnd) queued = PutOff(queued, verdict.state, found.reason);
    if (found.link == MailLink::Waiting) session.pausedUntil = queued.nextTry;
  }
  Settle(session, queued);
  EndTry(queued, isSent, found);
  return !IsBlocked(found.link);
}

void Delivery::BeginToTry(const std::string& file) {
  {
    const std::lock_guard lock(mutex_);
    trying_ = file;
  }
  Changed();
}

/// In one step: nobody who looks meanwhile takes a mail that was tried for one that waits.
void Delivery::EndTry(const QueuedMail& mail, bool isSent, const Way& found) {
  {
    const std::lock_guard lock(mutex_);
    trying_.clear();
    const auto known = std::ranges::find(mails_, mail.file, &QueuedMail::file);
    if (known != mails_.end()) *known = mail;
    if (known != mails_.end() && isSent) mails_.erase(known);
    Find(found);
  }
  Changed();
}

/// Writes down what became of the mail. What can't be written this session still knows: the mail
/// waits for its turn, and what was sent isn't sent again.
void Delivery::Settle(Session& session, const QueuedMail& mail) {
  try {
    if (session.sent.contains(mail.file)) {
      session.outbox.Remove(mail);
      session.sent.erase(mail.file);
      return;
    }
    session.unwritten[mail.file] = mail;
    session.outbox.Update(mail);
    session.unwritten.erase(mail.file);
  } catch (const platform::FileError&) {
    // a full disk, or one that is gone
  }
}

/// What fails for want of a disk is tried again, but not all the time.
void Delivery::PlanNext(const SessionPtr& session, std::int64_t notBefore) {
  if (session->IsOver()) return;
  std::int64_t next = EarliestTry(LookInto(*session));
  if (next != 0) next = std::max({next, notBefore, Now() + shortestPause});
  PlanAt(session, TheWay().link == MailLink::Refused ? 0 : next);
}

/// 0: only when somebody asks.
void Delivery::PlanAt(const SessionPtr& session, std::int64_t next) {
  {
    const std::lock_guard lock(mutex_);
    nextTry_ = next;
  }
  const auto wait = std::chrono::seconds(std::min(next - Now(), longestPause + longestJitter));
  thread_.PostAt(next == 0 ? MailThread::Clock::time_point::max() : MailThread::Clock::now() + wait,
                 [this, session] { Deliver(session, Which::Due); });
}

/// As they are known here. Without those that were sent and couldn't be removed, which is tried
/// again.
std::vector<QueuedMail> Delivery::LookInto(Session& session) {
  std::vector<QueuedMail> mails = session.outbox.Mails();
  for (QueuedMail& mail : mails) {
    const auto known = session.unwritten.find(mail.file);
    if (known != session.unwritten.end()) mail = known->second;
  }
  std::erase_if(mails, [this, &session](const QueuedMail& mail) {
    const bool isSent = session.sent.contains(mail.file);
    if (isSent) Settle(session, mail);
    return isSent;
  });
  {
    const std::lock_guard lock(mutex_);
    const bool isSame =
        std::equal(mails.begin(), mails.end(), mails_.begin(), mails_.end(), IsSame);
    if (session.IsOver() || isSame) return mails;
    mails_ = mails;
  }
  Changed();
  return mails;
}

void Delivery::Find(Way way) {
  way.since = way.link == way_.link ? way_.since : Now();
  way_ = std::move(way);
}

/// Nothing waits: how the last mail fared tells nothing of the next one.
void Delivery::ForgetWay() {
  {
    const std::lock_guard lock(mutex_);
    if (!IsBlocked(way_.link)) return;
    way_ = {};
  }
  Changed();
}

bool Delivery::IsTryingAll() const {
  const std::lock_guard lock(mutex_);
  return tryingAll_;
}

void Delivery::EndOfTryingAll() {
  {
    const std::lock_guard lock(mutex_);
    if (!std::exchange(tryingAll_, false)) return;
  }
  Changed();
}

Delivery::Way Delivery::TheWay() const {
  const std::lock_guard lock(mutex_);
  return way_;
}

std::int64_t Delivery::NextTry() const {
  const std::lock_guard lock(mutex_);
  return nextTry_;
}

std::vector<platform::MailOnItsWay> Delivery::OnItsWay() const {
  const std::lock_guard lock(mutex_);
  std::vector<platform::MailOnItsWay> list;
  for (const QueuedMail& mail : mails_) {
    const bool isOnTheWay =
        tryingAll_ || mail.file == trying_ || (looked_ && mail.tries == 0 && !IsBlocked(way_.link));
    const MailStage stage = StageOf(mail, isOnTheWay);
    const bool waits = stage == MailStage::Waiting || stage == MailStage::Perhaps;
    list.push_back({mail.mail.thread, mail.mail.to.front().address, stage, mail.tries,
                    waits && nextTry_ != 0 ? std::max(nextTry_, mail.nextTry) : 0,
                    mail.reason.empty() && waits ? way_.reason : mail.reason,
                    mail.state == QueueState::FailedAndTold});
  }
  return list;
}

/// The window's thread hears once of changes that come fast.
void Delivery::Changed() {
  {
    const std::lock_guard lock(mutex_);
    if (std::exchange(isTold_, true)) return events_.Wake();
  }
  events_.Post([this, audience = std::weak_ptr(audience_)] {
    if (audience.expired()) return;
    {
      const std::lock_guard lock(mutex_);
      isTold_ = false;
    }
    changed_();
  });
  events_.Wake();
}

}  // namespace post
