// SPDX-License-Identifier: GPL-3.0-or-later
// What the menu entries do: one routine for each menu takes the index of the entry that was chosen
// and calls the operation of the window that it belongs to.
#pragma once

#include <functional>

#include "ui/games/interface_menus.h"

namespace ui {

class ProgramWindows;

class MenuSupport {
 public:
  /// `changeAccount` leads to the dialog of the mail account, `askAboutHeldMails` to the questions
  /// about mails that were set aside.
  MenuSupport(ProgramWindows& windows, InterfaceMenus& menus, std::function<void()> changeAccount,
              std::function<void()> askAboutHeldMails);

  void Choose(InterfaceMenu menu, int index);

 private:
  void FileClick(int index);
  void SortClick(int index);
  void GameClick(int index);
  void HelpClick(int index);
  void GameListPopupClick(int index);

  ProgramWindows& windows_;
  InterfaceMenus& menus_;
  std::function<void()> changeAccount_;
  std::function<void()> askAboutHeldMails_;
};

}  // namespace ui
