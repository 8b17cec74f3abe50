// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/shell_hooks.h"

#include "platform/seams.h"
#include "shell/notification.h"
#include "shell/shut_down.h"
#include "shell/tray_status.h"

namespace shell {

void FillHooks() {
  platform::ShellHooks& hooks = platform::TheSeams().hooks;
  hooks.updateTrayStatus = [] { UpdateTrayStatus(platform::TrayOperation::Modify); };
  hooks.notifyNewMoves = NotifyNewMoves;
  hooks.skinMissing = QuitForLackOf;
  hooks.removeTrayIcon = RemoveTrayIcon;
}

}  // namespace shell
