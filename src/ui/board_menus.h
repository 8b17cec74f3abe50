// SPDX-License-Identifier: GPL-3.0-or-later
// The two menus that the right mouse button opens on the Board window.
#pragma once

#include <QMenu>

#include <functional>
#include <memory>

#include "board/board.h"

namespace ui {

/// `mnuActionsMenu`. The entries call `click` with a button of the action bar.
std::unique_ptr<QMenu> NewActionsMenu(const board::Board& board, std::function<void(int)> click);

struct HistoryActions {
  std::function<void()> toggleHilight;
  std::function<void(int row)> select;
};

/// `mnuHistoryMenu`.
std::unique_ptr<QMenu> NewHistoryMenu(const board::Board& board, const HistoryActions& actions);

}  // namespace ui
