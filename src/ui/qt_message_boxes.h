// SPDX-License-Identifier: GPL-3.0-or-later
// The program's dialogs with its user, as windows of this desktop.
#pragma once

#include <memory>
#include <string>

#include "platform/message_boxes.h"
#include "ui/status_window.h"

namespace ui {

class QtMessageBoxes : public platform::MessageBoxes {
 public:
  bool Ask(const platform::Message& message) override;
  void ShowStatus(const std::string& text) override;
  void HideStatus() override;
  void PlainBox(const std::string& title, const std::string& text) override;

 private:
  std::unique_ptr<StatusWindow> status_;
};

}  // namespace ui
