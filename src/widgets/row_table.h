// SPDX-License-Identifier: GPL-3.0-or-later
// A table that is a list of rows to its user: one row is selected as a whole, nothing is edited,
// and Home and End lead to the first and the last row.
#pragma once

#include <QTableWidget>

namespace ui {

/// Makes any table such a list, but for those two keys. `rowPadding` is what a row is higher than
/// its text.
void BecomeRowTable(QTableView& table, int rowPadding);

class RowTable : public QTableWidget {
  Q_OBJECT

 public:
  RowTable(const QStringList& headings, int rowPadding, QWidget* parent = nullptr);

 protected:
  void changeEvent(QEvent* event) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  bool viewportEvent(QEvent* event) override;

 private:
  const int rowPadding_;
};

}  // namespace ui
