// SPDX-License-Identifier: GPL-3.0-or-later
// The heading of the game list. The left mouse button on a column sorts by it upwards, the right
// one downwards, however often.
#pragma once

#include <QHeaderView>
#include <QIcon>

namespace ui {

class GameListHeading : public QHeaderView {
  Q_OBJECT

 public:
  explicit GameListHeading(QWidget* parent);

  /// The picture stands at the right end of that column alone.
  void ShowSortMark(int column, bool descending, const QIcon& mark);

  QSize sizeHint() const override;

 Q_SIGNALS:
  void SortWanted(int column, bool descending);

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  QIcon mark_;
};

}  // namespace ui
