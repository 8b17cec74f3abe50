// SPDX-License-Identifier: GPL-3.0-or-later
// The program's dialogs with its user, as windows of this desktop.
#pragma once

#include <QPointer>

#include <string>

#include "platform/message_boxes.h"
#include "ui/program/status_window.h"

namespace ui {

class QtMessageBoxes : public platform::MessageBoxes {
 public:
  ~QtMessageBoxes() override { HideStatus(); }

  bool Ask(const platform::Message& message) override;
  void ShowStatus(const std::string& text) override;
  void HideStatus() final;
  void PlainBox(platform::PlainIcon icon, const std::string& title,
                const std::string& text) override;

 private:
  QPointer<StatusWindow> status_;  // goes with the window that it stands over, too
};

}  // namespace ui
