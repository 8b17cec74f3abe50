// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/heuristics_list.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

#include "ui/options/legible_blue.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

enum Column { Heading, Name, BeforeCurrent, Current, BeforeNew, New, columns };

/// In twips, of which the list is as wide as its window has room for.
constexpr int columnWidths[] = {350, 3000, 1000, 500, 1000, 500};
constexpr int widthOfAll = 6350;

constexpr int roomOfRow = 4;
constexpr int captionMargin = 5;

bool IsHeading(int row) { return row > 0 && ai::HeuristicOnRow(row) < 0; }

int HeadingAbove(int row) { return ai::heuristicRows[static_cast<std::size_t>(row)].under; }

int WidthOfCaption(const QHeaderView& heading, int column) {
  const QString caption = heading.model()->headerData(column, Qt::Horizontal).toString();
  return heading.fontMetrics().horizontalAdvance(caption) + 2 * captionMargin;
}

/// The captions of the values stand over two columns, and begin still earlier where those are too
/// narrow: there is nothing above the ends of the names.
class PairedHeading : public QHeaderView {
 public:
  explicit PairedHeading(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override {
    if (section < BeforeCurrent) QHeaderView::paintSection(painter, rect, section);
    if (section == Name) section = BeforeCurrent;
    if (section < BeforeCurrent) return;
    const int first = section - section % 2;
    QHeaderView::paintSection(painter, PlaceOfCaption(first, rect), first);
  }

 private:
  QRect PlaceOfCaption(int first, QRect place) const {
    int end = sectionViewportPosition(first + 1) + sectionSize(first + 1);
    if (first == BeforeCurrent) end = std::min(end, PlaceOfCaption(BeforeNew, place).left());
    const int width =
        std::max(sectionSize(first) + sectionSize(first + 1), WidthOfCaption(*this, first));
    place.setLeft(end - width);
    place.setWidth(width);
    return place;
  }
};

/// A value too long for its column stands closer.
void Condense(QStyleOptionViewItem& option) {
  const int margin = option.widget->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
  const int room = option.rect.width() - 2 * margin;
  const int excess = QFontMetrics(option.font).horizontalAdvance(option.text) + 1 - room;
  if (excess <= 0) return;
  option.font.setLetterSpacing(QFont::AbsoluteSpacing,
                               -excess / static_cast<qreal>(option.text.size()));
  option.fontMetrics = QFontMetrics(option.font);
}

class HeuristicsDelegate : public QStyledItemDelegate {
 public:
  explicit HeuristicsDelegate(HeuristicsList& list) : QStyledItemDelegate(&list), list_(list) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    // The row is selected, not the cell.
    if (option->state & QStyle::State_Selected) option->state &= ~QStyle::State_HasFocus;
    if (IsHeading(index.row())) {
      option->text = (list_.IsFolded(index.row()) ? u"▸ "_s : u"▾ "_s) + option->text;
      if (HeadingAbove(index.row()) > 0) option->text.prepend(u"    "_s);
      return;
    }
    if (index.column() == Current || index.column() == New) Condense(*option);
    if (index.column() == New && option->font.bold()) {
      QPalette& palette = option->palette;
      palette.setColor(QPalette::Text, LegibleBlue(palette.color(QPalette::Base)));
      palette.setColor(QPalette::HighlightedText, LegibleBlue(palette.color(QPalette::Highlight)));
    }
  }

 private:
  const HeuristicsList& list_;
};

}  // namespace

HeuristicsList::HeuristicsList(QWidget* parent)
    : RowTable(QStringList(columns, {}), roomOfRow, parent) {
  setHorizontalHeader(new PairedHeading(this));
  BecomeRowTable(*this, roomOfRow);
  horizontalHeader()->setMinimumSectionSize(1);
  setHorizontalHeaderLabels(
      {{}, u"Heuristic"_s, u"Current Motivation"_s, {}, u"New Motivation"_s, {}});
  for (const int column : {BeforeCurrent, BeforeNew}) {
    horizontalHeaderItem(column)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }
  setItemDelegate(new HeuristicsDelegate(*this));
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerPixel);
  setRowCount(ai::heuristicRowCount);
  hideRow(0);
  for (int row = 1; row < ai::heuristicRowCount; ++row) FillRow(row);
  connect(this, &QTableWidget::currentCellChanged, this, [this](int row, int, int previous) {
    if (row != previous) Q_EMIT RowSelected();
  });
  connect(this, &QTableWidget::cellDoubleClicked, this, [this](int row) {
    if (IsHeading(row)) {
      SetFolded(row, !IsFolded(row));
    } else {
      Q_EMIT DropWanted(row);
    }
  });
}

