// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/retrieval.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <string>
#include <utility>

#include "mail/bad_mails.h"
#include "mail/inbox_walk.h"
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
