// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/move_comparison.h"

#include <QHeaderView>

#include <algorithm>

#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

enum Column { Number, Stored, Received, Difference, lastColumn = Difference };

/// The mail says another thing, has less, or has more.
bool Parts(const platform::HeldMailQuestion::MoveRow& move) {
  return move.differs || move.stored.empty() != move.received.empty();
}

}  // namespace

MoveComparison::MoveComparison(const Moves& moves, QWidget* parent)
    : RowTable({u"No."_s, u"Yours"_s, u"In the mail"_s, {}}, 8, parent) {
  setAccessibleName(u"Your moves and those in the mail"_s);
  setWordWrap(false);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  horizontalHeader()->setSectionResizeMode(Number, QHeaderView::ResizeToContents);
  for (const auto& move : moves) AddMove(move);
  const auto parting = std::find_if(moves.begin(), moves.end(), Parts);
  if (parting != moves.end()) parting_ = static_cast<int>(parting - moves.begin());
  setCurrentCell(parting_, Stored);
}

void MoveComparison::AddMove(const Moves::value_type& move) {
  const int row = rowCount();
  insertRow(row);
  const QString texts[lastColumn + 1] = {QString::number(move.number), Shown(move.stored),
                                         Shown(move.received),
                                         move.differs ? u"differs"_s : QString()};
  QFont font;
  font.setBold(move.differs);
  for (int column = 0; column <= lastColumn; ++column) {
    auto* item = new QTableWidgetItem(texts[column]);
    item->setFont(font);
    setItem(row, column, item);
  }
  item(row, Number)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

/// The rows have their final height now.
void MoveComparison::showEvent(QShowEvent* event) {
  RowTable::showEvent(event);
  scrollTo(model()->index(parting_, Stored), PositionAtCenter);
}

}  // namespace ui
