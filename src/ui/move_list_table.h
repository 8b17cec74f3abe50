// SPDX-License-Identifier: GPL-3.0-or-later
// The table of the moves as the user sees it: number and move. Coordinates and comment are columns
// of it too, which are never shown.
#pragma once

#include <QTableWidget>

#include "board/move_list.h"

namespace ui {

class MoveListTable : public QTableWidget {
  Q_OBJECT

 public:
  explicit MoveListTable(QWidget* parent = nullptr);

  /// Brings the table to the state of the list, without the signals of a user's choice. `topRow` is
  /// the first row that should be seen, from 1.
  void ShowMoves(const board::MoveList& moves, int topRow);

  QSize sizeHint() const override { return {240, 160}; }

 Q_SIGNALS:
  /// The user has selected another row, counting from 1.
  void RowChosen(int row);

 private:
  bool updating_ = false;
};

}  // namespace ui
