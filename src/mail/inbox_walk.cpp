// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/inbox_walk.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "mail/claim.h"
#include "mail/judgement.h"
#include "mail/move_mail.h"
#include "mail/move_text_check.h"
#include "mail/undelivered.h"
#include "platform/move_subject.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "store/batch.h"

namespace mail {
namespace {

/// Read at once; other programs wait for the game file until they are judged, or the turn is over.
constexpr std::size_t mostTogether = 100;
constexpr std::chrono::milliseconds longestTurn(700);

platform::MAPIMessages& Messages() { return *platform::TheSeams().MMess; }

/// A move mail of the set, which was read.
struct WaitingMail {
  int index = 0;
  ReceivedMail mail;
};

enum class Fate { Stays, StaysUnread, Goes };

/// The service may not be able to say who sent it.
std::string AddressIfKnown() {
  try {
    return Messages().MsgOrigAddress();
  } catch (const std::exception&) {
    return {};
  }
}

void NoteBadMail(const ReceivedMail& mail, int stage, Findings& findings) {
  findings.arrivals.back().from = mail.address;
  findings.arrivals.back().stage = stage;
  findings.badMails.push_back(
      {IdentifierOf({{}, mail.address, {}, mail.text}), mail.address, stage});
}

/// Nothing where the form of the mail is bad, which is noted then.
std::optional<Claim> ClaimOf(const ReceivedMail& mail, Findings& findings) {
  int stage = 0;
  try {
    const std::string moveText = ExtractMoveText(mail.text);
    stage = StageOfForm(moveText);
    if (stage == 0) return ReadClaim(moveText);
  } catch (const std::exception&) {
    // of good form, but with a number that no game can hold
  }
  NoteBadMail(mail, stage, findings);
  return std::nullopt;
}

/// Whether a mail with tags in front of its subject is only talk about a move: a person's answer,
/// in which no move stands, or the one that it answers.
bool IsTalk(const ReceivedMail& mail) {
  if (mail.subject.starts_with(platform::subjectPrefix)) return false;
  const std::string moveText = ExtractMoveText(mail.text);
  try {
    return moveText.empty() ||
           (StageOfForm(moveText) == 0 && IsOwnClaim(ReadClaim(moveText), mail));
  } catch (const StoreFailure&) {
    throw;
  } catch (const std::exception&) {
    return false;
  }
}

Fate Take(const ReceivedMail& mail, Findings& findings, Books& books) {
  if (IsTalk(mail)) return Fate::StaysUnread;
  MoveArrival& arrival = findings.arrivals.emplace_back();
  const auto claim = ClaimOf(mail, findings);
  if (!claim) return Fate::Stays;
  arrival.from = mail.address;
  TakeClaim(*claim, mail, arrival, books);
  return arrival.ok ? Fate::Goes : Fate::Stays;
}

/// What a saving that failed takes back.
class Reversion {
 public:
  explicit Reversion(Findings& findings)
      : findings_(findings),
        first_(findings.arrivals.size()),
        pending_(platform::Process().PendingGames),
        newMoveArrived_(platform::Process().NewMoveArrived) {}

  void Do() {
    platform::Process().PendingGames = pending_;
    platform::Process().NewMoveArrived = newMoveArrived_;
    for (MoveArrival& arrival : std::span(findings_.arrivals).subspan(first_)) {
      if (!arrival.ok) continue;
      MoveArrival unsaved;
      unsaved.from = std::move(arrival.from);
      arrival = std::move(unsaved);
    }
  }

 private:
  Findings& findings_;
  std::size_t first_;
  std::vector<std::int32_t> pending_;
  bool newMoveArrived_;
};

/// How long other programs may have to wait for the game file.
class Turn {
 public:
  bool IsOver() const { return Clock::now() >= end_; }

