// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/interface_menus.h"

#include <QActionGroup>
#include <QKeySequence>

#include "platform/process_state.h"

namespace ui {

namespace {

constexpr MenuEntry fileEntries[] = {
    {entries::Retrieve, "Retrieve games"},
    {entries::Import, "Import game"},
    {entries::Options, "Options..."},
    {entries::MailAccount, "Mail account..."},
    {entries::HeldMails, "Mails set aside..."},
    {4, "-"},
    {5, "-"},
    {entries::PrintGame, "Print game..."},
    {entries::PrintNotation, "Print game notation..."},
    {entries::HideSeparator, "-"},
    {entries::HideInterface, "Hide interface"},
    {10, "-"},
    {entries::Exit, "Exit Tarvolenix"},
};

constexpr MenuEntry sortEntries[] = {
    {entries::ByStatus, "Game status"},
    {1, "Opponents name"},
    {2, "Game title"},
    {entries::ByDate, "First move date"},
    {4, "-"},
    {entries::Ascending, "Ascending"},
    {entries::Descending, "Descending"},
};

constexpr MenuEntry gameEntries[] = {
    {entries::New, "New game..."},    {entries::NewSetup, "New setup game..."}, {2, "-"},
    {entries::Play, "Play selected"}, {entries::Delete, "Delete selected"},
};

constexpr MenuEntry helpEntries[] = {
    {entries::Contents, "Contents"}, {entries::Index, "Index..."},
    {entries::HelpEntry, "Help"},    {3, "-"},
    {entries::About, "About..."},
};

constexpr MenuEntry popupEntries[] = {
    {entries::PopupPlay, "Play selected game"},
    {entries::PopupDelete, "Delete selected game..."},
    {2, "-"},
    {entries::PopupPrint, "Print selected game..."},
};

// Until the windows behind them are there.
constexpr bool printingIsThere = false;
constexpr bool optionsAreThere = false;

/// One of the entries is checked, as a radio button is.
void MakeExclusive(IndexedMenu& menu, int first, int last) {
  auto* group = new QActionGroup(&menu);
  for (int index = first; index <= last; ++index) {
    menu.Entry(index).setCheckable(true);
    group->addAction(&menu.Entry(index));
  }
}

}  // namespace

InterfaceMenus::InterfaceMenus(const std::function<void(InterfaceMenu menu, int index)>& choose)
    : menus_{
          {"mnuIntFileMenu", fileEntries, [choose](int index) { choose(FileMenu, index); }},
          {"mnuIntSortMenu", sortEntries, [choose](int index) { choose(SortMenu, index); }},
          {"mnuIntGameMenu", gameEntries, [choose](int index) { choose(GameMenu, index); }},
          {"mnuIntHelpMenu", helpEntries, [choose](int index) { choose(HelpMenu, index); }},
          {"mnuIntGameListPopupMenu", popupEntries,
           [choose](int index) { choose(GameListPopup, index); }},
      } {
  for (const IndexedMenu& menu : menus_) {
    // A tick mustn't refill the list below an open menu.
    QObject::connect(&menu, &QMenu::aboutToShow, [] { platform::Process().TrayMenuOpen = true; });
    QObject::connect(&menu, &QMenu::aboutToHide, [] { platform::Process().TrayMenuOpen = false; });
  }
  MakeExclusive(menus_[SortMenu], entries::ByStatus, entries::ByDate);
  MakeExclusive(menus_[SortMenu], entries::Ascending, entries::Descending);
  CheckSort(1, false);
  ShowHelpEntry(false);
  menus_[HelpMenu].Entry(entries::HelpEntry).setShortcut(QKeySequence(Qt::Key_F1));
  menus_[FileMenu].SetEnabled({entries::Options}, optionsAreThere);
  menus_[GameListPopup].SetEnabled({entries::PopupPrint}, printingIsThere);
  EnableGameEntries(false);
  EnableNewGames(false);
}

void InterfaceMenus::EnableGameEntries(bool anyGame) {
  menus_[GameMenu].SetEnabled({entries::Play, entries::Delete}, anyGame);
  menus_[FileMenu].SetEnabled({entries::PrintGame, entries::PrintNotation},
                              anyGame && printingIsThere);
}

void InterfaceMenus::EnableNewGames(bool enabled) {
  menus_[GameMenu].SetEnabled({entries::New, entries::NewSetup}, enabled);
}

void InterfaceMenus::CheckSort(int column, bool descending) {
  menus_[SortMenu].Entry(entries::ByStatus + column - 1).setChecked(true);
  menus_[SortMenu].Entry(descending ? entries::Descending : entries::Ascending).setChecked(true);
}

int InterfaceMenus::CheckedColumn() {
  for (int index = entries::ByStatus; index < entries::ByDate; ++index) {
    if (menus_[SortMenu].Entry(index).isChecked()) return index + 1;
  }
  return entries::ByDate + 1;
}

void InterfaceMenus::ShowHideEntry(bool visible) {
  menus_[FileMenu].Entry(entries::HideSeparator).setVisible(visible);
  menus_[FileMenu].Entry(entries::HideInterface).setVisible(visible);
}

}  // namespace ui
