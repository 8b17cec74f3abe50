// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/move_list_table.h"

#include <QHeaderView>
#include <QWheelEvent>

#include <algorithm>

#include "board/move_pairs.h"
#include "platform/setting_variables.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int rowPadding = 8;

enum Column { Coordinates, Number, Text, Comment, Answer };

}  // namespace

MoveListTable::MoveListTable(QWidget* parent)
    : RowTable({u"Move Coordinates"_s, u"No."_s, u"Move"_s, u"Comment"_s, u"Black"_s}, rowPadding,
               parent) {
  setObjectName(u"MoveList"_s);
  setAccessibleName(u"History of previous moves"_s);
  setColumnHidden(Coordinates, true);
  setColumnHidden(Comment, true);
  horizontalHeader()->setSectionResizeMode(Number, QHeaderView::ResizeToContents);
  for (const int column : {Text, Answer}) {
    horizontalHeader()->setSectionResizeMode(column, QHeaderView::Stretch);
  }
  setContextMenuPolicy(Qt::CustomContextMenu);
  connect(this, &QTableWidget::currentCellChanged, this, &MoveListTable::Choose);
  TakeForm(false);
}

void MoveListTable::TakeForm(bool pairs) {
  pairs_ = pairs;
  setRowCount(0);
  setColumnHidden(Answer, !pairs);
  horizontalHeaderItem(Text)->setText(pairs ? u"White"_s : u"Move"_s);
  setSelectionBehavior(pairs ? SelectItems : SelectRows);
}

void MoveListTable::Choose(int row, int column) {
  if (updating_ || row < 0) return;
  const int entry = EntryAt(row, column);
  if (entry <= count_ && entry != selected_) Q_EMIT RowChosen(entry);
}

int MoveListTable::EntryAt(int row, int column) const {
  return pairs_ ? 2 * row + (column == Answer ? 2 : 1) : row + 1;
}

QModelIndex MoveListTable::CellOf(int entry) const {
  if (!pairs_) return model()->index(entry - 1, Text);
  return model()->index(board::PairOf(entry) - 1, entry % 2 == 1 ? Text : Answer);
}

void MoveListTable::ShowCell(int row, int column, const QString& text) {
  if (!item(row, column)) setItem(row, column, new QTableWidgetItem);
  item(row, column)->setText(text);
}

void MoveListTable::ShowEntry(int entry, const store::MoveRecord& move) {
  const QModelIndex cell = CellOf(entry);
  ShowCell(cell.row(), cell.column(), ShownLine(move.MoveText));
  if (pairs_) return;
  ShowCell(cell.row(), Coordinates, ShownLine(move.MoveCoordinates));
  ShowCell(cell.row(), Comment, ShownLine(move.MoveComment));
}

void MoveListTable::ShowNumber(int row, const board::MoveList& moves) {
  const int ofPair = board::NumberOfPair(moves, row + 1);
  const QString pairs = ofPair > 0 ? u"%1."_s.arg(ofPair) : QString();
  ShowCell(row, Number, pairs_ ? pairs : QString::number(moves.Row(row + 1).MoveNumber));
  item(row, Number)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void MoveListTable::ShowMoves(const board::MoveList& moves, int topRow) {
  updating_ = true;
  // What the table itself has selected tells nothing: a user's choice has moved that already.
  bool moved = count_ != moves.Count() || selected_ != moves.Selected();
  if (pairs_ != platform::Settings().Pairs) {
    TakeForm(!pairs_);
    moved = true;
  }
  count_ = moves.Count();
  setRowCount(pairs_ ? board::PairOf(count_) : count_);
  for (int entry = 1; entry <= count_; ++entry) ShowEntry(entry, moves.Row(entry));
  for (int row = 0; row < rowCount(); ++row) ShowNumber(row, moves);
  if (pairs_ && count_ % 2 == 1) delete takeItem(rowCount() - 1, Answer);
  if (moved) {
    selected_ = moves.Selected();
    topRow_ = topRow;
    setCurrentIndex(CellOf(selected_));
    scrollPending_ = true;
    if (!pressed_) ScrollToTopRow();
  }
  updating_ = false;
}

void MoveListTable::ScrollToTopRow() {
  scrollPending_ = false;
  scrollTo(CellOf(topRow_), PositionAtTop);
  scrollTo(currentIndex());
}

void MoveListTable::Step(int rows) {
  const int entry = EntryAt(currentRow(), currentColumn()) + rows;
  if (entry >= 1 && entry <= count_) setCurrentIndex(CellOf(entry));
}

/// The keys to both sides go from move to move, whether or not they stand side by side.
QModelIndex MoveListTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  const int entry = EntryAt(currentRow(), currentColumn());
  switch (action) {
    case MoveLeft:
      return CellOf(std::max(1, entry - 1));
    case MoveRight:
      return CellOf(std::min(count_, entry + 1));
    case MoveHome:
      return CellOf(1);
    case MoveEnd:
      return CellOf(count_);
    default:
      break;
  }
  const QModelIndex next = RowTable::moveCursor(action, modifiers);
  return EntryAt(next.row(), next.column()) > count_ ? CellOf(count_) : next;
}

void MoveListTable::wheelEvent(QWheelEvent* event) {
  constexpr int notch = QWheelEvent::DefaultDeltasPerStep;
  wheel_ += event->angleDelta().y();
  for (; wheel_ >= notch; wheel_ -= notch) Step(-1);
  for (; wheel_ <= -notch; wheel_ += notch) Step(1);
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
  // A pair was pressed beside its moves.
  if (pairs_) setCurrentIndex(CellOf(selected_));
  if (scrollPending_) ScrollToTopRow();
}

}  // namespace ui
