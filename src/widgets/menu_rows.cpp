// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/menu_rows.h"

#include <QActionGroup>

#include <string_view>

namespace ui {

std::unique_ptr<QMenu> NewMenu(const char* name, const std::vector<MenuRow>& rows) {
  auto menu = std::make_unique<QMenu>();
  menu->setObjectName(QLatin1StringView(name));
  auto* neighbours = new QActionGroup(menu.get());
  for (const MenuRow& row : rows) {
    if (std::string_view(row.caption) == "-") {
      menu->addSeparator();
      neighbours = new QActionGroup(menu.get());
      continue;
    }
    QAction* entry = menu->addAction(QLatin1StringView(row.caption));
    entry->setEnabled(row.enabled);
    if (row.checked) {
      entry->setCheckable(true);
      neighbours->addAction(entry);
      entry->setChecked(*row.checked);
    }
    if (row.action) QObject::connect(entry, &QAction::triggered, menu.get(), row.action);
  }
  return menu;
}

}  // namespace ui