void HeuristicsList::FillRow(int row) {
  for (int column = 0; column < columns; ++column) setItem(row, column, new QTableWidgetItem);
  const QString text = QString::fromUtf8(ai::heuristicRows[static_cast<std::size_t>(row)].text);
  if (IsHeading(row)) {
    QFont bold = item(row, Heading)->font();
    bold.setBold(true);
    item(row, Heading)->setFont(bold);
    item(row, Heading)->setText(text);
    setSpan(row, Heading, 1, columns);
    return;
  }
  item(row, Name)->setText(text);
  setSpan(row, Name, 1, 2);  // the longest have no room in one
  for (const int column : {Current, New}) {
    item(row, column)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  }
}

void HeuristicsList::Fill(const ai::HeuristicTable& table) {
  for (int row = 1; row < ai::heuristicRowCount; ++row) {
    SetNewValue(row, std::nullopt);
    MarkNewValue(row, false);
    const int index = ai::HeuristicOnRow(row);
    if (index >= 0) SetCurrentValue(row, table[static_cast<std::size_t>(index)]);
  }
  folded_.reset();
  ShowRows();
  SelectRow(ai::firstHeuristicRow);
}

void HeuristicsList::SelectRow(int row) {
  for (int heading = HeadingAbove(row); heading > 0; heading = HeadingAbove(heading)) {
    SetFolded(heading, false);
  }
  setCurrentCell(row, Name);
}

std::optional<int> HeuristicsList::CurrentValue(int row) const {
  if (ai::HeuristicOnRow(row) < 0) return std::nullopt;
  return item(row, Current)->text().toInt();
}

std::optional<int> HeuristicsList::NewValue(int row) const {
  if (ai::HeuristicOnRow(row) < 0 || item(row, New)->text().isEmpty()) return std::nullopt;
  return item(row, New)->text().toInt();
}

void HeuristicsList::SetCurrentValue(int row, int value) {
  item(row, Current)->setText(QString::number(value));
}

void HeuristicsList::SetNewValue(int row, std::optional<int> value) {
  item(row, New)->setText(value ? QString::number(*value) : QString());
}

void HeuristicsList::MarkNewValue(int row, bool marked) {
  QFont font = item(row, New)->font();
  font.setBold(marked);
  item(row, New)->setFont(font);
}

void HeuristicsList::SetFolded(int heading, bool folded) {
  folded_[static_cast<std::size_t>(heading)] = folded;
  // What is selected stays in sight.
  int seen = Row();
  for (int above = seen; above > 0; above = HeadingAbove(above)) {
    if (above != Row() && IsFolded(above)) seen = above;
  }
  if (seen != Row()) setCurrentCell(seen, Heading);
  ShowRows();
}

bool HeuristicsList::IsFoldedAway(int row) const {
  for (int above = HeadingAbove(row); above > 0; above = HeadingAbove(above)) {
    if (IsFolded(above)) return true;
  }
  return false;
}

void HeuristicsList::ShowRows() {
  for (int row = 1; row < ai::heuristicRowCount; ++row) {
    setRowHidden(row, IsFoldedAway(row));
    if (!IsHeading(row)) continue;
    QTableWidgetItem& heading = *item(row, Heading);
    heading.setData(Qt::AccessibleTextRole,
                    heading.text() + (IsFolded(row) ? u", folded"_s : u", open"_s));
  }
}

/// Whether the key means something on the row.
bool HeuristicsList::ActOn(int row, int key) {
  const bool heading = IsHeading(row);
  switch (key) {
    case Qt::Key_Left:
      if (heading && !IsFolded(row)) {
        SetFolded(row, true);
      } else if (HeadingAbove(row) > 0) {
        setCurrentCell(HeadingAbove(row), Heading);
      }
      return true;
    case Qt::Key_Right:
      if (heading && IsFolded(row)) {
        SetFolded(row, false);
      } else if (heading) {
        setCurrentCell(row + 1, Heading);
      }
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (heading) SetFolded(row, !IsFolded(row));
      return heading;
    case Qt::Key_Delete:
      if (!heading) Q_EMIT DropWanted(row);
      return true;
    default:
      return false;
  }
}

/// The last caption has no room but its own two columns.
QSize HeuristicsList::minimumSizeHint() const {
  const int twips = columnWidths[BeforeNew] + columnWidths[New];
  const int inside = WidthOfCaption(*horizontalHeader(), BeforeNew) * widthOfAll / twips;
  return {inside + verticalScrollBar()->sizeHint().width() + 2 * frameWidth(),
          RowTable::minimumSizeHint().height()};
}

void HeuristicsList::keyPressEvent(QKeyEvent* event) {
  if (Row() <= 0 || !ActOn(Row(), event->key())) RowTable::keyPressEvent(event);
}

void HeuristicsList::resizeEvent(QResizeEvent* event) {
  RowTable::resizeEvent(event);
  for (int column = 0; column < columns; ++column) {
    setColumnWidth(column, viewport()->width() * columnWidths[column] / widthOfAll);
  }
}

}  // namespace ui
