// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin_chart.h"

#include <QPainter>

#include <algorithm>

namespace art {

namespace {

constexpr int kCell = 15;
constexpr int kFirstCell = 107 - kCell / 2;
constexpr int kNameHeight = 10;

}  // namespace

QImage PaintChart(const std::vector<ChartRow>& rows) {
  size_t columns = 0;
  for (const ChartRow& row : rows) columns = std::max(columns, row.colours.size());
  QImage chart(kFirstCell + static_cast<int>(columns) * kCell,
               static_cast<int>(rows.size()) * kCell, QImage::Format_RGB32);
  chart.fill(Qt::white);
  QPainter painter(&chart);
  QFont font;
  font.setPixelSize(kNameHeight);
  painter.setFont(font);
  int top = 0;
  for (const ChartRow& row : rows) {
    painter.setClipRect(0, top, kFirstCell - 2, kCell);
    painter.drawText(QRect(2, top, kFirstCell, kCell), Qt::AlignVCenter, row.name);
    painter.setClipping(false);
    int left = kFirstCell;
    for (const QColor& colour : row.colours) {
      painter.fillRect(left, top, kCell, kCell, colour);
      left += kCell;
    }
    top += kCell;
  }
  return chart;
}

}  // namespace art
