// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/shell_fixture.h"
#include "shell/tray_games.h"
#include "shell/tray_status.h"

namespace shell {
namespace {

using platform::Process;
using platform::Settings;
using platform::TrayOperation;

using TrayTest = ShellFixture;

TEST_F(TrayTest, IconAndTipTellTheConnectionFirstAndThenTheGameFile) {
  const struct {
    const char* name;
    bool offline, standAlone;
    std::int16_t status;
    const char* shown;
  } rows[] = {
      {"nothing new", false, false, 2, "1 Tarvolenix - Nothing new"},
      {"new move, or an open game against the computer", false, false, 1,
       "2 Tarvolenix - New move arrived"},
      {"offline whatever the games are", true, false, 1, "3 Tarvolenix - Not connected"},
      {"offline doesn't count stand-alone", true, true, 1, "2 Tarvolenix - New move arrived"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Process().Offline = row.offline;
    Process().StandAlone = row.standAlone;
    Store(1, row.status);
    UpdateTrayStatus(TrayOperation::Modify);
    EXPECT_EQ(Happened(), std::string("tray modify ") + row.shown);
  }
}

TEST_F(TrayTest, PicturesCountThroughTheSetsAndTipsAreCut) {
  Settings().SysTrayIcons = 3;
  SetTrayIcon(TrayOperation::Add, NotConnected, std::string(80, 'x'));
  EXPECT_EQ(Happened(), "tray add 9 " + std::string(63, 'x'));
  Settings().SystrayStartup = false;
  SetTrayIcon(TrayOperation::Add, NotConnected, "Tarvolenix v1 - Not connected");
  RemoveTrayIcon();
  EXPECT_EQ(Happened(), "face 9 Tarvolenix : Not connected") << "a delete does nothing";
}

TEST_F(TrayTest, MenuFollowsConnectionAndGameList) {
  const struct {
    bool offline, standAlone, listOpen;
    bool open, newGame, games;
    const char* retrieve;
  } rows[] = {
      {false, false, false, true, true, true, "Retrieve games"},
      {true, false, false, true, false, true, "Logon / Retrieve games"},
      {true, true, false, true, true, true, "Logon / Retrieve games"},
      {false, false, true, false, false, false, "Retrieve games"},
  };
  for (const auto& row : rows) {
    Process().Offline = row.offline;
    Process().StandAlone = row.standAlone;
    Process().GameListOpen = row.listOpen;
    const TrayMenuState menu = TrayMenu();
    EXPECT_EQ(menu.open, row.open);
    EXPECT_EQ(menu.newGame, row.newGame);
    EXPECT_EQ(menu.games, row.games);
    EXPECT_EQ(menu.retrieveCaption, row.retrieve);
  }
}

std::string Entries() {
  constexpr const char* marks[] = {"", "= ", "(gap)", "", "- "};
  std::string all;
  for (const TrayGameEntry& entry : TrayGameEntries()) {
    all += marks[entry.kind] + entry.caption;
    if (entry.kind == TrayGameEntry::Game) all += " " + std::to_string(entry.gameID);
    all += "\n";
  }
  return all;
}

TEST_F(TrayTest, GamesStandInTheirGroups) {
  EXPECT_EQ(Entries(), "- No games available\n");
  for (const int over : {3, 4, 6}) Store(over, static_cast<std::int16_t>(over));
  EXPECT_EQ(Entries(), "- No games available\n");
  Store(10, 5, "Zoe");
  Store(11, 2, "Anna");
  const std::string waiting =
      "= AWAITING OPPONENTS MOVE\n-\nAnna\t\"Game 11\" 11\nZoe\t\"Game 10\" 10\n";
  EXPECT_EQ(Entries(), waiting) << "one group, though the status sorts first";
  Store(12, 1, "Anna", "", "01/03/2026");
  Store(13, 1, "Anna", "", "02/03/2026");
  EXPECT_EQ(Entries(),
            "= NEW ARRIVALS\n-\nAnna\t\"Game 13\" 13\nAnna\t\"Game 12\" 12\n(gap)\n" + waiting);
}

}  // namespace
}  // namespace shell
