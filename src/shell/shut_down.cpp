// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/shut_down.h"

#include <utility>

#include "mail/mail_session.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "shell/settings.h"
#include "shell/tray_status.h"
#include "store/saving.h"
#include "study/study_file.h"

namespace shell {

using platform::Process;

namespace {

void Stop() {
  platform::TheSeams().help->CloseHelp();
  if (Process().ShuttingDown) return;
  platform::SetCheckTimer(false);
  RemoveTrayIcon();
  mail::MailLogoff(true);
  ShutdownProgram(Process().StartupComplete);
}

}  // namespace

void ExitProgram() {
  store::BackupDatabase();
  CloseSystemTray();
}

void ExitFromGameList() {
  store::BackupDatabase();
  platform::TheWindows().CloseGameList();
  CloseSystemTray();
}

void CloseSystemTray() {
  // A game list that the program lives in closes the hidden window when it is closed itself.
  if (std::exchange(Process().Stopping, true)) return;
  Stop();
  platform::CallHook(platform::TheSeams().hooks.stopped);
}

void ShutdownProgram(bool save) {
  if (save) SaveSettings();
  platform::TheWindows().CloseAll();
  study::ForgetGames(Process().DeletedGames);  // from now on nothing brings them back
}

void QuitForLackOf(const std::string& skinFile) {
  {
    const platform::PollingHold hold;
    platform::TheSeams().messageBoxes->PlainBox(
        platform::PlainIcon::Stop, "Invalid skin file",
        "Tarvolenix could not locate the following skin file and will now quit;\n\n" + skinFile);
  }
  Process().ShuttingDown = true;
  const platform::ShellHooks& hooks = platform::TheSeams().hooks;
  platform::CallHook(hooks.removeTrayIcon);
  mail::MailLogoff(false);
  // They leave their usual closing work out now.
  ShutdownProgram(false);
  platform::CallHook(hooks.endProcess);
}

void AbortStart() {
  if (Process().Stopping) return;  // it was stopped in order meanwhile
  Process().ShuttingDown = true;
  platform::TheWindows().CloseSplash();
  CloseSystemTray();
}

}  // namespace shell
