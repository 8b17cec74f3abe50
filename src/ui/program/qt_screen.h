// SPDX-License-Identifier: GPL-3.0-or-later
// What the program asks of the screen and of its other instances, answered by this desktop.
#pragma once

#include <functional>

#include "platform/screen.h"

namespace ui {

class QtScreen : public platform::Screen {
 public:
  explicit QtScreen(std::function<bool()> isAnotherInstanceRunning)
      : isAnotherInstanceRunning_(std::move(isAnotherInstanceRunning)) {}

  platform::DisplaySettings Settings() override;
  bool IsAnotherInstanceRunning() override { return isAnotherInstanceRunning_(); }

 private:
  std::function<bool()> isAnotherInstanceRunning_;
};

}  // namespace ui
