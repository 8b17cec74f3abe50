// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/polling.h"

#include "platform/seams.h"

namespace platform {

void SetCheckTimer(bool enabled) {
  if (enabled == Process().CheckTimer.Enabled) return;
  Process().CheckTimer.Enabled = enabled;
  CallHook(TheSeams().hooks.checkTimerChanged);
}

void ReleasePolling() {
  SetCheckTimer(true);
  Process().CheckTimerHeld = false;
}

}  // namespace platform
