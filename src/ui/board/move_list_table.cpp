// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/move_list_table.h"

#include <QHeaderView>
#include <QWheelEvent>

#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

enum Column { Coordinates, Number, Text, Comment, lastColumn = Comment };

}  // namespace

MoveListTable::MoveListTable(QWidget* parent)
    : RowTable({u"Move Coordinates"_s, u"No."_s, u"Move"_s, u"Comment"_s}, 8, parent) {
  setObjectName(u"MoveList"_s);
  setAccessibleName(u"History of previous moves"_s);
  setColumnHidden(Coordinates, true);
  setColumnHidden(Comment, true);
  horizontalHeader()->setSectionResizeMode(Number, QHeaderView::ResizeToContents);
  horizontalHeader()->setSectionResizeMode(Text, QHeaderView::Stretch);
  setContextMenuPolicy(Qt::CustomContextMenu);
  connect(this, &QTableWidget::currentCellChanged, this, [this](int row, int, int previous) {
    if (!updating_ && row >= 0 && row != previous) Q_EMIT RowChosen(row + 1);
  });
}

void MoveListTable::ShowMoves(const board::MoveList& moves, int topRow) {
  updating_ = true;
  // What the table itself has selected tells nothing: a user's choice has moved that already.
  const bool moved = rowCount() != moves.Count() || selected_ != moves.Selected();
  setRowCount(moves.Count());
  for (int row = 0; row < moves.Count(); ++row) {
    const store::MoveRecord& move = moves.Row(row + 1);
    const QString texts[] = {ShownLine(move.MoveCoordinates), QString::number(move.MoveNumber),
                             ShownLine(move.MoveText), ShownLine(move.MoveComment)};
    for (int column = 0; column <= lastColumn; ++column) {
      if (!item(row, column)) setItem(row, column, new QTableWidgetItem);
      item(row, column)->setText(texts[column]);
    }
    item(row, Number)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (moved) {
    selected_ = moves.Selected();
    topRow_ = topRow;
    setCurrentCell(selected_ - 1, Text);
    scrollPending_ = true;
    if (!pressed_) ScrollToTopRow();
  }
  updating_ = false;
}

void MoveListTable::ScrollToTopRow() {
  scrollPending_ = false;
  scrollTo(model()->index(topRow_ - 1, Text), PositionAtTop);
  scrollTo(currentIndex());
}

void MoveListTable::GoTo(int row) {
  if (row >= 0 && row < rowCount()) setCurrentCell(row, Text);
}

/// There is one column to the eye, so that the keys to both sides are free for the moves.
QModelIndex MoveListTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (action == MoveLeft) action = MoveUp;
  if (action == MoveRight) action = MoveDown;
  return RowTable::moveCursor(action, modifiers);
}

void MoveListTable::wheelEvent(QWheelEvent* event) {
  constexpr int notch = QWheelEvent::DefaultDeltasPerStep;
  wheel_ += event->angleDelta().y();
  for (; wheel_ >= notch; wheel_ -= notch) GoTo(currentRow() - 1);
  for (; wheel_ <= -notch; wheel_ += notch) GoTo(currentRow() + 1);
  event->accept();
}

// Rows that moved under a button that is down would let it choose another one.
void MoveListTable::mousePressEvent(QMouseEvent* event) {
  pressed_ = true;
  RowTable::mousePressEvent(event);
}

void MoveListTable::mouseReleaseEvent(QMouseEvent* event) {
  RowTable::mouseReleaseEvent(event);
  pressed_ = false;
  if (scrollPending_) ScrollToTopRow();
}

}  // namespace ui
