// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/name_list.h"

#include <QSignalBlocker>

#include "widgets/shown_text.h"

namespace ui {

namespace {

constexpr int rowPadding = 6;

}  // namespace

NameList::NameList(const char* name, const QString& accessibleName, QWidget* page)
    : QListWidget(page) {
  setObjectName(QLatin1StringView(name));
  setAccessibleName(accessibleName);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideMiddle);
  setUniformItemSizes(false);  // a bold row may be higher
  connect(this, &QListWidget::itemSelectionChanged, this, &NameList::UserSelected);
}

void NameList::Clear() {
  const QSignalBlocker silent(this);
  clear();
}

void NameList::AddNames(const QStringList& names) {
  const QSignalBlocker silent(this);
  for (const QString& name : names) {
    auto* item = new QListWidgetItem(ShownLine(name), this);
    item->setData(Qt::UserRole, name);
    item->setSizeHint({0, fontMetrics().height() + rowPadding});
  }
  setCurrentItem(nullptr);
}

QListWidgetItem* NameList::Find(const QString& name) const {
  for (int row = 0; row < count(); ++row) {
    if (item(row)->data(Qt::UserRole).toString() == name) return item(row);
  }
  return nullptr;
}

bool NameList::Select(const QString& name) {
  const QSignalBlocker silent(this);
  QListWidgetItem* item = Find(name);
  if (!item) return false;
  setCurrentItem(item);
  scrollToItem(item, QAbstractItemView::PositionAtTop);
  return true;
}

bool NameList::Mark(const QString& name) {
  QListWidgetItem* item = Find(name);
  if (!item) return false;
  QFont bold = item->font();
  bold.setBold(true);
  item->setFont(bold);
  return Select(name);
}

QString NameList::Selected() const {
  const QListWidgetItem* item = currentItem();
  return item && item->isSelected() ? item->data(Qt::UserRole).toString() : QString();
}

}  // namespace ui
