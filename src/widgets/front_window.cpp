// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/front_window.h"

#include <QApplication>
#include <QLayout>
#include <QScreen>
#include <QWidget>

namespace ui {

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
  ShowInTheMiddle(window);
  window.raise();
  QApplication::alert(&window);
}

void BringActiveWindowToFront() {
  QWidget* window = QApplication::activeModalWidget();
  if (!window) window = QApplication::activeWindow();
  if (!window) {
    for (QWidget* candidate : QApplication::topLevelWidgets()) {
      if (candidate->isVisible() && IsOfProgram(*candidate)) window = candidate;
    }
  }
  if (window) BringToFront(*window);
}

}  // namespace ui
