// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/set_preview.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int sheetColumns = 8;
constexpr int sheetRows = 4;
constexpr int usualCell = 28;

/// By the columns of a sheet: 1 rook, 2 knight, 3 bishop, 4 queen, 5 king, 6 pawn.
constexpr int firstRank[] = {1, 2, 3, 4, 5, 3, 2, 1};
constexpr int pawn = 6;

int PieceOn(int col, int row) {
  if (row == 2 || row == 7) return pawn;
  return row == 1 || row == 8 ? firstRank[col - 1] : 0;
}

}  // namespace

int PreviewClipGraphic(int col, int row) {
  const bool isDark = ((col + 1) % 2 + row) % 2 == 1;
  const bool isBlack = row > 2;  // an empty square counts as black
  return PieceOn(col, row) + (isDark ? 8 : 0) + (isBlack ? 16 : 0);
}

SetPreview::SetPreview(QWidget* page) : QWidget(page) {
  setObjectName(u"pCBoard"_s);
  setAccessibleName(u"Preview of the chess set"_s);
}

void SetPreview::ShowSheet(const QImage& sheet) {
  sheet_ = sheet;
  update();
}

QSize SetPreview::sizeHint() const { return {8 * usualCell, 8 * usualCell}; }

void SetPreview::paintEvent(QPaintEvent*) {
  if (sheet_.width() < sheetColumns || sheet_.height() < sheetRows) return;
  const QSize cell(sheet_.width() / sheetColumns, sheet_.height() / sheetRows);
  const int side = std::min(width(), height()) / 8;
  const QPoint corner((width() - 8 * side) / 2, (height() - 8 * side) / 2);
  QPainter painter(this);
  for (int col = 1; col <= 8; ++col) {
    for (int row = 1; row <= 8; ++row) {
      const int number = PreviewClipGraphic(col, row);
      const QRect place(corner + QPoint((col - 1) * side, (8 - row) * side), QSize(side, side));
      const QSize pixels = place.size() * devicePixelRatioF();
      QImage picture = sheet_
                           .copy({QPoint(number % sheetColumns * cell.width(),
                                         number / sheetColumns * cell.height()),
                                  cell})
                           .scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
      painter.drawImage(place, picture);
    }
  }
}

}  // namespace ui
