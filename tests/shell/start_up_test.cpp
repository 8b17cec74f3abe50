// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/start_up.h"

#include "shell/game_file_check.h"
#include "shell/shell_fixture.h"
#include "shell/shut_down.h"

namespace shell {
namespace {

using platform::Process;
using platform::Settings;

class StartUpTest : public ShellFixture {
 protected:
  StartUpTest() {
    Setting("DisplaySplash") = "False";
    Setting("RunBefore") = "True";
  }

  /// The windows and the tray icon that came.
  std::string Came() { return Happened({"splash", "game list", "tray add", "message", "notify"}); }
};

TEST_F(StartUpTest, TheProgramComesInTheTrayOrAsItsListOrBehindTheSplashWindow) {
  const struct {
    const char* splash;
    const char* tray;
    const char* came;
  } rows[] = {
      {"False", "True", "tray add 1 Tarvolenix - Nothing new"},
      {"False", "False", "game list"},
      {"True", "True", "splash"},
  };
  for (const auto& row : rows) {
    Process() = {};
    Setting("DisplaySplash") = row.splash;
    Setting("SystrayStartup") = row.tray;
    if (*row.splash == 'T') MoveArrives();
    EXPECT_TRUE(StartUp());
    EXPECT_EQ(Came(), row.came);
    EXPECT_TRUE(Process().StartupComplete);
    EXPECT_EQ(Process().CheckTimer.Enabled, *row.splash == 'F');
  }
  desktop.windows.choices = {platform::NotifyChoice::Later};
  HandOver();
  EXPECT_EQ(Came(), "tray add 2 Tarvolenix - New move arrived, notify Anna/Game 7/Hi/last");
  EXPECT_TRUE(Process().CheckTimer.Enabled && !Process().CheckTimerHeld);
}

TEST_F(StartUpTest, AnAbortSavesNothingAndShowsNothingMore) {
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"settings that can't be read", [this] { desktop.settings.unreadable = true; }},
      {"skin", [this] { desktop.windows.refusing = {"skin"}; }},
      {"second instance", [this] { desktop.screen.anotherInstance = true; }},
      {"motivations that are too few", [this] { Setting("Heuristics") = "1;2"; }},
      {"splash window", [this] { desktop.windows.failing = {"splash"}; }},
  };
  Setting("DisplaySplash") = "True";
  for (const auto& [name, trouble] : rows) {
    SCOPED_TRACE(name);
    Process() = {};
    Setting("Heuristics") = "";
    desktop.screen.anotherInstance = desktop.settings.unreadable = false;
    desktop.windows.refusing = desktop.windows.failing = {};
    trouble();
    const auto stored = desktop.settings.groups;
    EXPECT_FALSE(StartUp());
    EXPECT_EQ(Happened({"sign on", "tray", "game list", "stopped"}), "stopped");
    EXPECT_TRUE(Process().ShuttingDown);
    EXPECT_EQ(desktop.settings.groups, stored);
  }
}

TEST_F(StartUpTest, WithoutItsOneWindowTheProgramDoesNotRunUnseen) {
  Setting("SystrayStartup") = "False";
  desktop.windows.lacking = {"game list"};
  EXPECT_FALSE(StartUp());
  EXPECT_EQ(Came(), "game list, message Initialisation error");
  EXPECT_TRUE(Process().Stopping && !Process().StartupComplete);
}

TEST_F(StartUpTest, MendedSettingsAreToldAndTheLogonThatTheyRememberIsOver) {
  desktop.settings.mended = "damaged";
  Setting("LogonStatus") = "True";
  EXPECT_TRUE(StartUp());
  EXPECT_EQ(desktop.boxes.plainBoxes.at(0).second, "damaged");
  EXPECT_FALSE(Process().Offline);
}

TEST_F(StartUpTest, ASessionThatEndsDuringTheStartEndsIt) {
  Setting("RunBefore") = "False";
  desktop.boxes.whileUp = ExitProgram;
  EXPECT_FALSE(StartUp());
  EXPECT_EQ(Came(), "message Versions prior to v3.0.0");
  EXPECT_EQ(Setting("RunBefore"), "False") << "he may not have read it";
}

