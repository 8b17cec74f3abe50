// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/indexed_menu.h"

#include <QString>

#include <string_view>

namespace ui {

IndexedMenu::IndexedMenu(const char* name, std::span<const MenuEntry> entries, const Choose& choose,
                         QWidget* parent)
    : QMenu(parent) {
  setObjectName(QLatin1StringView(name));
  for (const MenuEntry& entry : entries) {
    const bool separates = std::string_view(entry.caption) == "-";
    QAction* action = separates ? addSeparator() : addAction(QLatin1StringView(entry.caption));
    entries_[entry.index] = action;
    if (!separates) {
      connect(action, &QAction::triggered, this, [choose, index = entry.index] { choose(index); });
    }
  }
}

void IndexedMenu::SetEnabled(std::initializer_list<int> indexes, bool enabled) {
  for (const int index : indexes) Entry(index).setEnabled(enabled);
}

}  // namespace ui
