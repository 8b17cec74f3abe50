// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/board_picture.h"

#include <QEvent>
#include <QFocusEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/board/readable_board.h"

namespace ui {

using namespace Qt::StringLiterals;
using rules::Square;

namespace {

constexpr int smallestCell = 32;
constexpr int usualCell = 66;
constexpr int targetAlpha = 190;

std::size_t IndexIn64(Square square) { return static_cast<std::size_t>(rules::IndexOf(square)); }

bool IsEmptyCell(int cell) { return cell % boards::ChessGraphics::columns == 0; }

QString FileLetter(int column) { return QString(QChar(u'a' + column - 1)); }

QPainterPath RingIn(const QRectF& square) {
  const qreal inset = square.width() * 0.07;
  QPainterPath path;
  path.addEllipse(square.adjusted(inset, inset, -inset, -inset));
  return path;
}

QPainterPath ArrowBetween(const QRectF& from, const QRectF& to) {
  constexpr qreal barbAngle = 150;
  QLineF shaft(from.center(), to.center());
  const qreal gap = from.width() * 0.3;
  shaft = QLineF(shaft.pointAt(gap / shaft.length()), shaft.pointAt(1 - gap / shaft.length()));
  QPainterPath path(shaft.p1());
  path.lineTo(shaft.p2());
  for (const qreal turn : {barbAngle, -barbAngle}) {
    path.moveTo(shaft.p2());
    path.lineTo(
        QLineF::fromPolar(from.width() * 0.25, shaft.angle() + turn).translated(shaft.p2()).p2());
  }
  return path;
}

}  // namespace

BoardPicture::BoardPicture(const boards::ChessGraphics& graphics, int edge, QWidget* parent)
    : QWidget(parent), graphics_(graphics), edge_(edge) {
  LetBoardsBeRead();
  setObjectName(u"CBoard"_s);
  setAccessibleName(u"Chess board"_s);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(QSize(1, 1) * (8 * smallestCell + 2 * edge_));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  for (int i = 0; i < 64; ++i) {
    const Square square = rules::SquareAt(i);
    places_[IndexIn64(square)] = {square.x - 1, square.y - 1};
    cells_[IndexIn64(square)] = 16 + rules::SquareShade(square);
  }
  DescribeCursor();
}

QSize BoardPicture::sizeHint() const { return QSize(1, 1) * (8 * usualCell + 2 * edge_); }

BoardPicture::Grid BoardPicture::MeasureGrid() const {
  const qreal ratio = devicePixelRatioF();
  const int room = std::min(width(), height()) - 2 * edge_;
  const qreal cell = std::floor(room * ratio / 8) / ratio;
  const auto centred = [&](int length) {
    return std::round((length - 8 * cell) / 2 * ratio) / ratio;
  };
  return {{centred(width()), centred(height())}, cell};
}

QRectF BoardPicture::RectOf(Square square) const {
  const Grid grid = MeasureGrid();
  const board::GridPlace place = places_[IndexIn64(square)];
  return {grid.corner.x() + grid.cell * place.column, grid.corner.y() + grid.cell * (7 - place.row),
          grid.cell, grid.cell};
}

std::optional<Square> BoardPicture::SquareUnder(QPointF point) const {
  for (int i = 0; i < 64; ++i) {
    const Square square = rules::SquareAt(i);
    const QRectF rect = RectOf(square);
    if (point.x() >= rect.left() && point.x() < rect.right() && point.y() >= rect.top() &&
        point.y() < rect.bottom()) {
      return square;
    }
  }
  return std::nullopt;
}

Square BoardPicture::Neighbour(Square square, int right, int up) const {
  const board::GridPlace here = places_[IndexIn64(square)];
  for (int i = 0; i < 64; ++i) {
    const board::GridPlace there = places_[static_cast<std::size_t>(i)];
    if (there.column == here.column + right && there.row == here.row + up) {
      return rules::SquareAt(i);
    }
  }
  return square;
}

void BoardPicture::Place(Square square, board::GridPlace place) {
  places_[IndexIn64(square)] = place;
  update();
}

void BoardPicture::UpdateSquare(Square square) { update(RectOf(square).toAlignedRect()); }

void BoardPicture::PaintSquare(Square square, int cell) {
  cells_[IndexIn64(square)] = cell;
  UpdateSquare(square);
  if (square == cursor_) DescribeCursor();
  TellReaderOfSquare(*this, square);
  Q_EMIT Painted(square);
}

int BoardPicture::CellOn(Square square) const { return cells_[IndexIn64(square)]; }

void BoardPicture::Cover(Square square, int cell) {
  Uncover();
  covered_ = square;
  cover_ = cell;
  UpdateSquare(square);
}

void BoardPicture::Uncover() {
  if (covered_) UpdateSquare(*std::exchange(covered_, std::nullopt));
}

void BoardPicture::ShowTargets(rules::Bitboard targets) {
  if (targets == targets_) return;
  targets_ = targets;
  update();
}

void BoardPicture::ShowLastMove(std::optional<rules::LastMove> move) {
  lastMove_ = move;
  update();
}

void BoardPicture::ShowArrow(rules::LastMove arrow) {
  arrow_ = arrow;
  update();
}

void BoardPicture::ShowDots(const std::vector<Square>& dots) {
  if (dots == dots_) return;
  dots_ = dots;
  update();
}

void BoardPicture::ShowCoordinates(bool visible) {
  if (visible == coordinates_) return;
  coordinates_ = visible;
  update();
}

void BoardPicture::ShowSelection(std::optional<Square> square) {
  if (square == selected_) return;
  selected_ = square;
  update();
}

void BoardPicture::MoveCursor(Square square, bool showRing) {
  UpdateSquare(cursor_);
  cursor_ = square;
  cursorRing_ = showRing;
  UpdateSquare(cursor_);
  DescribeCursor();
  TellReaderOfCursor(*this);
}

void BoardPicture::DescribeCursor() {
  setAccessibleDescription(DescribeSquare(cursor_, CellOn(cursor_)));
}

QPixmap BoardPicture::FloatingPicture(rules::PieceCode piece) const {
  const qreal ratio = devicePixelRatioF();
  const int pixels = std::max(1, static_cast<int>(std::lround(MeasureGrid().cell * ratio)));
  QPixmap picture = QPixmap::fromImage(graphics_.Icon(piece).scaled(
      pixels, pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  picture.setDevicePixelRatio(ratio);
  return picture;
}

/// A skin's ground is a picture. On the right there is nothing else.
QColor BoardPicture::ColourBeside() const {
  const QRect band(width() - edge_ + 1, 0, edge_ - 1, height());
  const QImage seen = window()->grab({mapTo(window(), band.topLeft()), band.size()}).toImage();
  return seen.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
}

/// Another picture of that size, as this one grows with its widget.
QImage BoardPicture::Image(int edge, const std::function<int(Square)>& cellOf) const {
  BoardPicture picture(graphics_, coordinates_ ? edge_ : 0, parentWidget());
  picture.resize(edge, edge);
  picture.places_ = places_;
  for (int i = 0; i < 64; ++i) picture.PaintSquare(rules::SquareAt(i), cellOf(rules::SquareAt(i)));
  picture.lastMove_ = lastMove_;
  picture.dots_ = dots_;
  picture.coordinates_ = coordinates_;
  QImage image(edge, edge, QImage::Format_RGB32);
  image.fill(ColourBeside());
  picture.render(&image, {}, {}, QWidget::DrawChildren);
  return image;
}

void BoardPicture::TakeGraphics() {
  scaledPixels_ = 0;
  update();
}

const QPixmap& BoardPicture::ScaledCell(int cell, qreal size) {
  const qreal ratio = devicePixelRatioF();
  const int pixels = std::max(1, static_cast<int>(std::lround(size * ratio)));
  if (pixels != scaledPixels_) {
    scaled_.fill({});
    scaledPixels_ = pixels;
  }
  QPixmap& picture = scaled_.at(static_cast<std::size_t>(cell));
  if (picture.isNull()) {
    picture = QPixmap::fromImage(graphics_.Cell(cell).scaled(pixels, pixels, Qt::IgnoreAspectRatio,
                                                             Qt::SmoothTransformation));
  }
  picture.setDevicePixelRatio(ratio);
  return picture;
}

void BoardPicture::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintSquares(painter, event->region());
  if (coordinates_) PaintCoordinates(painter);
  PaintSelection(painter);
  PaintLastMove(painter);
  PaintTargets(painter);
  PaintDots(painter);
  PaintArrow(painter);
  PaintCursor(painter);
}

void BoardPicture::PaintSquares(QPainter& painter, const QRegion& region) {
  const Grid grid = MeasureGrid();
  const QRectF all(grid.corner, QSizeF(8 * grid.cell, 8 * grid.cell));
  painter.setPen(QPen(palette().color(QPalette::Shadow), 1));
  painter.drawRect(all.adjusted(-0.5, -0.5, 0.5, 0.5));
  for (int i = 0; i < 64; ++i) {
    const Square square = rules::SquareAt(i);
    const QRectF rect = RectOf(square);
    if (!region.intersects(rect.toAlignedRect())) continue;
    const int cell = covered_ == square ? cover_ : CellOn(square);
    painter.drawPixmap(rect.topLeft(), ScaledCell(cell, rect.width()));
  }
}

void BoardPicture::PaintCoordinates(QPainter& painter) const {
  const Grid grid = MeasureGrid();
  painter.setPen(palette().color(QPalette::WindowText));
  for (int i = 1; i <= 8; ++i) {
    // The row at the bottom gives the letters, the column at the left the numbers.
    const QRectF inRow = RectOf({i, 1});
    const QRectF inColumn = RectOf({1, i});
    painter.drawText(QRectF(inRow.left(), grid.corner.y() + 8 * grid.cell, grid.cell, edge_),
                     Qt::AlignCenter, FileLetter(i));
    painter.drawText(QRectF(grid.corner.x() - edge_, inColumn.top(), edge_, grid.cell),
                     Qt::AlignCenter, QString::number(i));
  }
}

/// By the corners of its squares, which hide nothing of the pieces.
void BoardPicture::PaintLastMove(QPainter& painter) const {
  if (!lastMove_) return;
  painter.setBrush(Qt::NoBrush);
  for (const Square square : {lastMove_->from, lastMove_->to}) {
    const qreal width = std::max(2.0, RectOf(square).width() * 0.08);
    const QRectF rect = RectOf(square).adjusted(width / 2, width / 2, -width / 2, -width / 2);
    const QPointF along(rect.width() * 0.22, 0), down(0, rect.height() * 0.22);
    const QPointF corners[][3] = {
        {rect.topLeft() + down, rect.topLeft(), rect.topLeft() + along},
        {rect.topRight() - along, rect.topRight(), rect.topRight() + down},
        {rect.bottomRight() - down, rect.bottomRight(), rect.bottomRight() - along},
        {rect.bottomLeft() + along, rect.bottomLeft(), rect.bottomLeft() - down}};
    // With a rim: no one colour shows on the squares of every chess set.
    for (const auto& [role, part] :
         {std::pair(QPalette::HighlightedText, 1.0), std::pair(QPalette::Highlight, 0.55)}) {
      painter.setPen(
          QPen(palette().color(role), width * part, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
      for (const auto& corner : corners) painter.drawPolyline(corner, 3);
    }
  }
}

/// Quieter than the dots of a highlighted move: nothing to be looked at but in passing.
void BoardPicture::PaintTargets(QPainter& painter) const {
  QColor accent = palette().color(QPalette::Highlight);
  QColor rim = palette().color(QPalette::HighlightedText);
  for (QColor* colour : {&accent, &rim}) colour->setAlpha(targetAlpha);
  for (rules::Bitboard left = targets_; left != 0;) {
    const Square square = rules::SquareAt(rules::TakeLowest(left));
    const QRectF rect = RectOf(square);
    const bool empty = IsEmptyCell(CellOn(square));
    painter.setBrush(empty ? QBrush(accent) : QBrush(Qt::NoBrush));
    painter.setPen(empty ? QPen(rim, std::max(1.0, rect.width() * 0.02))
                         : QPen(accent, rect.width() * 0.06));
    const qreal radius = rect.width() * (empty ? 0.13 : 0.45);
    painter.drawEllipse(rect.center(), radius, radius);
  }
}

/// From beside one piece to beside the other, so that both are seen.
void BoardPicture::PaintArrow(QPainter& painter) const {
  if (!arrow_) return;
  const QPainterPath path = arrow_.from == arrow_.to
                                ? RingIn(RectOf(arrow_.from))
                                : ArrowBetween(RectOf(arrow_.from), RectOf(arrow_.to));
  const qreal width = RectOf(arrow_.from).width();
  for (const auto& [role, part] :
       {std::pair(QPalette::HighlightedText, 0.13), std::pair(QPalette::Highlight, 0.07)}) {
    const QPen pen(palette().color(role), width * part, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    painter.strokePath(path, pen);
  }
}

void BoardPicture::PaintDots(QPainter& painter) const {
  const QColor accent = palette().color(QPalette::Highlight);
  const QColor rim = palette().color(QPalette::HighlightedText);
  for (const Square square : dots_) {
    const QRectF rect = RectOf(square);
    if (IsEmptyCell(CellOn(square))) {
      const qreal radius = rect.width() * 0.11;
      painter.setBrush(accent);
      painter.setPen(QPen(rim, std::max(1.5, radius * 0.25)));
      painter.drawEllipse(rect.center(), radius, radius);
    } else {
      // Round a piece, so that it hides nothing of it.
      const qreal radius = rect.width() * 0.46;
      painter.setBrush(Qt::NoBrush);
      for (const auto& [colour, width] : {std::pair{rim, 0.065}, std::pair{accent, 0.04}}) {
        painter.setPen(QPen(colour, rect.width() * width));
        painter.drawEllipse(rect.center(), radius, radius);
      }
    }
  }
}

void BoardPicture::PaintSelection(QPainter& painter) const {
  if (!selected_) return;
  const QRectF rect = RectOf(*selected_);
  const QColor accent = palette().color(QPalette::Highlight);
  QColor glow = accent;
  glow.setAlpha(45);
  const qreal width = std::max(3.0, rect.width() * 0.06);
  painter.setPen(QPen(accent, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.setBrush(glow);
  painter.drawRect(rect.adjusted(width / 2, width / 2, -width / 2, -width / 2));
}

void BoardPicture::PaintCursor(QPainter& painter) const {
  if (!cursorRing_ || !hasFocus()) return;
  // Two lines, so that the ring is seen on light and dark squares and round a selected one.
  const QRectF rect = RectOf(cursor_);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(
      QPen(palette().color(QPalette::Highlight), 3, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawRect(rect.adjusted(1.5, 1.5, -1.5, -1.5));
  painter.setPen(QPen(palette().color(QPalette::HighlightedText), 2, Qt::SolidLine, Qt::SquareCap,
                      Qt::MiterJoin));
  painter.drawRect(rect.adjusted(4, 4, -4, -4));
}

void BoardPicture::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) update();
  QWidget::changeEvent(event);
}

void BoardPicture::focusInEvent(QFocusEvent* event) {
  const Qt::FocusReason reason = event->reason();
  if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
      reason == Qt::ShortcutFocusReason) {
    cursorRing_ = true;
  }
  UpdateSquare(cursor_);
  TellReaderOfCursor(*this);
}

void BoardPicture::focusOutEvent(QFocusEvent*) { UpdateSquare(cursor_); }

QString DescribeSquare(Square square, int cell) {
  static constexpr const char* pieces[] = {"",      "rook", "knight", "bishop",
                                           "queen", "king", "pawn",   "fallen king"};
  const QString text = FileLetter(square.x) + QString::number(square.y);
  const int column = cell % boards::ChessGraphics::columns;
  if (column == 0) return text + u", empty"_s;
  return text + (cell < 16 ? u", white "_s : u", black "_s) + QLatin1StringView(pieces[column]);
}

}  // namespace ui
