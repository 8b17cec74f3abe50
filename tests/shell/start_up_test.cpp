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
};

constexpr const char* unknownError =
    "An unknown error caused Tarvolenix to fail to load.\n\nIf this persists, try reinstalling.";

TEST_F(StartUpTest, StepsComeInTheirOrder) {
  const struct {
    const char* name;
    const char* splash;
    const char* tray;
    const char* happened;
  } rows[] = {
      {"in the tray no window opens at all", "False", "True",
       "skin, other instance?, sign on, buildTrayGameMenu, buildTrayGameMenu, tray add 1 "
       "Tarvolenix - Nothing new, timer on, handed over"},
      {"without tray the game list is the program", "False", "False",
       "skin, other instance?, sign on, buildTrayGameMenu, buildTrayGameMenu, game list, face 1 "
       "Tarvolenix : Nothing new, timer on, handed over"},
      {"the splash window hands over later", "True", "True",
       "skin, other instance?, splash, sign on, buildTrayGameMenu, buildTrayGameMenu"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Process() = {};
    desktop.mail.session.SignOff();
    desktop.mail.messages.SessionID(0);
    Setting("DisplaySplash") = row.splash;
    Setting("SystrayStartup") = row.tray;
    Happened();
    EXPECT_TRUE(StartUp());
    EXPECT_EQ(Happened(), row.happened);
    EXPECT_TRUE(Process().StartupComplete);
    EXPECT_EQ(Process().CheckTimerHeld, std::string(row.splash) == "True");
  }
  HandOver();
  EXPECT_EQ(Happened(), "tray add 1 Tarvolenix - Nothing new, timer on, handed over");
  EXPECT_FALSE(Process().CheckTimerHeld);
}

TEST_F(StartUpTest, MovesOfTheStartAreToldByTheHandOver) {
  MoveArrives();
  desktop.windows.choices = {platform::NotifyChoice::Later};
  EXPECT_TRUE(StartUp());
  EXPECT_TRUE(
      Happened().ends_with("tray add 2 Tarvolenix - New move arrived, timer on, timer off, "
                           "notify Anna/Game 7/Hi/last, timer on, handed over"));
}

TEST_F(StartUpTest, AnAbortSavesNothingAndLeavesTrayAndMailAlone) {
  const struct {
    const char* name;
    std::function<void()> trouble;
    const char* told;
    const char* happened;
  } rows[] = {
      {"settings that can't be read", [this] { desktop.settings.unreadable = true; }, "",
       "plain box Settings"},
      {"skin", [this] { desktop.windows.refusing = {"skin"}; }, "", "skin"},
      {"second instance", [this] { desktop.screen.anotherInstance = true; },
       "You already have Tarvolenix running.\n\nYou cannot have more than one copy of Tarvolenix "
       "running at any one time.",
       "skin, other instance?, message Initialisation error"},
      {"motivations that are too few", [this] { Setting("Heuristics") = "1;2"; }, unknownError,
       "message Initialisation error"},
      {"splash window", [this] { desktop.windows.failing = {"splash"}; }, unknownError,
       "skin, other instance?, splash, message Initialisation error"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Process() = {};
    Setting("DisplaySplash") = "True";
    Setting("Heuristics") = "";
    desktop.screen.anotherInstance = desktop.settings.unreadable = false;
    desktop.windows.refusing = desktop.windows.failing = {};
    desktop.boxes.messages.clear();
    row.trouble();
    const auto stored = desktop.settings.groups;
    EXPECT_FALSE(StartUp());
    EXPECT_EQ(Happened(), row.happened + std::string(", close splash, close help, stopped"));
    EXPECT_EQ(desktop.LastMessage().second, row.told);
    EXPECT_TRUE(Process().ShuttingDown);
    EXPECT_EQ(desktop.settings.groups, stored);
  }
}

TEST_F(StartUpTest, MendedSettingsAreToldAndTheLogonThatTheyRememberIsOver) {
  desktop.settings.mended = "damaged";
  Setting("LogonStatus") = "True";
  EXPECT_TRUE(StartUp());
  EXPECT_EQ(desktop.boxes.plainBoxes.at(0).second, "damaged");
  EXPECT_FALSE(Process().Offline);
}

TEST_F(StartUpTest, AHandOverThatShowsNothingIsAFailedStart) {
  Setting("SystrayStartup") = "False";
  desktop.windows.lacking = {"game list"};
  EXPECT_FALSE(StartUp());
  EXPECT_TRUE(Happened().ends_with(
      "game list, message Initialisation error, close splash, close help, stopped"));
  EXPECT_FALSE(Process().StartupComplete);
}

TEST_F(StartUpTest, ASessionThatEndsDuringTheStartEndsIt) {
  Setting("RunBefore") = "False";
  desktop.boxes.whileUp = ExitProgram;
  EXPECT_FALSE(StartUp());
  EXPECT_EQ(Happened(),
            "skin, other instance?, message Versions prior to v3.0.0, close help, tray delete, "
            "sign off, close all, stopped");
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
  using Boxes = std::vector<std::string>;
  const Boxes none, dpi{"Windows setting error"}, size{"Screen too small"};
  const struct {
    const char* name;
    platform::DisplaySettings display;
    const char* options;
    Boxes boxes;
  } rows[] = {
      {"usual", {"96", "96", "800,600", 32}, "", none},
      {"untold", {}, "", none},
      {"only the width counts", {"96", "96", "800,480", 32}, "", none},
      {"narrow", {"96", "96", "799,1200", 32}, "", size},
      {"dots in X alone", {"120", "96", "1920,1200", 32}, "", dpi},
      {"dots in Y alone", {"96", "97", "1920,1200", 32}, "", dpi},
      {"both", {"120", "120", "640,480", 32}, "", {dpi[0], size[0]}},
      {"skipped", {"120", "120", "640,480", 32}, "-NoDPI-nores", none},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    platform::SetupGlobalVariables("/program", row.options);
    Settings().SimpleUI = false;
    desktop.screen.settings = row.display;
    desktop.boxes.plainBoxes.clear();
    CheckDisplaySettings();
    Boxes boxes;
    for (const auto& box : desktop.boxes.plainBoxes) boxes.push_back(box.first);
    EXPECT_EQ(boxes, row.boxes);
    EXPECT_EQ(Process().ForcedSimpleUI, !row.boxes.empty());
    EXPECT_EQ(Settings().SimpleUI, !row.boxes.empty());
  }
}

TEST_F(StartUpTest, AForcedPlainLookStaysWhenTheScreenIsPutRight) {
  for (const char* width : {"640,480", "1920,1200"}) {
    Process() = {};
    desktop.screen.settings.Resolution = width;
    EXPECT_TRUE(StartUp());
    EXPECT_TRUE(Settings().SimpleUI);
    EXPECT_EQ(Setting("SimpleUI"), "True");
  }
  EXPECT_EQ(desktop.boxes.plainBoxes.size(), 1U);
}

TEST_F(StartUpTest, FewColoursAreToldOnceUntilThereWereMore) {
  const struct {
    std::optional<int> depth;
    std::size_t told;
    const char* mark;
  } starts[] = {{8, 1, "True"},
                {8, 1, "True"},
                {16, 1, "False"},
                {15, 2, "True"},
                {std::nullopt, 2, "False"},
                {32, 2, "False"}};
  for (const auto& start : starts) {
    desktop.screen.settings.BitsPerPixel = start.depth;
    CheckColourDepth();
    EXPECT_EQ(desktop.boxes.messages.size(), start.told);
    EXPECT_EQ(Setting("BppChecked"), start.mark);
  }
  Process().CheckColourDepth = false;
  desktop.screen.settings.BitsPerPixel = 1;
  CheckColourDepth();
  EXPECT_EQ(desktop.boxes.messages.size(), 2U);
}

TEST_F(StartUpTest, TheFirstRunIsToldOnce) {
  Setting("RunBefore") = "";
  CheckFirstRun();
  CheckFirstRun();
  ASSERT_EQ(desktop.boxes.messages.size(), 1U);
  EXPECT_EQ(desktop.LastMessage().first, "Versions prior to v3.0.0");
  EXPECT_EQ(desktop.LastMessage().second,
            "This version of Tarvolenix contains features that are not present in older versions.  "
            "Because of this, versions prior to v2.4.0 may not recognise 100% of your chess move "
            "emails.  I suggest that you get your opponents to visit the Tarvolenix website, "
            "https://tarvolenix.example, and download the latest version.  This warning will not "
            "appear again.");
  EXPECT_EQ(Setting("RunBefore"), "True");
}

TEST_F(StartUpTest, WithoutATrayTheGameListStandsInAndTheUserHearsOfItOnce) {
  EXPECT_TRUE(StartUp());
  Happened();
  LiveWithoutTray();
  EXPECT_EQ(Happened(),
            "game list, face 1 Tarvolenix : Nothing new, timer off, message No system "
            "tray, timer on");
  LiveWithoutTray();
  EXPECT_EQ(Happened(), "");
  EXPECT_FALSE(Settings().SystrayStartup);
  EXPECT_TRUE(Settings().SystrayStartupSaved);

  TrayHasCome();
  TrayHasCome();
  EXPECT_EQ(Happened(),
            "face 1 Tarvolenix - Game list, buildTrayGameMenu, tray add 1 Tarvolenix - "
            "Nothing new");
  LiveWithoutTray();
  EXPECT_EQ(Times("No system tray", Happened()), 1) << "there was one in between";

  // A start on the same desktop.
  Settings().SystrayStartup = true;
  LiveWithoutTray();
  EXPECT_EQ(Times("No system tray", Happened()), 0);
}

TEST_F(StartUpTest, WithoutATrayTheListComesBehindAnOpenBoardOrTheProgramEnds) {
  EXPECT_TRUE(StartUp());
  Process().BoardOpen = true;
  Process().BoardFromGameList = false;
  Happened();
  LiveWithoutTray();
  EXPECT_EQ(Times("game list", Happened()), 0);
  EXPECT_TRUE(Process().BoardFromGameList);

  Process().BoardOpen = false;
  Settings().SystrayStartup = true;
  desktop.windows.lacking = {"game list"};
  LiveWithoutTray();
  EXPECT_TRUE(
      Happened().ends_with("message Automation error, timer on, close help, timer off, sign off, "
                           "close all, stopped"));
}

}  // namespace
}  // namespace shell
