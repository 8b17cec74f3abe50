// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/playing.h"

#include "shell/shell_fixture.h"

namespace shell {
namespace {

using platform::Process;

class PlayingTest : public ShellFixture {
 protected:
  PlayingTest() { BecomeIdle(); }

  void BeginAnew() {
    Process() = {};
    Process().CheckTimer.Enabled = true;
    desktop.windows.lacking = desktop.windows.failing = desktop.windows.refusing = {};
    desktop.boxes.messages.clear();
    Happened();
  }

  /// The log without the timer's switching.
  std::string WindowsThatCame() {
    std::erase_if(desktop.log, [](const std::string& event) { return event.starts_with("timer"); });
    return Happened();
  }
};

struct Way {
  const char* name;
  void (*go)();
  bool setup, fromGameList;
  std::set<std::string> refusing, failing;
  const char* happened;
  const char* told;
};

const Way ways[] = {
    {"tray", [] { OpenGameFromTray(4); }, false, false, {}, {}, "graphics, board 4", ""},
    {"game list gives its place to the board",
     [] { PlayGame(4); },
     false,
     true,
     {},
     {},
     "graphics, board 4, hide game list",
     ""},
    {"new game",
     [] { StartNewGame(false); },
     false,
     false,
     {},
     {},
     "graphics, ask new game, board -1, hide new game",
     ""},
    {"new game of the game list, with a setup",
     [] { StartNewGame(true); },
     true,
     true,
     {},
     {},
     "graphics, ask new game, board -1, hide game list, hide new game, message Board setup",
     "Please setup the board then select the Play Current Setup option to begin play"},
    {"new game cancelled",
     [] { StartNewGame(true); },
     true,
     true,
     {"ask new game"},
     {},
     "graphics, ask new game, hide new game",
     ""},
    {"no chess set", [] { StartNewGame(true); }, false, true, {"graphics"}, {}, "graphics", ""},
    {"no chess set for the game list",
     [] { PlayGame(4); },
     false,
     true,
     {"graphics"},
     {},
     "graphics",
     ""},
    {"board that goes again for its game can't be read",
     [] { PlayGame(4); },
     false,
     true,
     {"board 4"},
     {},
     "graphics, board 4",
     ""},
    {"board fails",
     [] { PlayGame(4); },
     false,
     true,
     {},
     {"board 4"},
     "graphics, board 4, message Options error",
     "The following error prevented the game board from opening:\n\n0: board 4 fails"},
    {"new game fails",
     [] { StartNewGame(true); },
     false,
     true,
     {},
     {"board -1"},
     "graphics, ask new game, board -1, hide new game, message Options error",
     "The following error prevented the new game dialog from opening:\n\n0: board -1 fails"},
};

TEST_F(PlayingTest, EachWayToTheBoardHoldsPollingWhileTheBoardIsThere) {
  for (const Way& way : ways) {
    SCOPED_TRACE(way.name);
    BeginAnew();
    Process().SetupGame = way.setup;
    desktop.windows.refusing = way.refusing;
    desktop.windows.failing = way.failing;
    way.go();
    EXPECT_EQ(WindowsThatCame(), way.happened);
    EXPECT_EQ(desktop.LastMessage().second, way.told);
    EXPECT_EQ(Process().CheckTimerHeld, Process().BoardOpen);
    EXPECT_EQ(Process().CheckTimer.Enabled, !Process().BoardOpen);
    if (Process().BoardOpen) {
      EXPECT_EQ(Process().BoardFromGameList, way.fromGameList);
    }
  }
}

TEST_F(PlayingTest, OfTheGameListOnlyALackOfThePlatformIsTold) {
  desktop.windows.failing = {"game list"};
  ShowGameList();
  EXPECT_TRUE(desktop.boxes.messages.empty());
  desktop.windows.lacking = {"game list"};
  ShowGameList();
  EXPECT_EQ(desktop.LastMessage().first, "Automation error");
}

}  // namespace
}  // namespace shell
