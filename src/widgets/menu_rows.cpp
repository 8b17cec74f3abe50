// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/menu_rows.h"

#include <QActionGroup>

#include "platform/setting_variables.h"
#include "widgets/shown_text.h"

namespace ui {

namespace {

/// A "&" of a caption is meant.
QString CaptionOf(const MenuRow& row) {
  return ShownLine(row.caption).replace(u'&', QStringLiteral("&&"));
}

void Fill(QMenu& menu, const std::vector<MenuRow>& rows) {
  menu.setToolTipsVisible(platform::Settings().ShowToolTips);
  auto* neighbours = new QActionGroup(&menu);
  for (const MenuRow& row : rows) {
    if (row.caption == "-") {
      menu.addSeparator();
      neighbours = new QActionGroup(&menu);
      continue;
    }
    QAction* entry = row.rows.empty() ? menu.addAction(CaptionOf(row))
                                      : menu.addMenu(CaptionOf(row))->menuAction();
    if (!row.rows.empty()) Fill(*entry->menu(), row.rows);
    entry->setEnabled(row.enabled);
    entry->setShortcut(row.key);
    entry->setShortcutVisibleInContextMenu(true);
    if (!row.enabled) entry->setToolTip(Shown(row.whyNot));
    if (row.checked) {
      entry->setCheckable(true);
      if (!row.isSwitch) neighbours->addAction(entry);
      entry->setChecked(*row.checked);
    }
    if (row.action) QObject::connect(entry, &QAction::triggered, &menu, row.action);
  }
}

}  // namespace

bool PressKey(const std::vector<MenuRow>& rows, QKeyCombination key) {
  // The menus name both keys "Enter".
  if (key.key() == Qt::Key_Return) key = QKeyCombination(key.keyboardModifiers(), Qt::Key_Enter);
  for (const MenuRow& row : rows) {
    if (row.key != QKeySequence(key) || !row.enabled || !row.action) continue;
    row.action();
    return true;
  }
  return false;
}

std::unique_ptr<QMenu> NewMenu(const char* name, const std::vector<MenuRow>& rows) {
  auto menu = std::make_unique<QMenu>();
  menu->setObjectName(QLatin1StringView(name));
  Fill(*menu, rows);
  return menu;
}

}  // namespace ui
