// SPDX-License-Identifier: GPL-3.0-or-later
// A menu told as a table. It is made anew each time that it opens, so that its rows say what can be
// done then.
#pragma once

#include <QKeySequence>
#include <QMenu>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ui {

struct MenuRow {
  std::string caption;  ///< "-" is a separator
  std::function<void()> action = {};
  bool enabled = true;
  std::optional<bool> checked = {};  ///< one of its neighbours, up to the next separator, is
  std::vector<MenuRow> rows = {};    ///< of a menu of its own that it opens
  std::string whyNot = {};           ///< what a row that isn't enabled waits for
  QKeySequence key = {};             ///< a key combination that does the same, see PressKey
  bool isSwitch = false;             ///< `checked` is its own, whatever its neighbours are
};

/// Does what the row of that key does. False where there is none, or it can't be chosen.
bool PressKey(const std::vector<MenuRow>& rows, QKeyCombination key);

std::unique_ptr<QMenu> NewMenu(const char* name, const std::vector<MenuRow>& rows);

}  // namespace ui
