// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/roomy_rows.h"

#include <QPainter>
#include <QWidget>

namespace ui {

QSize RoomyRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  return QStyledItemDelegate::sizeHint(option, index) + QSize(0, padding_);
}

void RoomyRows::paint(QPainter* painter, const QStyleOptionViewItem& option,
                      const QModelIndex& index) const {
  QStyleOptionViewItem inner = option;
  inner.state &= ~QStyle::State_HasFocus;
  option.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &inner, painter,
                                        option.widget);
  inner.rect.adjust(0, padding_ / 2, 0, -padding_ / 2);
  QStyledItemDelegate::paint(painter, inner, index);
}

}  // namespace ui
