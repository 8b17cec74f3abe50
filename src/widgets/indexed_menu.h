// SPDX-License-Identifier: GPL-3.0-or-later
// A menu told as a table. Its entries are known by their index, and one function takes the index of
// the entry that the user chose.
#pragma once

#include <QMenu>

#include <functional>
#include <map>
#include <span>

namespace ui {

struct MenuEntry {
  int index;
  const char* caption;  ///< "-" is a separator
};

class IndexedMenu : public QMenu {
 public:
  using Choose = std::function<void(int index)>;

  IndexedMenu(const char* name, std::span<const MenuEntry> entries, const Choose& choose,
              QWidget* parent = nullptr);

  /// An entry or a separator of the table.
  QAction& Entry(int index) const { return *entries_.at(index); }

  void SetEnabled(std::initializer_list<int> indexes, bool enabled);

 private:
  std::map<int, QAction*> entries_;
};

}  // namespace ui
