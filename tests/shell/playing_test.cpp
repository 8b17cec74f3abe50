// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/playing.h"

#include "shell/shell_fixture.h"

namespace shell {
namespace {

using platform::Process;

using PlayingTest = ShellFixture;

void FromTray() { OpenGameFromTray(4); }
void FromList() { PlayGame(4); }
void Removed() { OpenNewMove(5); }
void NewFromList() { StartNewGame({.fromGameList = true}); }

struct Way {
  const char* name;
  void (*go)();
  const char* refusing;
  const char* failing;
  const char* happened;
};

const Way ways[] = {
    {"tray", FromTray, "", "", "board 4"},
    {"game list gives its place to the board", FromList, "", "", "board 4, hide game list"},
    {"new game of the list", NewFromList, "", "", "board -1, hide game list, hide new game"},
    {"new game cancelled", NewFromList, "ask new game", "", "hide new game"},
    {"no chess set", NewFromList, "graphics", "", ""},
    {"board that goes again for its game can't be read", FromList, "board 4", "", "board 4"},
    {"game that is removed meanwhile", Removed, "", "", "message Database error."},
    {"board fails", FromList, "", "board 4", "board 4, message Options error"},
};

TEST_F(PlayingTest, EachWayToTheBoardHoldsPollingWhileTheBoardIsThere) {
  for (const Way& way : ways) {
    SCOPED_TRACE(way.name);
    Process() = {};
    Store(4, store::MoveWaiting);
    Process().CheckTimer.Enabled = true;
    desktop.windows.refusing = {way.refusing};
    desktop.windows.failing = {way.failing};
    way.go();
    EXPECT_EQ(Happened({"board", "hide", "message"}), way.happened);
    EXPECT_EQ(Process().CheckTimerHeld, Process().BoardOpen);
    EXPECT_EQ(Process().CheckTimer.Enabled, !Process().BoardOpen);
  }
}

}  // namespace
}  // namespace shell
