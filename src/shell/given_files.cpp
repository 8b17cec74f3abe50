// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/given_files.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "mail/move_files.h"
#include "platform/ascii.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "shell/held_mail_questions.h"
#include "shell/notification.h"
#include "shell/tray_status.h"

namespace shell {

using platform::Process;

namespace {

struct FileKind {
  std::string_view ending;  ///< of the name, in small letters
  void (*take)(const std::string& path);
};

void ImportMoveFile(const std::string& path) { mail::ImportPickedFile(path, true); }

/// The first row that fits. A move may stand in any text, such as a saved mail.
constexpr FileKind kinds[] = {
    {"", ImportMoveFile},
};

void TakeFile(const std::string& path) {
  const std::string name = platform::Lowered(path);
  std::find_if(std::begin(kinds), std::end(kinds), [&name](const FileKind& kind) {
    return name.ends_with(kind.ending);
  })->take(path);
}

/// Each file begins the list of new moves anew.
void TakeAll(const std::vector<std::string>& paths) {
  std::vector<std::int32_t> pending;
  bool arrived = false;
  for (const std::string& path : paths) {
    TakeFile(path);
    if (Process().Stopping) return;
    pending.insert(pending.end(), Process().PendingGames.begin(), Process().PendingGames.end());
    arrived |= Process().NewMoveArrived;
  }
  Process().PendingGames = pending;
  Process().NewMoveArrived = arrived;
}

}  // namespace

bool MayTakeGivenFiles() {
  const platform::ProcessState& process = Process();
  return process.StartupComplete && !process.CheckTimerHeld && !process.TrayMenuOpen &&
         !process.Stopping;
}

void TakeGivenFiles(const std::vector<std::string>& paths) {
  platform::PollingHold hold;
  TakeAll(paths);
  if (Process().Stopping) return;
  platform::Windows& windows = *platform::TheSeams().windows;
  if (Process().GameListOpen) windows.FillGameList(windows.SelectedGame());
  UpdateTrayStatus(platform::TrayOperation::Modify);
  NotifyNewMoves();
  if (!Process().BoardOpen) AskAboutHeldMails(HeldMails::New);
  if (Process().BoardOpen) hold.HandOver();  // the user plays the new move: polling is the board's
}

}  // namespace shell
