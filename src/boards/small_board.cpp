// SPDX-License-Identifier: GPL-3.0-or-later
#include "boards/small_board.h"

#include <QPainter>

#include <array>

namespace boards {
namespace {

/// One colour on all sets, as the picture may be seen far from any skin.
constexpr QColor markColour(0x2f, 0x6f, 0xde);

int CellOf(const rules::BoardSquares& squares, rules::Square square) {
  const rules::PieceCode piece = squares.At(square);
  const bool isWhite = rules::SideOfPiece(piece) == rules::White;
  return rules::KindOf(piece) + rules::SquareShade(square) + (isWhite ? 0 : 16);
}

QRect PlaceOf(rules::Square square, rules::Side viewSide, int size) {
  const bool fromWhite = viewSide == rules::White;
  const int column = fromWhite ? square.x - 1 : 8 - square.x;
  const int row = fromWhite ? 8 - square.y : square.y - 1;
  return {column * size, row * size, size, size};
}

void Mark(QPainter& painter, const QRect& place) {
  const double width = std::max(1.0, place.width() / 14.0);
  painter.setPen(QPen(markColour, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
  painter.drawRect(QRectF(place).adjusted(width / 2, width / 2, -width / 2, -width / 2));
}

/// Each cell is scaled once a picture, whatever the number of its squares.
class ScaledCells {
 public:
  ScaledCells(const ChessGraphics& graphics, int size) : graphics_(graphics), size_(size) {}

  const QImage& operator[](int cell) {
    QImage& image = images_.at(static_cast<std::size_t>(cell));
    if (image.isNull()) {
      image = graphics_.Cell(cell).scaled(size_, size_, Qt::IgnoreAspectRatio,
                                          Qt::SmoothTransformation);
    }
    return image;
  }

 private:
  const ChessGraphics& graphics_;
  const int size_;
  std::array<QImage, ChessGraphics::cells> images_;
};

}  // namespace

QImage SmallBoard(const ShownPosition& shown, const ChessGraphics& graphics, int edge) {
  const int size = std::max(1, edge / 8);
  QImage board(8 * size, 8 * size, QImage::Format_RGB32);
  ScaledCells cells(graphics, size);
  QPainter painter(&board);
  for (int i = 0; i < 64; ++i) {
    const rules::Square square = rules::SquareAt(i);
    painter.drawImage(PlaceOf(square, shown.viewSide, size), cells[CellOf(shown.squares, square)]);
  }
  for (const rules::Square square : {shown.lastMove.from, shown.lastMove.to}) {
    if (rules::IsOnBoard(square)) Mark(painter, PlaceOf(square, shown.viewSide, size));
  }
  return board;
}

}  // namespace boards