 private:
  using Clock = std::chrono::steady_clock;
  Clock::time_point end_ = Clock::now() + longestTurn;
};

/// Takes mails as long as the turn is, at least one. Where taking one fails, those before it are
/// kept and the failure is handed out.
std::exception_ptr TakeAndKeep(std::span<const WaitingMail> mails, std::vector<Fate>& fates,
                               Findings& findings) {
  std::exception_ptr failure;
  Books books;
  WithGamesLocked([&] {
    store::Batch batch;
    const Turn turn;
    try {
      for (const WaitingMail& waiting : mails) {
        fates.push_back(Take(waiting.mail, findings, books));
        if (turn.IsOver()) break;
      }
    } catch (const std::exception&) {
      failure = std::current_exception();
    }
    if (!batch.Keep()) throw StoreFailure("the games can't be saved");
  });
  Keep(books);
  return failure;
}

/// From the last one on, as those behind a deleted one get other numbers. `gone` of the set are
/// deleted by now.
void CarryOut(std::span<const WaitingMail> mails, const std::vector<Fate>& fates, int gone) {
  for (std::size_t i = fates.size(); i-- > 0;) {
    Messages().MsgIndex(mails[i].index - gone);
    if (fates[i] == Fate::StaysUnread) Messages().LeaveUnread();
    if (fates[i] == Fate::Goes) Messages().Delete();
  }
}

/// The fates of the first ones; there may be more to take. Mails that a failure left without a fate
/// were read for nothing.
std::vector<Fate> TakeTogether(std::span<const WaitingMail> mails, int gone, Findings& findings) {
  std::vector<Fate> fates;
  std::exception_ptr failure;
  Reversion reversion(findings);
  try {
    failure = TakeAndKeep(mails, fates, findings);
  } catch (const std::exception&) {
    failure = std::current_exception();
    fates.clear();
    reversion.Do();
  }
  if (failure) fates.resize(mails.size(), Fate::StaysUnread);
  CarryOut(mails, fates, gone);
  if (failure) std::rethrow_exception(failure);
  return fates;
}

/// Answers how many mails have left the set.
int TakeInTurns(const std::vector<WaitingMail>& mails, Findings& findings) {
  int gone = 0;
  for (std::span<const WaitingMail> rest(mails); !rest.empty();) {
    const auto fates = TakeTogether(rest, gone, findings);
    gone += static_cast<int>(std::ranges::count(fates, Fate::Goes));
    rest = rest.subspan(fates.size());
  }
  return gone;
}

/// A mail that the user sent himself and that came back to him is no move for him.
bool IsMoveMail() {
  return platform::IsMoveSubject(Messages().MsgSubject()) &&
         !Messages().IsOwnAddress(AddressIfKnown());
}

/// What the service tells by a message that nobody wrote to the user as a move. A report on a game
/// stays in the Inbox, marked as read.
bool IsNotice(Findings& findings) {
  if (Messages().MsgIsSpam()) {
    findings.spamSenders.push_back(AddressIfKnown());
    return true;
  }
  const auto report = Messages().MsgUndelivered();
  if (report && NoteUndelivered(*report)) {
    Messages().MsgNoteText();
    findings.reports.push_back(*report);
  }
  return report.has_value();
}

/// Reads move mails from `index` on, which then stands behind the last one seen.
std::vector<WaitingMail> ReadSome(int& index, Findings& findings, std::exception_ptr& failure) {
  std::vector<WaitingMail> mails;
  try {
    for (; index < Messages().MsgCount() && mails.size() < mostTogether; ++index) {
      Messages().MsgIndex(index);
      if (IsNotice(findings) || !IsMoveMail()) continue;
      mails.push_back({index,
                       {Messages().MsgOrigDisplayName(), AddressIfKnown(), Messages().MsgSubject(),
                        Messages().MsgNoteText()}});
    }
  } catch (const std::exception&) {
    failure = std::current_exception();
  }
  return mails;
}

}  // namespace

void WalkInbox(Findings& findings) {
  std::exception_ptr failure;
  // The user may have ended the program over the report of a mail.
  for (int index = 0; !failure && !platform::Process().Stopping && index < Messages().MsgCount();) {
    const auto mails = ReadSome(index, findings, failure);
    index -= TakeInTurns(mails, findings);
  }
  if (failure) std::rethrow_exception(failure);
}

}  // namespace mail
