// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/shell_fixture.h"
#include "shell/tray_status.h"

namespace shell {
namespace {

using platform::Process;
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
    desktop.files.operations.clear();
    UpdateTrayStatus(TrayOperation::Modify);
    EXPECT_TRUE(Happened().starts_with(row.shown)) << row.name;
    EXPECT_TRUE(desktop.files.operations.empty()) << "the games are as they were";
  }
}

}  // namespace
}  // namespace shell
