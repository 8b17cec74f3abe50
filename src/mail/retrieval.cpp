// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/retrieval.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <string>
#include <utility>

#include "mail/bad_mails.h"
#include "mail/claim.h"
#include "mail/judgement.h"
#include "mail/move_mail.h"
#include "mail/move_text_check.h"
#include "mail/spam.h"
#include "mail/status_popup.h"
#include "mail/undelivered.h"
#include "platform/messages.h"
#include "platform/move_subject.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "store/repair.h"
#include "store/saving.h"

namespace mail {
namespace {

using platform::MAPIMessages;

MAPIMessages& Messages() { return *platform::TheSeams().MMess; }

/// What a retrieval has met so far.
struct Findings {
  std::vector<MoveArrival> arrivals;
  std::vector<BadMail> badMails;
  std::vector<platform::Undelivered> reports;
  std::vector<std::string> spamSenders;
  std::string leftOut;  ///< what the mail service says of a mail that it couldn't read
};

bool FetchInbox(bool fetchAll, Findings& findings) {
  try {
    Messages().FetchUnreadOnly(!fetchAll);
    Messages().Fetch();
    const std::string problem = platform::TheSeams().MSess->LastProblem();
    if (!problem.empty()) findings.leftOut = problem;
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

/// For telling about a refused mail only, so a service that can't say is no failure.
std::string AddressIfKnown() {
  try {
    return Messages().MsgOrigAddress();
  } catch (const std::exception&) {
    return {};
  }
}

/// A mail whose form is bad. The service may not be able to say who sent it.
void NoteBadMail(const std::string& text, int stage, Findings& findings) {
  ReceivedMail mail{{}, AddressIfKnown(), {}, text};
  findings.arrivals.back().from = mail.address;
  findings.arrivals.back().stage = stage;
  findings.badMails.push_back({IdentifierOf(mail), mail.address, stage});
}

/// Nothing where the form of the current message is bad, which is noted then.
std::optional<Claim> ClaimOf(const std::string& text, Findings& findings) {
  int stage = 0;
  try {
    const std::string moveText = ExtractMoveText(text);
    stage = StageOfForm(moveText);
    if (stage == 0) return ReadClaim(moveText);
  } catch (const std::exception&) {
    // of good form, but with a number that no game can hold
  }
  NoteBadMail(text, stage, findings);
  return std::nullopt;
}

/// Whether a mail with tags in front of its subject is only talk about a move: a person's answer,
/// in which no move stands, or the one that it answers.
bool IsTalk(const std::string& text) {
  if (Messages().MsgSubject().starts_with(platform::subjectPrefix)) return false;
  const std::string moveText = ExtractMoveText(text);
  try {
    return moveText.empty() || (StageOfForm(moveText) == 0 &&
                                IsOwnClaim(ReadClaim(moveText), {{}, AddressIfKnown(), {}, text}));
  } catch (const StoreFailure&) {
    throw;
  } catch (const std::exception&) {
    return false;
  }
}

/// Takes the current message; a game's own mail is deleted once the game is safe. False where the
/// message stays: bad ones, and those set aside.
bool TakeCurrentMail(Findings& findings) {
  const std::string text = Messages().MsgNoteText();
  if (IsTalk(text)) {
    Messages().LeaveUnread();
    return false;
  }
  MoveArrival& arrival = findings.arrivals.emplace_back();
  const auto claim = ClaimOf(text, findings);
  if (!claim) return false;
  const ReceivedMail mail{Messages().MsgOrigDisplayName(), Messages().MsgOrigAddress(),
                          Messages().MsgSubject(), text};
  arrival.from = mail.address;
  try {
    TakeClaim(*claim, mail, arrival);
  } catch (const StoreFailure&) {
    Messages().LeaveUnread();
    throw;
  }
  if (arrival.ok) Messages().Delete();
  return arrival.ok;
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

void WalkInbox(Findings& findings) {
  int index = 1;
  // The user may have ended the program over the report of a mail.
  while (!platform::Process().Stopping && index <= Messages().MsgCount()) {
    Messages().MsgIndex(index - 1);
    // A deleted message leaves its index to the next one.
    if (IsNotice(findings) || !IsMoveMail() || !TakeCurrentMail(findings)) ++index;
  }
}

/// Carries the marks and deletions out. Of a tick, which nobody waits for, they are left to the
/// mail service: a mail that stays for a failure is only taken again.
void Flush(bool isTick) {
  if (isTick) {
    Messages().FlushLater();
  } else {
    Messages().Flush();
  }
}

/// Lets the mails saved before a failure go; the failure itself is what the user hears of.
void FlushQuietly(bool isTick) {
  try {
    Flush(isTick);
  } catch (const std::exception&) {
  }
}

std::string TryAgain(const std::string& what) {
  return what + "||Please select Retrieve games... from the File menu and try again.";
}

void ReportNetworkError(const std::string& text) {
  if (platform::Process().Stopping) return;
  platform::ShowMessage(platform::MailIcon, "Network error", text, "OK", {}, false,
                        platform::FailureSound);
}

/// The mail that couldn't be saved is met again by each tick, which tries it anew and says so once.
void ReportSaveFailure(const StoreFailure& failure, bool isTick) {
  if (isTick && std::exchange(platform::Process().SaveFailureTold, true)) return;
  std::string text = store::WithDamage(
      TryAgain("An error occured trying to save the game information to the database."));
  // It needn't be the game file, and another one may be mended at once.
  if (dynamic_cast<const FileFailure*>(&failure)) {
    text.append("||The cause: ").append(failure.what()).append(".");
  }
  ReportNetworkError(text);
}

/// False where a failure was reported.
bool TakeMoveMails(Findings& findings, bool isTick) {
  try {
    WalkInbox(findings);
    Flush(isTick);
    platform::Process().SaveFailureTold = false;
    return true;
  } catch (const StoreFailure& failure) {
    FlushQuietly(isTick);
    ReportSaveFailure(failure, isTick);
  } catch (const std::exception&) {
    FlushQuietly(isTick);
    ReportNetworkError(TryAgain(
        "An error occured trying to retrieve some or all of the game information from your "
        "Inbox."));
  }
  return false;
}

/// They are in the Inbox still, and in no list.
void TellOfDropped(const std::vector<MoveArrival>& arrivals) {
  const auto count = std::count_if(arrivals.begin(), arrivals.end(),
                                   [](const auto& arrival) { return arrival.isDropped; });
  if (count == 0 || platform::Process().Stopping) return;
  platform::ShowMessage(
      platform::MailIcon, "Mails set aside",
      "Very many mails wait for your answer, so " + std::to_string(count) +
          " more were left in your Inbox.||Answer those under \"Mails set aside...\" in the File "
          "menu, then select Retrieve games... from the File menu.",
      "OK", {}, false, platform::AttentionSound);
}

/// A mail that the service couldn't read just now. Ticks meet it again by themselves.
void TellOfMailLeftOut(const std::string& problem) {
  if (problem.empty() || platform::Process().Stopping) return;
  platform::ShowMessage(platform::MailIcon, "Network error", problem, "OK", {}, false,
                        platform::FailureSound);
}

/// The mails of the look that was taken, and those of further ones until all have been seen; a tick
/// leaves these to the next one. False where a failure ended it.
bool TakeAll(bool fetchAll, bool isTick, const StatusPopup& popup, Findings& findings) {
  while (TakeMoveMails(findings, isTick)) {
    if (isTick || platform::Process().Stopping || !Messages().MoreToCome()) return true;
    popup.Show("Retrieving games... There are more mails.");
    if (!FetchInbox(fetchAll, findings)) {
      platform::Process().Offline = true;
      return false;
    }
  }
  return false;
}

}  // namespace

std::vector<MoveArrival> RetrieveMoveMails(bool showStatus, bool fetchAll) {
  const platform::PollingHold hold;
  const StatusPopup popup(showStatus);
  popup.Show("Retrieving games...");
  platform::ProcessState& process = platform::Process();
  Findings findings;
  if (!FetchInbox(fetchAll, findings)) {
    process.Offline = true;
    return {};
  }
  process.PendingGames.clear();
  process.NewMoveArrived = false;
  const bool ranThrough = TakeAll(fetchAll, !showStatus && !fetchAll, popup, findings);
  TellOfBadMails(findings.badMails, showStatus);
  TellOfDropped(findings.arrivals);
  TellOfUndelivered(findings.reports);
  TellOfSpam(findings.spamSenders);
  if (ranThrough && showStatus) TellOfMailLeftOut(findings.leftOut);
  if (ranThrough) {
    store::BackupDatabase();
    platform::TheSeams().tray->BuildGameMenu();
  }
  return std::move(findings.arrivals);
}

}  // namespace mail
