// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/row_table.h"

#include <QHeaderView>

namespace ui {

RowTable::RowTable(const QStringList& headings, int rowPadding, QWidget* parent)
    : QTableWidget(0, static_cast<int>(headings.size()), parent) {
  setHorizontalHeaderLabels(headings);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  horizontalHeader()->setSectionsClickable(false);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  setShowGrid(false);
}

QModelIndex RowTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  // Alone they would go along the columns.
  if (action == MoveHome || action == MoveEnd) modifiers |= Qt::ControlModifier;
  return QTableWidget::moveCursor(action, modifiers);
}

}  // namespace ui
