// SPDX-License-Identifier: GPL-3.0-or-later
// The two menus of the Board window; the right mouse button opens them, too.
#pragma once

#include <functional>
#include <memory>

#include "board/board.h"
#include "ui/indexed_menu.h"

namespace ui {

/// `mnuActionsMenu`. The entries call `click` with a button of the action bar.
std::unique_ptr<IndexedMenu> NewActionsMenu(const board::Board& board,
                                            std::function<void(int)> click);

struct HistoryActions {
  std::function<void()> toggleHilight;
  std::function<void(int row)> select;
};

/// `mnuHistoryMenu`.
std::unique_ptr<IndexedMenu> NewHistoryMenu(const board::Board& board,
                                            const HistoryActions& actions);

}  // namespace ui
