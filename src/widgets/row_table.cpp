// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/row_table.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QStyledItemDelegate>

#include "widgets/cut_text.h"

namespace ui {

namespace {

/// A selected row is seen by its colour: a rectangle round one of its cells would only dim the
/// text.
class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->state & QStyle::State_Selected) option->state &= ~QStyle::State_HasFocus;
  }
};

}  // namespace

void BecomeRowTable(QTableView& table, int rowPadding) {
  table.verticalHeader()->hide();
  table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + rowPadding);
  table.horizontalHeader()->setHighlightSections(false);
  table.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  table.horizontalHeader()->setSectionsClickable(false);
  table.setSelectionMode(QAbstractItemView::SingleSelection);
  table.setSelectionBehavior(QAbstractItemView::SelectRows);
  table.setEditTriggers(QAbstractItemView::NoEditTriggers);
  table.setTabKeyNavigation(false);
  table.setShowGrid(false);
  table.setWordWrap(false);
  table.setItemDelegate(new RowDelegate(&table));
}

RowTable::RowTable(const QStringList& headings, int rowPadding, QWidget* parent)
    : QTableWidget(0, static_cast<int>(headings.size()), parent), rowPadding_(rowPadding) {
  setHorizontalHeaderLabels(headings);
  BecomeRowTable(*this, rowPadding);
}

/// The skin's font may be another one than that of the desktop, which the heading would keep.
void RowTable::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange) {
    horizontalHeader()->setFont(font());
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + rowPadding_);
  }
  QTableWidget::changeEvent(event);
}

QModelIndex RowTable::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  // Alone they would go along the columns.
  if (action == MoveHome || action == MoveEnd) modifiers |= Qt::ControlModifier;
  return QTableWidget::moveCursor(action, modifiers);
}

/// A text that is cut shows as a whole when it is pointed at; elsewhere the table's own tip.
bool RowTable::viewportEvent(QEvent* event) {
  const bool asks = event->type() == QEvent::ToolTip;
  if (asks && ShowCutCell(*this, static_cast<const QHelpEvent&>(*event))) return true;
  return QTableWidget::viewportEvent(event);
}

}  // namespace ui
