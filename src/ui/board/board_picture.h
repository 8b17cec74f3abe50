// SPDX-License-Identifier: GPL-3.0-or-later
// The chess board as a picture: 64 cells of the chess set's sheet, the coordinates beside them, and
// the marks on them. It grows with its widget and stays square.
//
// The picture keeps the cell of each square itself and shows nothing that it wasn't told, because
// the position moves while a move is being tried. It takes no input; PieceHand does.
#pragma once

#include <QPixmap>
#include <QWidget>

#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "board/squares.h"
#include "boards/chess_graphics.h"
#include "rules/position.h"

namespace ui {

class BoardPicture : public QWidget {
  Q_OBJECT

 public:
  /// Pixels round the squares in the plain look; the coordinates stand there.
  static constexpr int plainEdge = 24;

  /// The graphics must outlive the picture.
  explicit BoardPicture(const boards::ChessGraphics& graphics, int edge, QWidget* parent = nullptr);

  /// Where a square stands from now on.
  void Place(rules::Square square, board::GridPlace place);

  void PaintSquare(rules::Square square, int cell);
  int CellOn(rules::Square square) const;

  /// Shows another cell on one square until Uncover, whatever is painted there meanwhile.
  void Cover(rules::Square square, int cell);
  void Uncover();

  /// Marks where the piece in the hand may go; none where there is none.
  void ShowTargets(rules::Bitboard targets);

  /// Marks both squares of a move.
  void ShowLastMove(std::optional<rules::LastMove> move);

  /// An arrow from one square to another, or round one square; none where there is none.
  void ShowArrow(rules::LastMove arrow);

  void ShowDots(const std::vector<rules::Square>& dots);
  void ShowCoordinates(bool visible);
  void ShowSelection(std::optional<rules::Square> square);

  /// The square that the keyboard works on. Its ring shows while the board has the focus and the
  /// keyboard is used.
  rules::Square Cursor() const { return cursor_; }
  void MoveCursor(rules::Square square, bool showRing);
  bool ShowsRing() const { return cursorRing_; }

  /// The square one step to the right and up as the board is seen now; the same at an edge.
  rules::Square Neighbour(rules::Square square, int right, int up) const;

  std::optional<rules::Square> SquareUnder(QPointF point) const;
  QRectF RectOf(rules::Square square) const;

  /// Shows the squares in the chess set that is loaded now.
  void TakeGraphics();

  /// The picture of the piece whose icon this is, as large as a square.
  QPixmap FloatingPicture(rules::PieceCode piece) const;

  /// The board as it is shown, `edge` pixels wide and high, without what belongs to a hand: a
  /// picture for other programs. `cellOf` tells what stands on a square.
  QImage Image(int edge, const std::function<int(rules::Square)>& cellOf) const;

  QSize sizeHint() const override;

 Q_SIGNALS:
  void Painted(rules::Square square);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  struct Grid {
    QPointF corner;  // upper left
    qreal cell = 0;  // a whole number of the screen's own pixels
  };
  Grid MeasureGrid() const;
  QColor ColourBeside() const;
  void UpdateSquare(rules::Square square);
  const QPixmap& ScaledCell(int cell, qreal size);
  void PaintSquares(QPainter& painter, const QRegion& region);
  void PaintCoordinates(QPainter& painter) const;
  void PaintLastMove(QPainter& painter) const;
  void PaintTargets(QPainter& painter) const;
  void PaintArrow(QPainter& painter) const;
  void PaintDots(QPainter& painter) const;
  void PaintSelection(QPainter& painter) const;
  void PaintCursor(QPainter& painter) const;
  void DescribeCursor();

  const boards::ChessGraphics& graphics_;
  const int edge_;
  std::array<board::GridPlace, 64> places_{};
  std::array<int, 64> cells_{};
  std::optional<rules::Square> covered_;
  int cover_ = 0;
  rules::Bitboard targets_ = 0;
  std::optional<rules::LastMove> lastMove_;
  rules::LastMove arrow_;
  std::vector<rules::Square> dots_;
  bool coordinates_ = false;
  std::optional<rules::Square> selected_;
  rules::Square cursor_{5, 2};
  bool cursorRing_ = false;

  std::array<QPixmap, boards::ChessGraphics::cells> scaled_;
  int scaledPixels_ = 0;  // the size of what scaled_ holds
};

/// Such as "e4, white pawn", or "e5, empty".
QString DescribeSquare(rules::Square square, int cell);

}  // namespace ui
