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

TEST_F(TrayTest, TheIconTellsTheConnectionFirstAndThenTheGameFile) {
  const struct {
    const char* name;
    bool offline, standAlone;
    std::int16_t status;
    const char* shown;
  } rows[] = {
      {"nothing new", false, false, 2, "tray modify 1"},
      {"new move, or an open game against the computer", false, false, 1, "tray modify 2"},
      {"offline whatever the games are", true, false, 1, "tray modify 3"},
      {"offline doesn't count stand-alone", true, true, 1, "tray modify 2"},
  };
  for (const auto& row : rows) {
    Process().Offline = row.offline;
    Process().StandAlone = row.standAlone;
    Store(1, row.status);
    UpdateTrayStatus(TrayOperation::Modify);
    EXPECT_TRUE(Happened().starts_with(row.shown)) << row.name;
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

/// The games of the menu by number, in the groups that a heading or a gap begins.
std::string Games() {
  std::string all;
  for (const TrayGameEntry& entry : TrayGameEntries()) {
    if (entry.kind == TrayGameEntry::Heading) all += entry.caption.substr(0, 4);
    if (entry.kind == TrayGameEntry::Game) all += std::to_string(entry.gameID) + " ";
    if (entry.kind == TrayGameEntry::Gap) all += "/ ";
  }
  return all;
}

TEST_F(TrayTest, GamesStandInTheirGroups) {
  for (const int over : {3, 4, 6}) Store(over, static_cast<std::int16_t>(over));
  EXPECT_EQ(Games(), "");
  EXPECT_EQ(TrayGameEntries().size(), 1U) << "which says so";
  Store(10, 5, "Zoe");
  Store(11, 2, "Anna");
  Store(12, 1, "Anna", "", "01/03/2026");
  Store(13, 1, "Anna", "", "02/03/2026");
  EXPECT_EQ(Games(), "NEW 13 12 / AWAI11 10 ") << "a draw that was offered waits as a move does";
}

}  // namespace
}  // namespace shell