TEST_F(StartUpTest, ADamagedGameFileIsRepairedAsTheUserChooses) {
  const std::string file = Process().DataPath + "Tvgdb.dat";
  Store(1, 2);
  const std::string one = desktop.files.content[file];
  Store(2, 2);
  const std::string both = desktop.files.content[file];
  const struct {
    const char* name;
    std::string damaged;
    std::string backup;
    std::deque<bool> answers;
    std::string after;
  } rows[] = {
      {"later", one + "x", both, {false}, one + "x"},
      {"the backup has more games", one + "x", both, {true, true}, both},
      {"the damaged file all the same", one + "x", both, {true, false, true}, one},
      {"Escape wherever a source is asked for", one + "x", both, {true, false, false}, one + "x"},
      {"the damaged file has as many", both + "x", both, {true, true}, both},
      {"no good backup", one + "x", "x", {true}, one},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    desktop.files.content = {{file, row.damaged}, {Process().DataPath + "tvgdb.bak", row.backup}};
    desktop.boxes.answers = row.answers;
    CheckGameFile();
    EXPECT_EQ(desktop.files.content[file], row.after);
    EXPECT_TRUE(desktop.boxes.answers.empty());
  }
}

TEST_F(StartUpTest, DisplayChecksForceThePlainLook) {
  const struct {
    const char* name;
    platform::DisplaySettings display;
    const char* options;
    std::size_t told;
  } rows[] = {
      {"untold", {}, "", 0},
      {"narrow", {"96", "96", "799,1200", 32}, "", 1},
      {"dots in Y alone", {"96", "97", "1920,1200", 32}, "", 1},
      {"both", {"120", "120", "640,480", 32}, "", 2},
      {"skipped", {"120", "120", "640,480", 32}, "-NoDPI-nores", 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    platform::SetupGlobalVariables("/program", row.options);
    Settings().SimpleUI = false;
    desktop.screen.settings = row.display;
    desktop.boxes.plainBoxes.clear();
    CheckDisplaySettings();
    EXPECT_EQ(desktop.boxes.plainBoxes.size(), row.told);
    EXPECT_EQ(Process().ForcedSimpleUI, row.told > 0);
    EXPECT_EQ(Settings().SimpleUI, row.told > 0);
  }
}

TEST_F(StartUpTest, FewColoursAreToldOnceUntilThereWereMore) {
  const struct {
    std::optional<int> depth;
    std::size_t told;
  } starts[] = {{8, 1}, {8, 1}, {16, 1}, {15, 2}, {std::nullopt, 2}, {8, 3}};
  for (const auto& start : starts) {
    desktop.screen.settings.BitsPerPixel = start.depth;
    CheckColourDepth();
    EXPECT_EQ(desktop.boxes.messages.size(), start.told);
  }
}

TEST_F(StartUpTest, WithoutATrayTheGameListStandsInAndTheUserHearsOfItOnce) {
  EXPECT_TRUE(StartUp());
  Happened();
  LiveWithoutTray();
  LiveWithoutTray();
  EXPECT_EQ(Came(), "game list, message No system tray");
  EXPECT_FALSE(Settings().SystrayStartup);
  EXPECT_TRUE(Settings().SystrayStartupSaved);

  TrayHasCome();
  TrayHasCome();
  EXPECT_EQ(Came(), "tray add 1 Tarvolenix - Nothing new");
  LiveWithoutTray();
  EXPECT_EQ(Came(), "game list, message No system tray") << "there was one in between";

  // A start on the same desktop, where the list can't be had.
  Settings().SystrayStartup = true;
  Process().GameListOpen = false;
  desktop.windows.lacking = {"game list"};
  LiveWithoutTray();
  EXPECT_EQ(Came(), "game list, message Automation error");
  EXPECT_TRUE(Process().Stopping) << "else it would run unseen";
}

TEST_F(StartUpTest, WithoutATrayTheListComesBehindAnOpenBoard) {
  EXPECT_TRUE(StartUp());
  Process().BoardOpen = true;
  Process().BoardFromGameList = false;
  LiveWithoutTray();
  EXPECT_FALSE(Process().GameListOpen);
  EXPECT_TRUE(Process().BoardFromGameList);
}

}  // namespace
}  // namespace shell
