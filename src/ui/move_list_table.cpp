// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/move_list_table.h"

#include <QHeaderView>

#include "ui/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

enum Column { Coordinates, Number, Text, Comment, lastColumn = Comment };

}  // namespace

MoveListTable::MoveListTable(QWidget* parent) : QTableWidget(0, lastColumn + 1, parent) {
  setObjectName(u"MoveList"_s);
  setAccessibleName(u"History of previous moves"_s);
  setHorizontalHeaderLabels({u"Move Coordinates"_s, u"No."_s, u"Move"_s, u"Comment"_s});
  setColumnHidden(Coordinates, true);
  setColumnHidden(Comment, true);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  horizontalHeader()->setSectionResizeMode(Number, QHeaderView::ResizeToContents);
  horizontalHeader()->setSectionResizeMode(Text, QHeaderView::Stretch);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  horizontalHeader()->setSectionsClickable(false);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setTabKeyNavigation(false);
  setShowGrid(false);
  setContextMenuPolicy(Qt::CustomContextMenu);
  connect(this, &QTableWidget::currentCellChanged, this, [this](int row, int, int previous) {
    if (!updating_ && row >= 0 && row != previous) Q_EMIT RowChosen(row + 1);
  });
}

void MoveListTable::ShowMoves(const board::MoveList& moves, int topRow) {
  updating_ = true;
  const bool moved = rowCount() != moves.Count() || currentRow() != moves.Selected() - 1;
  setRowCount(moves.Count());
  for (int row = 0; row < moves.Count(); ++row) {
    const store::MoveRecord& move = moves.Row(row + 1);
    const QString texts[] = {Shown(move.MoveCoordinates), QString::number(move.MoveNumber),
                             Shown(move.MoveText), Shown(move.MoveComment)};
    for (int column = 0; column <= lastColumn; ++column) {
      if (!item(row, column)) setItem(row, column, new QTableWidgetItem);
      item(row, column)->setText(texts[column]);
    }
    item(row, Number)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (moved) {
    setCurrentCell(moves.Selected() - 1, Text);
    scrollTo(model()->index(topRow - 1, Text), PositionAtTop);
    scrollTo(currentIndex());
  }
  updating_ = false;
}

}  // namespace ui
