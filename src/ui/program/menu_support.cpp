// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/menu_support.h"

#include <utility>

#include "platform/desktop.h"
#include "platform/process_state.h"
#include "shell/playing.h"
#include "shell/shut_down.h"
#include "ui/games/game_interface.h"
#include "ui/program/program_windows.h"

namespace ui {

using platform::Process;

MenuSupport::MenuSupport(ProgramWindows& windows, InterfaceMenus& menus,
                         std::function<void()> changeAccount,
                         std::function<void()> askAboutHeldMails)
    : windows_(windows),
      menus_(menus),
      changeAccount_(std::move(changeAccount)),
      askAboutHeldMails_(std::move(askAboutHeldMails)) {}

void MenuSupport::Choose(InterfaceMenu menu, int index) {
  switch (menu) {
    case FileMenu:
      return FileClick(index);
    case SortMenu:
      return SortClick(index);
    case GameMenu:
      return GameClick(index);
    case HelpMenu:
      return HelpClick(index);
    case GameListPopup:
      return GameListPopupClick(index);
    case interfaceMenuCount:
      return;
  }
}

void MenuSupport::FileClick(int index) {
  switch (index) {
    case entries::Retrieve:
      return windows_.GameList()->GetGames(false);
    case entries::Import:
      return windows_.GameList()->GetGames(true);
    case entries::MailAccount:
      return changeAccount_();
    case entries::HeldMails:
      return askAboutHeldMails_();
    case entries::HideInterface:
      return windows_.CloseGameList();
    case entries::Exit:
      return shell::ExitFromGameList();
    default:
      return;
  }
}

/// A column keeps the order, and an order the column.
void MenuSupport::SortClick(int index) {
  const bool isColumn = index <= entries::ByDate;
  const int column = isColumn ? index + 1 : menus_.CheckedColumn();
  const bool descending = isColumn ? menus_.IsDescending() : index == entries::Descending;
  windows_.GameList()->FillGameList(static_cast<std::int16_t>(column), descending ? "DESC" : "");
}

void MenuSupport::GameClick(int index) {
  switch (index) {
    case entries::New:
    case entries::NewSetup:
      return shell::StartNewGame({.fromSetup = index == entries::NewSetup, .fromGameList = true});
    case entries::Play:
      return windows_.GameList()->PlayCurrentGame();
    case entries::Delete:
      return windows_.GameList()->DeleteGame();
    default:
      return;
  }
}

void MenuSupport::HelpClick(int index) {
  platform::Help& help = *platform::TheDesktop().help;
  switch (index) {
    case entries::Contents:
      return help.ShowHelp(platform::HelpContents);
    case entries::Index:
      return help.ShowHelpIndex();
    case entries::HelpEntry:
      return help.ShowHelp(Process().BoardOpen ? platform::HelpOfBoard : platform::HelpOfGameList);
    case entries::About:
      return windows_.ShowAbout();
    default:
      return;
  }
}

void MenuSupport::GameListPopupClick(int index) {
  switch (index) {
    case entries::PopupPlay:
      return windows_.GameList()->PlayCurrentGame();
    case entries::PopupDelete:
      return windows_.GameList()->DeleteGame();
    default:
      return;
  }
}

}  // namespace ui
