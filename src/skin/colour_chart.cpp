// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/colour_chart.h"

#include <stdexcept>

namespace ui {

QColor SkinColour(const QImage& chart, int column, int row) {
  constexpr int firstX = 107, firstY = 7, step = 15;
  const QPoint cell(firstX + step * (column - 1), firstY + step * (row - 1));
  if (!chart.valid(cell)) throw std::out_of_range("colour chart");
  return QColor::fromRgb(chart.pixel(cell));
}

}  // namespace ui
