// SPDX-License-Identifier: GPL-3.0-or-later
// The menus of the game list window: File, Sort, Game, Help, and the one that the right mouse
// button opens on a game.
#pragma once

#include <QMenu>

#include <functional>
#include <memory>
#include <vector>

#include "widgets/menu_rows.h"

namespace ui {

class GameInterface;

// What is waited for where something of the list can't be done.
inline constexpr const char* whyNoGame = "Works once there is a game in the list.";

/// What the list does by keys, with no menu open.

/// The menus by their place in `mnuInterfaceMenuBar`.
enum InterfaceMenu { FileMenu, SortMenu, GameMenu, HelpMenu, GameListPopup };

/// What is no business of the list. Nothing of it may be null.
struct OtherErrands {
  /// Shows a menu at a place of the screen, and keeps it: what is chosen there may close the list.
  std::function<void(std::unique_ptr<QMenu> menu, QPoint place)> popUp;
  std::function<void()> changeAccount;
  std::function<void()> askAboutHeldMails;
  std::function<void()> showAbout;
  std::function<void()> openOptions;
  std::function<std::vector<MenuRow>()> lookRows;
};

/// As the list can be used just now. The list must outlive the menu.
std::unique_ptr<QMenu> NewInterfaceMenu(InterfaceMenu menu, GameInterface& list,
                                        const OtherErrands& errands);

/// Does what the entry of that key does. False where there is none, or it can't be chosen now. The
/// list may be gone afterwards.
bool PressMenuKey(QKeyCombination key, GameInterface& list, const OtherErrands& errands);

}  // namespace ui
