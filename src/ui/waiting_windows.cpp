// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/waiting_windows.h"

#include <QApplication>

#include "ui/front_window.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

/// The popup tells of the wait, the splash picture stands over the start, and the help may be read.
bool StaysAsItIs(const QWidget& window) {
  static const QStringList names{u"StatusWindow"_s, u"SplashScreen"_s, u"HelpWindow"_s};
  return !IsOfProgram(window) || names.contains(window.objectName());
}

}  // namespace

void WaitingWindows::Wait(bool waiting) {
  disabled_.clear();
  if (!waiting) return;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->isEnabled() && !StaysAsItIs(*window)) {
      disabled_.push_back(std::make_unique<DisabledWindow>(*window));
    }
  }
}

}  // namespace ui
