// SPDX-License-Identifier: GPL-3.0-or-later
// Holding the polling loop off while something modal or long runs.
#pragma once

#include "platform/process_state.h"

namespace platform {

void SetCheckTimer(bool enabled);

/// Holds polling for its lifetime and puts back the state that it found, so holds nest.
class PollingHold {
 public:
  PollingHold() : enabled_(Process().CheckTimer.Enabled), held_(Process().CheckTimerHeld) {
    SetCheckTimer(false);
    Process().CheckTimerHeld = true;
  }
  ~PollingHold() {
    SetCheckTimer(enabled_);
    Process().CheckTimerHeld = held_;
  }
  PollingHold(const PollingHold&) = delete;
  PollingHold& operator=(const PollingHold&) = delete;

 private:
  bool enabled_;
  bool held_;
};

}  // namespace platform
