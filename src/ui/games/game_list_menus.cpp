// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/games/game_list_menus.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "print/printing.h"
#include "shell/game_list.h"
#include "shell/mail_watch.h"
#include "shell/playing.h"
#include "shell/shut_down.h"
#include "ui/games/game_interface.h"
#include "ui/games/game_list_columns.h"
#include "widgets/menu_rows.h"

namespace ui {

using platform::Process;

namespace {

struct EntryKey {
  const char* caption;
  QKeyCombination key;
};
constexpr EntryKey entryKeys[] = {
    {"Retrieve games", Qt::Key_F5},
    {"Import game", Qt::CTRL | Qt::Key_I},
    {"Import PGN...", Qt::CTRL | Qt::SHIFT | Qt::Key_I},
    {"Save all games as PGN...", Qt::CTRL | Qt::SHIFT | Qt::Key_S},
    {"Copy game", Qt::CTRL | Qt::Key_C},
    {"Copy selected game", Qt::CTRL | Qt::Key_C},
    {"Save game as PGN...", Qt::CTRL | Qt::Key_S},
    {"Use games from another folder...", Qt::CTRL | Qt::Key_U},
    {"Deliver now", Qt::CTRL | Qt::Key_D},
    {"Options...", Qt::CTRL | Qt::Key_O},
    {"Mail account...", Qt::CTRL | Qt::Key_M},
    {"Mails set aside...", Qt::CTRL | Qt::SHIFT | Qt::Key_M},
    {"Print game...", Qt::CTRL | Qt::Key_P},
    {"Print selected game...", Qt::CTRL | Qt::Key_P},
    {"Print game notation...", Qt::CTRL | Qt::SHIFT | Qt::Key_P},
    {"Print travel sheet...", Qt::CTRL | Qt::SHIFT | Qt::Key_T},
    {"Print postcard...", Qt::CTRL | Qt::SHIFT | Qt::Key_C},
    {"Hide interface", Qt::CTRL | Qt::Key_W},
    {"Exit Tarvolenix", Qt::CTRL | Qt::Key_Q},
    {"Game status", Qt::CTRL | Qt::Key_1},
    {"Opponents name", Qt::CTRL | Qt::Key_2},
    {"Game title", Qt::CTRL | Qt::Key_3},
    {"First move date", Qt::CTRL | Qt::Key_4},
    {"Last move", Qt::CTRL | Qt::Key_5},
    {"Since", Qt::CTRL | Qt::Key_6},
    {"Ascending", Qt::CTRL | Qt::Key_7},
    {"Descending", Qt::CTRL | Qt::Key_8},
    {"New game...", Qt::CTRL | Qt::Key_N},
    {"New setup game...", Qt::CTRL | Qt::SHIFT | Qt::Key_N},
    {"Play selected", Qt::Key_Enter},
    {"Play selected game", Qt::Key_Enter},
    {"Delete selected", Qt::Key_Delete},
    {"Delete selected game...", Qt::Key_Delete},
    {"Undo delete", Qt::CTRL | Qt::Key_Z},
    {"Try again to send", Qt::CTRL | Qt::Key_T},
    {"Change address...", Qt::CTRL | Qt::SHIFT | Qt::Key_A},
    {"Contents", Qt::CTRL | Qt::Key_F1},
    {"Index...", Qt::SHIFT | Qt::Key_F1},
};

/// Of a menu itself; the ones within it are chosen there.
void GiveKeys(std::vector<MenuRow>& rows) {
  for (MenuRow& row : rows) {
    for (const EntryKey& entry : entryKeys) {
      if (row.caption == entry.caption) row.key = entry.key;
    }
  }
}

/// What a print of the selected game is chosen by.
std::function<void()> OnSelected(GameInterface& list, void (*printGame)(std::int32_t gameID)) {
  return [&list, printGame] {
    if (const auto gameID = list.SelectedGame()) printGame(*gameID);
  };
}

std::vector<MenuRow> FileRows(GameInterface& list, const OtherErrands& errands) {
  const bool prints = list.HasGames();
  std::vector<MenuRow> rows{
      {"Retrieve games", [&list] { list.GetGames(false); }},
      {"Import game", [&list] { list.GetGames(true); }},
      {.caption = "Import PGN...", .action = [&list] { list.ImportPgn(); }},
      {"Use games from another folder...", [&list] { list.UseOtherGames(); }},
      {"Deliver now",
       [] { shell::DeliverNow(); },
       shell::MayDeliverNow(),
       {},
       {},
       "No mail waits to be sent."},
      {"Options...", errands.openOptions},
      {"Look", {}, true, {}, errands.lookRows()},
      {"Mail account...", errands.changeAccount},
      {"Mails set aside...", errands.askAboutHeldMails},
      {"-"},
      {"Print game...", OnSelected(list, print::PrintGameBoards), prints, {}, {}, whyNoGame},
      {"Print game notation...", OnSelected(list, print::PrintMoveList), prints, {}, {}, whyNoGame},
      {"Print travel sheet...", [] { print::PrintTravelSheet(); }, prints, {}, {}, whyNoGame},
      {"Print postcard...", OnSelected(list, print::PrintPostcard), prints, {}, {}, whyNoGame},
      {"-"},
      {.caption = "Save all games as PGN...",
       .action = [&list] { list.SaveAllAsPgn(); },
       .enabled = prints,
       .whyNot = whyNoGame},
      {"-"},
  };
  // A program that doesn't live in the tray can't hide in it.
  if (platform::Settings().SystrayStartup) {
    rows.push_back({"Hide interface", [&list] { list.close(); }});
    rows.push_back({"-"});
  }
  rows.push_back({"Exit Tarvolenix", [] { shell::ExitFromGameList(); }});
  return rows;
}

/// What the list shows of its games.
std::vector<MenuRow> ViewRows(GameInterface& list) {
  std::vector<MenuRow> rows = ColumnRows([&list] { list.ShowColumns(); });
  bool& showsBoard = platform::Settings().ShowGamePreview;
  rows.push_back({"-"});
  rows.push_back({.caption = "Board of the game pointed at",
                  .action = [&showsBoard] { showsBoard = !showsBoard; },
                  .checked = showsBoard,
                  .isSwitch = true});
  return rows;
}

/// A column keeps the order, and an order the column.
std::vector<MenuRow> SortRows(GameInterface& list) {
  const std::int16_t column = Process().GameListSortColumn;
  const std::string order = Process().GameListSortOrder;
  const auto by = [&](const char* caption, std::int16_t number) {
    return MenuRow{caption, [&list, number, order] { list.FillGameList(number, order); }, true,
                   column == number};
  };
  const auto in = [&](const char* caption, const char* wanted) {
    const bool isDescending = *wanted != '\0';
    return MenuRow{caption, [&list, column, wanted] { list.FillGameList(column, wanted); }, true,
                   shell::IsDescending(order) == isDescending};
  };
  return {by("Game status", 1),
          by("Opponents name", 2),
          by("Game title", 3),
          by("First move date", 4),
          by("Last move", shell::LastMoveColumn),
          by("Since", shell::SinceColumn),
          {"-"},
          in("Ascending", ""),
          in("Descending", "DESC"),
          {"-"},
          {.caption = "Show", .rows = ViewRows(list)}};
}

std::vector<MenuRow> GameRows(GameInterface& list) {
  const bool mayStart = list.OffersMailGames();
  const auto start = [](bool fromSetup) {
    return [fromSetup] { shell::StartNewGame({.fromSetup = fromSetup, .fromGameList = true}); };
  };
  return {
      {"New game...", start(false), mayStart, {}, {}, shell::WhyNoMailGame()},
      {"New setup game...", start(true), mayStart, {}, {}, shell::WhyNoMailGame()},
      {"-"},
      {"Play selected", [&list] { list.PlayCurrentGame(); }, list.HasGames(), {}, {}, whyNoGame},
      {"Delete selected", [&list] { list.DeleteGame(); }, list.HasGames(), {}, {}, whyNoGame},
      {"Undo delete",
       [&list] { list.UndoDelete(); },
       !Process().DeletedGames.empty(),
       {},
       {},
       "No game has been deleted since the program began."},
      {"-"},
      {.caption = "Copy game",
       .action = [&list] { list.CopyGame(); },
       .enabled = list.HasGames(),
       .whyNot = whyNoGame},
      {.caption = "Save game as PGN...",
       .action = [&list] { list.SaveAsPgn(); },
       .enabled = list.HasGames(),
       .whyNot = whyNoGame},
      {"-"},
      {"Try again to send",
       [&list] { list.TryAgainToSend(); },
       list.MayTryAgain(),
       {},
       {},
       "No mail of the selected game waits or has failed."},
      {"Change address...",
       [&list] { list.ChangeAddress(); },
       list.MayChangeAddress(),
       {},
       {},
       "No game by mail is selected."}};
}

std::vector<MenuRow> HelpRows(const OtherErrands& errands) {
  platform::Help& help = *platform::TheSeams().help;
  std::vector<MenuRow> rows{
      {"Contents", [&help] { help.ShowHelp(platform::HelpContents); }},
      {"Index...", [&help] { help.ShowHelpIndex(); }},
  };
  if (platform::Settings().SimpleUI) {
    rows.push_back({"Help\tF1", [&help] {
                      help.ShowHelp(Process().BoardOpen ? platform::HelpOfBoard
                                                        : platform::HelpOfGameList);
                    }});
  }
  rows.push_back({"-"});
  rows.push_back({"About...", errands.showAbout});
  return rows;
}

std::vector<MenuRow> PopupRows(GameInterface& list) {
  return {{"Play selected game", [&list] { list.PlayCurrentGame(); }},
          {"Delete selected game...", [&list] { list.DeleteGame(); }},
          {"-"},
          {"Print selected game...", OnSelected(list, print::PrintGameBoards)},
          {.caption = "Copy selected game", .action = [&list] { list.CopyGame(); }}};
}

std::pair<const char*, std::vector<MenuRow>> NameAndRows(InterfaceMenu menu, GameInterface& list,
                                                         const OtherErrands& errands) {
  switch (menu) {
    case FileMenu:
      return {"mnuIntFileMenu", FileRows(list, errands)};
    case SortMenu:
      return {"mnuIntSortMenu", SortRows(list)};
    case GameMenu:
      return {"mnuIntGameMenu", GameRows(list)};
    case HelpMenu:
      return {"mnuIntHelpMenu", HelpRows(errands)};
    case GameListPopup:
      break;
  }
  return {"mnuIntGameListPopupMenu", PopupRows(list)};
}

}  // namespace

bool PressMenuKey(QKeyCombination key, GameInterface& list, const OtherErrands& errands) {
  if (std::ranges::find(entryKeys, key, &EntryKey::key) == std::end(entryKeys)) return false;
  for (const InterfaceMenu menu : {FileMenu, SortMenu, GameMenu, HelpMenu}) {
    std::vector<MenuRow> rows = NameAndRows(menu, list, errands).second;
    GiveKeys(rows);
    if (PressKey(rows, key)) return true;
  }
  return false;
}

std::unique_ptr<QMenu> NewInterfaceMenu(InterfaceMenu menu, GameInterface& list,
                                        const OtherErrands& errands) {
  auto [name, rows] = NameAndRows(menu, list, errands);
  GiveKeys(rows);
  auto opened = NewMenu(name, rows);
  // A tick mustn't refill the list below an open menu.
  QObject::connect(opened.get(), &QMenu::aboutToShow, [] { Process().TrayMenuOpen = true; });
  QObject::connect(opened.get(), &QMenu::aboutToHide, [] { Process().TrayMenuOpen = false; });
  return opened;
}

}  // namespace ui
