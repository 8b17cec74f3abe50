// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/qt_screen.h"

#include <QGuiApplication>
#include <QScreen>

#include <cmath>
#include <string>

namespace ui {

platform::DisplaySettings QtScreen::Settings() {
  const QScreen* screen = QGuiApplication::primaryScreen();
  if (!screen) return {};
  const auto inDecimal = [](qreal dots) { return std::to_string(std::lround(dots)); };
  // However large the windows are drawn.
  const QSize size = (QSizeF(screen->size()) * screen->devicePixelRatio()).toSize();
  return {inDecimal(screen->logicalDotsPerInchX()), inDecimal(screen->logicalDotsPerInchY()),
          std::to_string(size.width()) + "," + std::to_string(size.height()), screen->depth()};
}

}  // namespace ui
