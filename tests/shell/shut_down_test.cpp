// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/shut_down.h"

#include "shell/notification.h"
#include "shell/polling_loop.h"
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
    desktop.files.content.erase("/program/Data/tvgdb.bak");
  }
};

constexpr const char* theStop = "close help, timer off, tray delete, sign off, close all, stopped";

TEST_F(ShutDownTest, EveryWayOutEndsInTheSameOrder) {
  const struct {
    const char* name;
    bool tray;
    void (*leave)();
    std::string happened;
  } rows[] = {
      {"Exit of the tray", true, ExitProgram, theStop},
      {"Exit of the game list", true, ExitFromGameList, "close game list, " + std::string(theStop)},
      {"Exit of the game list that is the program, whose closing is a way out itself", false,
       ExitFromGameList, "close game list, close help, timer off, sign off, close all, stopped"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Process().Stopping = false;
    Process().CheckTimer.Enabled = true;
    Settings().SystrayStartup = row.tray;
    if (!row.tray) desktop.windows.gameListClosed = ExitProgram;
    desktop.files.content.erase("/program/Data/tvgdb.bak");
    desktop.settings.groups.clear();
    desktop.boxes.statusTexts.clear();
    row.leave();
    EXPECT_EQ(Happened(), row.happened);
    EXPECT_TRUE(desktop.files.content.contains("/program/Data/tvgdb.bak"));
    EXPECT_EQ(Setting("ChessBoard"), "Plain") << "the settings are saved";
    EXPECT_EQ(desktop.boxes.statusTexts, (std::vector<std::string>{"Quiting Tarvolenix...", ""}));
  }
}

TEST_F(ShutDownTest, AnIncompleteStartAndAFailingLogoffEndToo) {
  Process().StartupComplete = false;
  desktop.mail.failing = {"SignOff"};
  CloseSystemTray();
  CloseSystemTray();
  EXPECT_EQ(Happened(), theStop);
  EXPECT_TRUE(desktop.settings.groups.empty());
}

TEST_F(ShutDownTest, NothingNewBeginsBehindTheStop) {
  CloseSystemTray();
  Happened();
  Process().NewMoveArrived = true;
  Process().PendingGames = "1;";
  CheckTimerTick();
  NotifyNewMoves();
  UpdateTrayStatus(platform::TrayOperation::Modify);
  EXPECT_EQ(Happened(), "");
}

}  // namespace
}  // namespace shell
