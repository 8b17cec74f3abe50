// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/front_window.h"

#include <QApplication>
#include <QLayout>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <chrono>

namespace ui {

namespace {

constexpr std::chrono::milliseconds whileNew{700};

/// From now on it gets them where the user wants that.
void TakeKeys(QWidget& window) {
  window.overrideWindowFlags(window.windowFlags() & ~Qt::WindowDoesNotAcceptFocus);
  if (QWindow* handle = window.windowHandle()) handle->setFlag(Qt::WindowDoesNotAcceptFocus, false);
}

/// A Wayland desktop doesn't tell which windows it shows as icons, and brings none back because its
/// program asks for it. What is shown anew comes in front there. A dialog that is hidden has ended.
bool MayBeLostFromSight(const QWidget& window) {
  return QGuiApplication::platformName().startsWith(QLatin1StringView("wayland")) &&
         window.windowType() == Qt::Window && !window.isActiveWindow();
}

}  // namespace

void ShowInTheMiddle(QWidget& window) {
  if (QLayout* layout = window.layout()) layout->activate();
  QRect frame({}, window.size());
  frame.moveCenter(window.screen()->availableGeometry().center());
  window.move(frame.topLeft());
  window.show();
}

bool IsOfProgram(const QWidget& window) {
  const Qt::WindowType type = window.windowType();
  return (type == Qt::Window || type == Qt::Dialog || type == Qt::SplashScreen) &&
         !window.inherits("QSystemTrayIconSys");
}

void BringToFront(QWidget& window) {
  if (window.isMinimized()) window.showNormal();
  window.show();
  window.raise();
  window.activateWindow();
}

void ShowInPassing(QWidget& window) {
  window.setAttribute(Qt::WA_ShowWithoutActivating);
  // Some window managers give the keys to whatever is new and takes them.
  window.setWindowFlag(Qt::WindowDoesNotAcceptFocus);
  ShowInTheMiddle(window);
  window.raise();
  QApplication::alert(&window);
  QTimer::singleShot(whileNew, &window, [&window] { TakeKeys(window); });
}

void BringActiveWindowToFront() {
  QWidget* window = QApplication::activeModalWidget();
  if (!window) window = QApplication::activeWindow();
  if (!window) {
    for (QWidget* candidate : QApplication::topLevelWidgets()) {
      if (candidate->isVisible() && IsOfProgram(*candidate)) window = candidate;
    }
  }
  if (!window) return;
  if (MayBeLostFromSight(*window)) window->hide();
  BringToFront(*window);
}

}  // namespace ui
