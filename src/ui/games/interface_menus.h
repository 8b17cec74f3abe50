// SPDX-License-Identifier: GPL-3.0-or-later
// The menus of the game list window: File, Sort, Game, Help, and the one that the right mouse
// button opens on a game. They live as long as the program; the window only pops them up.
#pragma once

#include <functional>

#include "widgets/indexed_menu.h"

namespace ui {

/// The menus by their place in `mnuInterfaceMenuBar`.
enum InterfaceMenu { FileMenu, SortMenu, GameMenu, HelpMenu, GameListPopup, interfaceMenuCount };

/// The entries that have something to do with one another, by their index.
namespace entries {
enum File {
  Retrieve = 0,
  Import = 1,
  Options = 2,
  MailAccount = 3,
  PrintGame = 6,
  PrintNotation = 7,
  HideSeparator = 8,
  HideInterface = 9,
  Exit = 11,
  HeldMails = 12
};
enum Sort { ByStatus = 0, ByDate = 3, Ascending = 5, Descending = 6 };
enum Game { New = 0, NewSetup = 1, Play = 3, Delete = 4 };
enum Help { Contents = 0, Index = 1, HelpEntry = 2, About = 4 };
enum Popup { PopupPlay = 0, PopupDelete = 1, PopupPrint = 3 };
}  // namespace entries

class InterfaceMenus {
 public:
  /// `choose` is called with the menu and the entry's index.
  explicit InterfaceMenus(const std::function<void(InterfaceMenu menu, int index)>& choose);

  IndexedMenu& Menu(InterfaceMenu menu) { return menus_[menu]; }

  /// What the list can do just now.
  void EnableGameEntries(bool anyGame);
  void EnableNewGames(bool enabled);

  /// Checks the column (1 to 4) and the order that the list is sorted by.
  void CheckSort(int column, bool descending);
  int CheckedColumn();
  bool IsDescending() { return menus_[SortMenu].Entry(entries::Descending).isChecked(); }

  /// A program that doesn't live in the tray can't hide in it.
  void ShowHideEntry(bool visible);
  void ShowHelpEntry(bool visible) {
    menus_[HelpMenu].Entry(entries::HelpEntry).setVisible(visible);
  }

 private:
  IndexedMenu menus_[interfaceMenuCount];
};

}  // namespace ui
