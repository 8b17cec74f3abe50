// SPDX-License-Identifier: GPL-3.0-or-later
// The program's windows while it waits for the mail service: they repaint and can be moved, but
// nothing in them can be begun.
#pragma once

#include <memory>
#include <vector>

#include "ui/disabled_window.h"

namespace ui {

class WaitingWindows {
 public:
  /// True when a wait begins, false behind it.
  void Wait(bool waiting);

 private:
  std::vector<std::unique_ptr<DisabledWindow>> disabled_;
};

}  // namespace ui
