// SPDX-License-Identifier: GPL-3.0-or-later
// A table that is a list of rows to its user: one row is selected as a whole, nothing is edited,
// and Home and End lead to the first and the last row.
#pragma once

#include <QTableWidget>

namespace ui {

/// `rowPadding` is what a row is higher than its text.
/// Makes any table such a list, but for those two keys.
void BecomeRowTable(QTableView& table, int rowPadding);

class RowTable : public QTableWidget {
  Q_OBJECT

 public:
  RowTable(const QStringList& headings, int rowPadding, QWidget* parent = nullptr);

 protected:
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  bool viewportEvent(QEvent* event) override;
};

}  // namespace ui
