// SPDX-License-Identifier: GPL-3.0-or-later
// The table of the moves as the user sees it: number and move, or in pairs, where he wants that:
// number, White's move and Black's. Coordinates and comment are columns of it too, which are never
// shown.
#pragma once

#include "board/move_list.h"
#include "widgets/row_table.h"

namespace ui {

class MoveListTable : public RowTable {
  Q_OBJECT

 public:
  explicit MoveListTable(QWidget* parent = nullptr);

  /// Brings the table to the state of the list, without the signals of a user's choice. `topRow` is
  /// the first row that should be seen, from 1; the table scrolls there where another row is
  /// selected than at the last time.
  void ShowMoves(const board::MoveList& moves, int topRow);

  /// Chooses the move so many rows further down, as the user does; nothing where there is none.
  void Step(int rows);

  QSize sizeHint() const override { return {240, 160}; }

 Q_SIGNALS:
  /// The user has selected another row of the list, counting from 1.
  void RowChosen(int row);

 protected:
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void TakeForm(bool pairs);
  void ShowCell(int row, int column, const QString& text);
  void ShowNumber(int row, const board::MoveList& moves);
  void ShowEntry(int entry, const store::MoveRecord& move);
  void ScrollToTopRow();
  void Choose(int row, int column);
  QModelIndex CellOf(int entry) const;
  int EntryAt(int row, int column) const;

  bool pairs_ = false;
  int count_ = 0;  // of the entries
  int wheel_ = 0;  // turned, and short of a row yet
  bool updating_ = false;
  bool pressed_ = false;
  bool scrollPending_ = false;
  int selected_ = 0;  // as shown last, from 1
  int topRow_ = 1;
};

}  // namespace ui
