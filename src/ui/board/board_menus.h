// SPDX-License-Identifier: GPL-3.0-or-later
// The two menus of the Board window; the right mouse button opens them, too.
#pragma once

#include <QMenu>

#include <functional>
#include <memory>

#include "board/game.h"

namespace ui {

/// What the entries of the board's first menus call.
struct BoardActions {
  std::function<void(int button)> click;  ///< with a button of the action bar
  std::function<void()> offerDraw;
  std::function<void()> openOptions;
  std::function<void()> print = {};  ///< the board as it is shown; not while it is set up

  std::function<void()> Click(int button) const {
    return [click = click, button] { click(button); };
  }
};

/// `mnuActionsMenu`, the board during play.
std::unique_ptr<QMenu> NewActionsMenu(const board::Game& board, const BoardActions& actions);

/// `mnuSetupMenu`, the board while a position is set up.
std::unique_ptr<QMenu> NewSetupMenu(const board::Game& board, const BoardActions& actions);

/// `mnuPiecePalleteMenu`, whose one entry calls `remove`.
std::unique_ptr<QMenu> NewPiecePalleteMenu(const std::function<void()>& remove);

struct HistoryActions {
  std::function<void()> toggleHilight;
  std::function<void(int row)> select;
};

/// `mnuHistoryMenu`.
std::unique_ptr<QMenu> NewHistoryMenu(const board::Game& board, const HistoryActions& actions);

}  // namespace ui
