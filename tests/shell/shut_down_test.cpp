// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/shut_down.h"

#include "shell/notification.h"
#include "shell/shell_fixture.h"
#include "shell/tray_status.h"

namespace shell {
namespace {

using platform::Process;
using platform::Settings;

class ShutDownTest : public ShellFixture {
 protected:
  ShutDownTest() {
    BecomeIdle();
    Process().StartupComplete = true;
    Store(1, 1);
  }
};

constexpr const char* theStop = "sign off, close all, stopped";

TEST_F(ShutDownTest, EveryWayOutSavesAndEndsOnce) {
  const struct {
    const char* name;
    bool tray;
    void (*leave)();
  } rows[] = {
      {"Exit of the tray", true, ExitProgram},
      {"Exit of the game list that is the program, whose closing is a way out itself", false,
       ExitFromGameList},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Process().Stopping = false;
    Settings().SystrayStartup = row.tray;
    if (!row.tray) desktop.windows.gameListClosed = ExitProgram;
    desktop.files.content.erase("/program/Data/tvgdb.bak");
    desktop.settings.groups.clear();
    row.leave();
    EXPECT_EQ(Happened({"sign off", "close all", "stopped"}), theStop);
    EXPECT_TRUE(desktop.files.content.contains("/program/Data/tvgdb.bak"));
    EXPECT_EQ(Setting("ChessBoard"), "Plain") << "the settings are saved";
  }
}

TEST_F(ShutDownTest, BehindAnIncompleteStartAndAFailingLogoffNothingIsSavedAndNothingBegins) {
  Process().StartupComplete = false;
  desktop.mail.failing = {"SignOff"};
  CloseSystemTray();
  CloseSystemTray();
  EXPECT_TRUE(Happened().ends_with(theStop));
  EXPECT_TRUE(desktop.settings.groups.empty());

  Process().NewMoveArrived = true;
  Process().PendingGames = {1};
  NotifyNewMoves();
  UpdateTrayStatus(platform::TrayOperation::Modify);
  EXPECT_EQ(Happened(), "");
}

}  // namespace
}  // namespace shell
