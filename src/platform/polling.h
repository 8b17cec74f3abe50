// SPDX-License-Identifier: GPL-3.0-or-later
// Holding the polling loop off while something modal or long runs.
#pragma once

#include "platform/process_state.h"

namespace platform {

void SetCheckTimer(bool enabled);

/// Ends a hold that was handed over: polling begins anew.
void ReleasePolling();

/// Holds polling for its lifetime and puts back the state that it found, so holds nest.
class PollingHold {
 public:
  PollingHold() : enabled_(Process().CheckTimer.Enabled), held_(Process().CheckTimerHeld) {
    SetCheckTimer(false);
    Process().CheckTimerHeld = true;
  }
  ~PollingHold() {
    if (isHandedOver_) return;
    SetCheckTimer(enabled_);
    Process().CheckTimerHeld = held_;
  }
  PollingHold(const PollingHold&) = delete;
  PollingHold& operator=(const PollingHold&) = delete;

  /// What follows, such as a board that has come, goes on holding until ReleasePolling.
  void HandOver() { isHandedOver_ = true; }

 private:
  bool enabled_;
  bool held_;
  bool isHandedOver_ = false;
};

}  // namespace platform
