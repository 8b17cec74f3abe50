// SPDX-License-Identifier: GPL-3.0-or-later
// The program's windows while it waits for the mail service: they repaint and can be moved, but
// nothing in them can be begun. A wait that isn't over soon says so in the status popup, unless
// that tells of it already.
#pragma once

#include <QTimer>

#include <memory>
#include <vector>

#include "widgets/disabled_window.h"

namespace ui {

class WaitingWindows {
 public:
  WaitingWindows();

  /// True when a wait begins, false behind it.
  void Wait(bool waiting);

 private:
  std::vector<std::unique_ptr<DisabledWindow>> disabled_;
  QTimer patience_;
  bool says_ = false;
};

}  // namespace ui
