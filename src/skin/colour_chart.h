// SPDX-License-Identifier: GPL-3.0-or-later
// A skin's colours come out of small pictures that are read by single pixels only. The colour of
// column c and row r, both from 1, is the pixel at x = 107 + 15 (c - 1), y = 7 + 15 (r - 1): the
// middle of a cell. What lies to the left of the first column is for people.
#pragma once

#include <QColor>
#include <QImage>

namespace ui {

/// Raises std::out_of_range where the chart has no such cell.
QColor SkinColour(const QImage& chart, int column, int row);

}  // namespace ui
