// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/piece_palette.h"

#include <QPainter>

#include <algorithm>

#include "board/setup.h"
#include "skin/look.h"
#include "ui/board/palette_picture.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int columns = 3;
constexpr int rows = 4;  // two for each side
constexpr int gap = 2;
constexpr int leastMargin = 3;  // at the left and the right
constexpr int leastSpace = 10;  // above, between and below the sides

constexpr QSize SizeFor(int cell) {
  return {columns * cell + (columns - 1) * gap + 2 * leastMargin,
          rows * cell + 2 * gap + 3 * leastSpace};
}

int CellFor(QSize size) {
  const QSize free = size - SizeFor(0);
  return std::max(0, std::min(free.width() / columns, free.height() / rows));
}

}  // namespace

int ClipSetupGraphic(rules::PieceCode piece) {
  return rules::KindOf(piece) + (rules::SideOfPiece(piece) == rules::White ? 8 : 16);
}

PiecePalette::PiecePalette(const boards::ChessGraphics& graphics, QWidget* parent)
    : QWidget(parent), graphics_(graphics) {
  setObjectName(u"PiecePallete"_s);
  setAccessibleName(u"Pieces to put on the board"_s);
  setContextMenuPolicy(Qt::CustomContextMenu);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  for (rules::PieceCode piece = rules::WhiteRook; piece <= rules::BlackPawn; ++piece) {
    pictures_[static_cast<std::size_t>(piece - 1)] = new PalettePicture(piece, this);
  }
  for (const rules::Side side : {rules::White, rules::Black}) {
    auto* marker = new PaletteMarker(&PictureOf(rules::OfSide(rules::WhiteKing, side)));
    marker->setObjectName(u"MovePointer_%1"_s.arg(side + 1));
    movePointers_[static_cast<std::size_t>(side)] = marker;
  }
  SetCurrent(current_);
}

PalettePicture& PiecePalette::PictureOf(rules::PieceCode piece) const {
  return *pictures_.at(static_cast<std::size_t>(piece - 1));
}

void PiecePalette::SetPiecePallete() {
  for (rules::PieceCode piece = rules::WhiteRook; piece <= rules::BlackPawn; ++piece) {
    PictureOf(piece).SetPicture(graphics_.Cell(ClipSetupGraphic(piece)));
  }
  UpdatePiecePalette();
}

void PiecePalette::UpdatePiecePalette() {
  for (const rules::Side side : {rules::White, rules::Black}) {
    const rules::PieceCode king = rules::OfSide(rules::WhiteKing, side);
    const bool marked = !board::IsOnPalette(king);
    movePointers_[static_cast<std::size_t>(side)]->setVisible(marked);
    PictureOf(king).setAccessibleDescription(marked ? u"On the board"_s : QString());
  }
}

void PiecePalette::SetCurrent(rules::PieceCode piece) {
  PictureOf(current_).SetReachedByTab(false);
  current_ = piece;
  PictureOf(current_).SetReachedByTab(true);
}

void PiecePalette::MoveFocus(int right, int up) {
  const int column = (current_ - 1) % columns + right, row = (current_ - 1) / columns - up;
  if (column < 0 || column >= columns || row < 0 || row >= rows) return;
  SetCurrent(row * columns + column + 1);
  PictureOf(current_).setFocus();
}

rules::PieceCode PiecePalette::PieceUnder(QPoint point) const {
  for (rules::PieceCode piece = rules::WhiteRook; piece <= rules::BlackPawn; ++piece) {
    if (RectOf(piece).contains(point)) return piece;
  }
  return rules::NoPiece;
}

QRect PiecePalette::RectOf(rules::PieceCode piece) const { return PictureOf(piece).geometry(); }

void PiecePalette::ShowSelection(rules::PieceCode selected) {
  for (rules::PieceCode piece = rules::WhiteRook; piece <= rules::BlackPawn; ++piece) {
    PictureOf(piece).SetSelected(piece == selected);
  }
}

/// Beside a board of the usual size nothing is left over.
QSize PiecePalette::sizeHint() const { return SizeFor(62); }

QSize PiecePalette::minimumSizeHint() const { return SizeFor(40); }

void PiecePalette::resizeEvent(QResizeEvent*) {
  const int cell = CellFor(size());
  const int left = (width() - columns * cell - (columns - 1) * gap) / 2;
  const int sideHeight = 2 * cell + gap;
  const int space = (height() - 2 * sideHeight) / 3;
  for (int i = 0; i < columns * rows; ++i) {
    const int column = i % columns, rowOfSide = i / columns % 2, side = i / columns / 2;
    const QPoint corner(left + column * (cell + gap),
                        space + side * (sideHeight + space) + rowOfSide * (cell + gap));
    PictureOf(i + 1).setGeometry({corner, QSize(cell, cell)});
  }
  for (QWidget* marker : movePointers_) marker->resize(cell, cell);
}

void PiecePalette::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().base());
  if (!IsSimpleUI()) return;
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace ui
