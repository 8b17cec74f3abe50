// SPDX-License-Identifier: GPL-3.0-or-later
// Colour charts: pictures that are read only by sampling single pixels.
//
// The colour of column c and row r, both from 1, is the pixel at x = 107 + 15 (c - 1),
// y = 7 + 15 (r - 1), the middle of a cell. What stands to the left of the cells is for people.
#pragma once

#include <QColor>
#include <QImage>
#include <QString>

#include <vector>

namespace art {

struct ChartRow {
  QString name;
  std::vector<QColor> colours;
};

QImage PaintChart(const std::vector<ChartRow>& rows);

}  // namespace art
