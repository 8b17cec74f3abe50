// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/patches.h"

#include <QPainter>

namespace ui {

QImage Patched(const QImage& picture, const Cuts& across, const Cuts& down) {
  QImage patched(across.to.back(), down.to.back(), QImage::Format_RGB32);
  QPainter painter(&patched);
  for (std::size_t y = 0; y + 1 < down.from.size(); ++y) {
    for (std::size_t x = 0; x + 1 < across.from.size(); ++x) {
      const auto part = [&](const std::vector<int>& columns, const std::vector<int>& rows) {
        return QRect(QPoint(columns[x], rows[y]), QPoint(columns[x + 1] - 1, rows[y + 1] - 1));
      };
      const QRect from = part(across.from, down.from), to = part(across.to, down.to);
      if (from.isEmpty() || to.isEmpty()) continue;
      painter.drawImage(to.topLeft(), picture.copy(from).scaled(to.size(), Qt::IgnoreAspectRatio,
                                                                Qt::SmoothTransformation));
    }
  }
  return patched;
}

}  // namespace ui
