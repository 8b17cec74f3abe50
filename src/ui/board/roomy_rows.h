// SPDX-License-Identifier: GPL-3.0-or-later
// Rows of a list whose texts take several lines, and keep apart from each other.
#pragma once

#include <QStyledItemDelegate>

namespace ui {

class RoomyRows : public QStyledItemDelegate {
  Q_OBJECT

 public:
  RoomyRows(int padding, QObject* parent) : QStyledItemDelegate(parent), padding_(padding) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  const int padding_;  // above and below a text, together
};

}  // namespace ui
