// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/retrieval.h"

#include <exception>
#include <string>

#include "mail/move_mail.h"
#include "mail/move_text_check.h"
#include "mail/status_popup.h"
#include "platform/desktop.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "store/saving.h"

namespace mail {
namespace {

using platform::MAPIMessages;

MAPIMessages& Messages() { return *platform::TheDesktop().MMess; }

bool FetchInbox(bool fetchAll) {
  try {
    Messages().FetchUnreadOnly(!fetchAll);
    Messages().Fetch();
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

/// Saves and deletes the current message. False where its form is bad: it then stays.
bool TakeCurrentMail(MoveArrival& arrival) {
  const std::string text = ExtractMoveText(Messages().MsgNoteText());
  if (!PassesFormCheck(text, false, arrival)) {
    arrival.from = AddressIfKnown();
    return false;
  }
  const std::string name = Messages().MsgOrigDisplayName();
  arrival.from = Messages().MsgOrigAddress();
  SaveReceivedGame(text, {name, arrival.from, name}, arrival);
  Messages().Delete();
  return true;
}

void WalkInbox(std::vector<MoveArrival>& arrivals) {
  int index = 1;
  // The user may have ended the program over the report of a mail.
  while (!platform::Process().Stopping && index <= Messages().MsgCount()) {
    Messages().MsgIndex(index - 1);
    const bool isMoveMail = Messages().MsgSubject().starts_with(subjectPrefix);
    // A deleted message leaves its index to the next one.
    if (!isMoveMail || !TakeCurrentMail(arrivals.emplace_back())) ++index;
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

void ReportNetworkError(const std::string& what) {
  if (platform::Process().Stopping) return;
  platform::ShowMessage(
      platform::MailIcon, "Network error",
      what + "||Please select Retrieve games... from the File menu and try again.", "OK", {}, false,
      platform::FailureSound);
}

/// False where a failure was reported.
bool TakeMoveMails(std::vector<MoveArrival>& arrivals, bool isTick) {
  try {
    WalkInbox(arrivals);
    Flush(isTick);
    return true;
  } catch (const StoreFailure&) {
    FlushQuietly(isTick);
    ReportNetworkError("An error occured trying to save the game information to the database.");
  } catch (const std::exception&) {
    FlushQuietly(isTick);
    ReportNetworkError(
        "An error occured trying to retrieve some or all of the game information from your Inbox.");
  }
  return false;
}

}  // namespace

std::vector<MoveArrival> RetrieveMoveMails(bool showStatus, bool fetchAll) {
  const platform::PollingHold hold;
  const StatusPopup popup(showStatus);
  popup.Show("Retrieving games...");
  platform::ProcessState& process = platform::Process();
  std::vector<MoveArrival> arrivals;
  if (!FetchInbox(fetchAll)) {
    process.Offline = true;
    return arrivals;
  }
  process.PendingGames.clear();
  process.NewMoveArrived = false;
  const bool isTick = !showStatus && !fetchAll;
  if (!TakeMoveMails(arrivals, isTick)) return arrivals;
  store::BackupDatabase();
  platform::CallHook(platform::TheDesktop().hooks.buildTrayGameMenu);
  return arrivals;
}

}  // namespace mail
