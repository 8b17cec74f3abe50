// SPDX-License-Identifier: GPL-3.0-or-later
// What stands in the menus of the Board window. Each entry shows the key that does the same.
#pragma once

#include <QMenu>

#include <functional>
#include <memory>

#include "board/game.h"
#include "widgets/menu_rows.h"

namespace ui {

/// What the entries call.
struct BoardActions {
  std::function<void(int button)> click;  ///< with a button of the action bar
  std::function<void()> offerDraw;
  std::function<void()> openOptions;
  std::function<void()> print = {};  ///< the board as it is shown; not while it is set up
  std::function<void()> toggleHilight = {};
  std::function<void(int row)> select = {};
  std::function<void()> showConversation = {};
  std::function<void()> copyPosition = {};
  std::function<void()> copyImage = {};
  std::function<void()> pastePosition = {};  ///< while a position is set up
  std::function<void()> copyGame = {};
  std::function<void()> saveGame = {};  ///< into a file for other programs
  std::function<void()> tryMoves = {};  ///< and the notes; none where nothing can be kept of it
  std::function<void()> showNotes = {};
  std::function<void()> askWhy = {};

  std::function<void()> Click(int button) const {
    return [click = click, button] { click(button); };
  }
};

/// The board during play, and while a position is set up.
std::vector<MenuRow> ActionsRows(const board::Game& board, const BoardActions& actions);
std::vector<MenuRow> SetupRows(const board::Game& board, const BoardActions& actions);

/// Of the moves. Not while a position is set up.
std::vector<MenuRow> HistoryRows(const board::Game& board, const BoardActions& actions);

/// `mnuSetupMenu` while a position is set up, else `mnuActionsMenu`.
std::unique_ptr<QMenu> NewActionsMenu(const board::Game& board, const BoardActions& actions);

/// `mnuHistoryMenu`.
std::unique_ptr<QMenu> NewHistoryMenu(const board::Game& board, const BoardActions& actions);

/// `mnuPiecePalleteMenu`, whose one entry calls `remove`.
std::unique_ptr<QMenu> NewPiecePalleteMenu(const std::function<void()>& remove);

}  // namespace ui
