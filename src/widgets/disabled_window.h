// SPDX-License-Identifier: GPL-3.0-or-later
// A window that the user can't act on while it waits: it goes on repainting, takes no input and
// isn't closed by the user.
#pragma once

#include <QPointer>
#include <QWidget>

namespace ui {

class DisabledWindow {
 public:
  explicit DisabledWindow(QWidget& window) : window_(&window), focused_(window.focusWidget()) {
    window.setEnabled(false);
  }
  ~DisabledWindow() {
    if (!window_) return;
    window_->setEnabled(true);
    if (focused_) focused_->setFocus();
  }
  DisabledWindow(const DisabledWindow&) = delete;
  DisabledWindow& operator=(const DisabledWindow&) = delete;

 private:
  QPointer<QWidget> window_;
  QPointer<QWidget> focused_;
};

}  // namespace ui
