// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/polling.h"

namespace platform {

void SetCheckTimer(bool enabled) { Process().CheckTimer.Enabled = enabled; }

}  // namespace platform
