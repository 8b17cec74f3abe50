// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/start_up.h"

#include "ai/heuristics.h"
#include "shell/game_file_check.h"
#include "shell/shell_fixture.h"
#include "shell/shut_down.h"

namespace shell {
namespace {

using platform::Process;

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
  for (bool platform::ProcessState::*end :
       {&platform::ProcessState::ShuttingDown, &platform::ProcessState::Stopping}) {
    Process().*end = true;
    HandOver();
    EXPECT_EQ(Came(), "") << "nothing begins behind the end";
    Process().*end = false;
  }
  desktop.windows.choices = {platform::NotifyChoice::Later};
  HandOver();
  EXPECT_EQ(Came(), "tray add 2 Tarvolenix - New move arrived, notify Anna/Game 7/Hi/last");
  EXPECT_TRUE(Process().CheckTimer.Enabled && !Process().CheckTimerHeld);
}

TEST_F(StartUpTest, AnAbortSavesNothingAndShowsNothingMore) {
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"settings that can't be read", [this] { desktop.settings.unreadable = true; }},
      {"second instance", [this] { desktop.screen.anotherInstance = true; }},
      {"motivations that are too few",
       [this] {
         Setting("Heuristics") = "1;2";
         desktop.boxes.answers = {false};
       }},
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

TEST_F(StartUpTest, MotivationsThatCantBeUsedMakeWayForTheFactorysButAreKept) {
  Setting("HeuristicsUnread") = "older";
  Setting("Heuristics") = "88;two";
  desktop.boxes.answers = {true, true};
  desktop.settings.readOnly = true;
  EXPECT_FALSE(StartUp());
  EXPECT_EQ(Setting("Heuristics"), "88;two");
  desktop.settings.readOnly = false;
  Process() = {};
  Happened();
  EXPECT_TRUE(StartUp());
  EXPECT_EQ(
      Came(),
      "message Initialisation error, message Heuristics, tray add 1 Tarvolenix - Nothing new");
  EXPECT_EQ(Setting("HeuristicsUnread"), "older");
  EXPECT_EQ(Setting("HeuristicsUnread2"), "88;two");
  EXPECT_EQ(ai::Heuristics, ai::DefaultHeuristics());
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

}  // namespace
}  // namespace shell
