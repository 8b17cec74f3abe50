// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/readable_board.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <array>

#include "ui/board/board_picture.h"

namespace ui {
namespace {

using rules::Square;

constexpr int squares = 64;

/// From a8 to h1.
Square SquareOfItem(int item) { return {item % 8 + 1, 8 - item / 8}; }
int ItemOf(Square square) { return (8 - square.y) * 8 + square.x - 1; }

class ReadableSquare : public QAccessibleInterface {
 public:
  ReadableSquare(BoardPicture& board, int item) : board_(board), square_(SquareOfItem(item)) {}

  bool isValid() const override { return true; }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return parent()->window(); }
  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(&board_);
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name) return {};
    return DescribeSquare(square_, board_.CellOn(square_));
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override {
    const QRect inBoard = board_.RectOf(square_).toRect();
    return {board_.mapToGlobal(inBoard.topLeft()), inBoard.size()};
  }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.focusable = true;
    state.focused = board_.hasFocus() && board_.Cursor() == square_;
    state.invisible = !board_.isVisible();
    return state;
  }

 private:
  BoardPicture& board_;
  Square square_;
};

class ReadableBoard : public QAccessibleWidget {
 public:
  explicit ReadableBoard(BoardPicture& board)
      : QAccessibleWidget(&board, QAccessible::List), board_(board) {
    for (int item = 0; item < squares; ++item) {
      items_[static_cast<std::size_t>(item)] =
          QAccessible::registerAccessibleInterface(new ReadableSquare(board, item));
    }
  }
  ~ReadableBoard() override {
    for (const QAccessible::Id id : items_) QAccessible::deleteAccessibleInterface(id);
  }

  int childCount() const override { return squares; }
  QAccessibleInterface* child(int item) const override {
    if (item < 0 || item >= squares) return nullptr;
    return QAccessible::accessibleInterface(items_[static_cast<std::size_t>(item)]);
  }
  int indexOfChild(const QAccessibleInterface* searched) const override {
    for (int item = 0; item < squares; ++item) {
      if (child(item) == searched) return item;
    }
    return -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const auto square = board_.SquareUnder(board_.mapFromGlobal(QPoint(x, y)));
    return square ? child(ItemOf(*square)) : nullptr;
  }
  QAccessibleInterface* focusChild() const override {
    return board_.hasFocus() ? child(ItemOf(board_.Cursor())) : nullptr;
  }

 private:
  BoardPicture& board_;
  std::array<QAccessible::Id, squares> items_{};
};

QAccessibleInterface* ReadableFor(const QString& className, QObject* object) {
  auto* board = className == QLatin1StringView("ui::BoardPicture")
                    ? qobject_cast<BoardPicture*>(object)
                    : nullptr;
  return board ? new ReadableBoard(*board) : nullptr;
}

void Tell(BoardPicture& board, Square square, QAccessible::Event what) {
  if (!QAccessible::isActive()) return;
  QAccessibleEvent event(&board, what);
  event.setChild(ItemOf(square));
  QAccessible::updateAccessibility(&event);
}

}  // namespace

void LetBoardsBeRead() { QAccessible::installFactory(ReadableFor); }

void TellReaderOfSquare(BoardPicture& board, Square square) {
  Tell(board, square, QAccessible::NameChanged);
}

void TellReaderOfCursor(BoardPicture& board) {
  if (board.hasFocus()) Tell(board, board.Cursor(), QAccessible::Focus);
}

}  // namespace ui
