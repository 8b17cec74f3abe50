// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/game_list_heading.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

#include "skin/window_region.h"

namespace ui {

namespace {
constexpr int lowest = 270 / twipsPerPixel;
constexpr int textMargin = 5;
constexpr int markSize = 16;
constexpr int markMargin = 4;
}  // namespace

GameListHeading::GameListHeading(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setObjectName(QStringLiteral("Heading"));
  setSectionResizeMode(Fixed);
  setHighlightSections(false);
  setMinimumSectionSize(0);
  setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  setTextElideMode(Qt::ElideRight);
}

void GameListHeading::ShowSortMark(int column, bool descending, const QIcon& mark) {
  // The toolkit's own mark isn't shown: it only remembers.
  setSortIndicator(column, descending ? Qt::DescendingOrder : Qt::AscendingOrder);
  mark_ = mark;
  viewport()->update();
}

QSize GameListHeading::sizeHint() const {
  const QSize hint = QHeaderView::sizeHint();
  return {hint.width(), std::max(lowest, fontMetrics().height() + 2 * textMargin)};
}

void GameListHeading::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const {
  if (logicalIndex != sortIndicatorSection()) {
    return QHeaderView::paintSection(painter, rect, logicalIndex);
  }
  QStyleOptionHeader section;
  initStyleOption(&section);
  initStyleOptionForIndex(&section, logicalIndex);
  section.rect = rect;
  style()->drawControl(QStyle::CE_HeaderSection, &section, painter, this);
  section.rect.adjust(0, 0, -markMargin - markSize, 0);  // the text keeps clear of the mark
  style()->drawControl(QStyle::CE_HeaderLabel, &section, painter, this);
  mark_.paint(painter, rect.right() + 1 - markMargin - markSize,
              rect.center().y() - markSize / 2 + 1, markSize, markSize);
}

void GameListHeading::mouseReleaseEvent(QMouseEvent* event) {
  QHeaderView::mouseReleaseEvent(event);
  const bool right = event->button() == Qt::RightButton;
  if (!right && event->button() != Qt::LeftButton) return;
  const QPoint place = event->position().toPoint();
  const int column = rect().contains(place) ? logicalIndexAt(place) : -1;
  if (column >= 0) Q_EMIT SortWanted(column, right);
}

/// The right button sorts; the grid's menu is for its games.
void GameListHeading::contextMenuEvent(QContextMenuEvent* event) { event->accept(); }

}  // namespace ui
