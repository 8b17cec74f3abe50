// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/front_window.h"

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

void BringToFront(QWidget& window) {
  if (window.isMinimized()) window.showNormal();
  window.show();
  window.raise();
  window.activateWindow();
}

void BringActiveWindowToFront() {
  QWidget* window = QApplication::activeModalWidget();
  if (!window) window = QApplication::activeWindow();
  if (!window) {
    for (QWidget* candidate : QApplication::topLevelWidgets()) {
      const bool isWindow = candidate->windowType() != Qt::Popup && candidate->isVisible();
      if (isWindow) window = candidate;
    }
  }
  if (window) BringToFront(*window);
}

}  // namespace ui
