// SPDX-License-Identifier: GPL-3.0-or-later
// One cell of a skin's strip.
#pragma once

#include <QImage>

#include "skin/layouts/strips.h"

namespace ui {

/// A plain light cell where the strip has none.
inline QImage StripCell(const QImage& strip, const layouts::Strip& shape, int column, int row) {
  const int width = strip.width() / shape.columns;
  const int height = strip.height() / shape.rows;
  if (width > 0 && height > 0) return strip.copy(column * width, row * height, width, height);
  QImage plain(shape.cell.width, shape.cell.height, QImage::Format_RGB32);
  plain.fill(QColor(0xE0, 0xE0, 0xE0));
  return plain;
}

}  // namespace ui
