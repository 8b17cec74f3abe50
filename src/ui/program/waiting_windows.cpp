// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/waiting_windows.h"

#include <QApplication>

#include <chrono>
#include <utility>

#include "platform/messages.h"
#include "widgets/front_window.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds soon{400};

/// The popup tells of the wait, the splash picture stands over the start, and the help may be read.
bool StaysAsItIs(const QWidget& window) {
  static const QStringList names{u"StatusWindow"_s, u"SplashScreen"_s, u"HelpWindow"_s};
  return !IsOfProgram(window) || names.contains(window.objectName());
}

bool IsStatusUp() {
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName() == u"StatusWindow"_s) return true;
  }
  return false;
}

}  // namespace

WaitingWindows::WaitingWindows() {
  patience_.setSingleShot(true);
  patience_.setInterval(soon);
  QObject::connect(&patience_, &QTimer::timeout, [this] {
    if (IsStatusUp()) return;
    says_ = true;
    platform::ShowStatus(true, "Waiting for the mail service...");
  });
}

void WaitingWindows::Wait(bool waiting) {
  disabled_.clear();
  patience_.stop();
  if (std::exchange(says_, false)) platform::ShowStatus(false);
  if (!waiting) return;
  patience_.start();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->isEnabled() && !StaysAsItIs(*window)) {
      disabled_.push_back(std::make_unique<DisabledWindow>(*window));
    }
  }
}

}  // namespace ui
