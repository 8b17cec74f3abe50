// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/polling_loop.h"

#include <exception>
#include <string>
#include <utility>

#include "mail/mail_session.h"
#include "mail/move_files.h"
#include "mail/retrieval.h"
#include "platform/busy_pointer.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/seams.h"
#include "shell/held_mail_questions.h"
#include "shell/notification.h"
#include "shell/tray_status.h"
#include "store/queries.h"

namespace shell {

using platform::Process;
using platform::TrayOperation;

namespace {

platform::MAPIMessages& Messages() { return *platform::TheSeams().MMess; }
bool MayCollect() {
  const platform::ProcessState& process = Process();
  return process.CheckTimer.Enabled && !process.CheckTimerHeld && !process.TrayMenuOpen &&
         !process.Stopping && (process.StandAlone || !process.Offline);
}

/// Most ticks find the games as they were. Whoever else fills the list reads the file afresh too,
/// so it is never older than what was noted here.
void RefillGameList() {
  if (!Process().GameListOpen) return;
  if (store::IsGameFileUnchanged(Process().ListedGameFileStamp)) return;
  platform::TheWindows().FillGameList(platform::TheWindows().SelectedGame());
}

void FinishTick() {
  if (Process().Offline && !Process().StandAlone) {
    SetTrayIcon(TrayOperation::Modify, NotConnected, "Tarvolenix v1 - Not connected");
    return;
  }
  RefillGameList();
  UpdateTrayStatus(TrayOperation::Modify);
  NotifyNewMoves();
  if (!Process().BoardOpen) AskAboutHeldMails(HeldMails::New);
}

/// 0 where there is no session.
long CurrentSession() {
  try {
    return Messages().SessionID();
  } catch (const std::exception&) {
    return 0;
  }
}

/// What the user did meanwhile may have used the set up or made it stale, and a look of one's own
/// would wait.
void TakeWhatWasSeen() {
  Process().SessionLookedAt = 0;
  if (!MayCollect() || !Messages().Prefetched()) return;
  mail::RetrieveMoveMails(false, false);
  FinishTick();
}

void GoOffline() {
  Process().Offline = true;
  FinishTick();
}

/// A session that ended took its look with it: the next one has another number.
void LookAtInbox() {
  const long session = CurrentSession();
  if (session != 0 && session == Process().SessionLookedAt) return;
  Process().SessionLookedAt = session;
  try {
    Messages().FetchUnreadOnly(true);
    Messages().Prefetch(TakeWhatWasSeen);
  } catch (const std::exception&) {
    Process().SessionLookedAt = 0;
    GoOffline();
  }
}

void LogonAndRetrieve() {
  const platform::BusyPointer busy;
  mail::ForgetEarlierCrash();
  mail::LogonAndCollect(false, true, true);
  if (Process().GameListOpen) platform::TheWindows().FillGameList({});
  UpdateTrayStatus(TrayOperation::Modify);
}

}  // namespace

void CheckTimerTick() {
  if (!MayCollect()) return;
  if (Process().StandAlone) {
    mail::ImportMoveFiles(false, false);
    FinishTick();
  } else {
    LookAtInbox();
  }
}

void RetrieveByHand() {
  platform::PollingHold hold;
  LogonAndRetrieve();
  NotifyNewMoves();
  if (!Process().BoardOpen) AskAboutHeldMails(HeldMails::New);
  if (Process().BoardOpen) hold.HandOver();  // the user plays the new move: polling is the board's
}

}  // namespace shell
