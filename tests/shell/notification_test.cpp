// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/notification.h"

#include "shell/shell_fixture.h"

namespace shell {
namespace {

using platform::NotifyChoice;
using platform::Process;
using platform::Settings;

class NotificationTest : public ShellFixture {
 protected:
  NotificationTest() {
    BecomeIdle();
    Settings().NotificationSoundPath = "/sounds/";
    Settings().NotificationSoundWav = "gong.wav";
    Store(4, 1, "Anna", "My plan");
    Store(5, 1, "Bernd", "");
  }

  void Notify(const std::string& pending) {
    Process().NewMoveArrived = true;
    Process().PendingGames = pending;
    NotifyNewMoves();
  }
};

TEST_F(NotificationTest, TheMethodSaysHowTheUserHears) {
  const struct {
    int method;
    std::size_t sounds;
    int dialogs;
    bool stillWaiting;
  } rows[] = {{0, 0, 0, true}, {1, 1, 0, true}, {2, 0, 1, false}, {3, 1, 1, false}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.method);
    Settings().NotificationMethod = row.method;
    desktop.sounds.played.clear();
    desktop.windows.choices = {NotifyChoice::Later};
    Notify("4;");
    EXPECT_EQ(desktop.sounds.played, std::vector<std::string>(row.sounds, "/sounds/gong.wav"));
    EXPECT_EQ(Times("notify ", Happened()), row.dialogs);
    EXPECT_EQ(Process().NewMoveArrived, row.stillWaiting);
    EXPECT_EQ(Process().PendingGames, row.stillWaiting ? "4;" : "");
  }
}

TEST_F(NotificationTest, TheFourAnswersLeadOnThroughThePendingGames) {
  const std::string anna = "timer off, notify Anna/Game 4/My plan, timer on";
  const std::string lastAnna = "timer off, notify Anna/Game 4/My plan/last, timer on";
  const std::string lastBernd = "timer off, notify Bernd/Game 5//last, timer on";
  const struct {
    const char* name;
    const char* pending;
    std::deque<NotifyChoice> choices;
    std::string happened;
    const char* left;
    bool held;
  } rows[] = {
      {"Later drops all", "4;5;", {NotifyChoice::Later}, anna, "", false},
      {"Game list drops all", "4;5;", {NotifyChoice::GameList}, anna + ", game list", "", false},
      {"Play leaves the others for the board's closing",
       "4;5;",
       {NotifyChoice::Play},
       anna + ", graphics, timer off, timer on, timer off",
       "5;",
       true},
      {"Next shows the next",
       "4;5;",
       {NotifyChoice::Next, NotifyChoice::Play},
       anna + ", " + lastBernd + ", graphics, timer off, timer on, timer off",
       "",
       true},
      {"a game listed twice goes in one step",
       "4;5;4;",
       {NotifyChoice::Next, NotifyChoice::Later},
       anna + ", " + lastBernd,
       "",
       false},
      {"an empty list is the end", "4;4;", {NotifyChoice::Next}, anna, "", false},
      {"a number that begins alike is another game",
       "5;55;",
       {NotifyChoice::Play},
       "timer off, notify Bernd/Game 5/, timer on, graphics, timer off, timer on, timer off",
       "55;",
       true},
      {"the last one can't be skipped", "4;", {NotifyChoice::Later}, lastAnna, "", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Process().CheckTimer.Enabled = true;
    Process().CheckTimerHeld = Process().GameListOpen = Process().BoardOpen = false;
    desktop.windows.choices = row.choices;
    Happened();
    Notify(row.pending);
    std::string happened = Happened();
    const auto board = happened.find(", board ");
    if (row.held) {
      ASSERT_NE(board, std::string::npos);
      const auto end = happened.find(" in front", board) + 9;
      happened.erase(board, end - board);
    }
    EXPECT_EQ(happened, row.happened);
    EXPECT_TRUE(desktop.windows.choices.empty());
    EXPECT_EQ(Process().PendingGames, row.left);
    EXPECT_EQ(Process().NewMoveArrived, *row.left != '\0');
    EXPECT_EQ(Process().CheckTimerHeld, row.held);
    EXPECT_EQ(Process().CheckTimer.Enabled, !row.held);
  }
}

TEST_F(NotificationTest, NothingHappensWithoutNewsOrBesideTheGameList) {
  Process().PendingGames = "4;";
  NotifyNewMoves();
  Process().GameListOpen = true;
  Notify("4;");
  EXPECT_EQ(Happened(), "");
  EXPECT_EQ(Process().PendingGames, "4;");
}

TEST_F(NotificationTest, AGameThatIsGoneIsToldAndCountsAsLater) {
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"deleted", [] { store::RemoveGame(4); }},
      {"store unreadable", [this] { desktop.files.content["/program/Data/Tvgdb.dat"] = "x\r\n"; }}};
  for (const auto& [name, gone] : rows) {
    SCOPED_TRACE(name);
    gone();
    Notify("4;5;");
    EXPECT_EQ(desktop.LastMessage().first, "Notification error.");
    EXPECT_EQ(desktop.LastMessage().second,
              "The new game appears to be missing from the database.\n\nPlease try deleting this "
              "game and getting your opponent to send the move agian.");
    EXPECT_EQ(Process().PendingGames, "");
    EXPECT_FALSE(Process().NewMoveArrived);
  }
}

TEST_F(NotificationTest, AFailureEndsItAndTheNextCallTriesAgain) {
  using Entries = std::set<std::string>;
  const std::string dialog = "notify Anna/Game 4/My plan/last";
  const struct {
    const char* name;
    Entries lacking, failing, refusing;
    const char* told;
  } rows[] = {
      {"dialog",
       {},
       {dialog},
       {},
       "The following error prevented the new move notification dialog from opening:\n\n0: notify "
       "Anna/Game 4/My plan/last fails"},
      {"dialog for lack of the platform",
       {dialog},
       {},
       {},
       "There is a problem with Windows and OLE Automation.  Please visit https://www.debian.org "
       "or my website and download and install either DCOM95 for Windows 95 or DCOM98 for Windows "
       "98."},
      {"board",
       {},
       {"board 4 in front"},
       {},
       "The following error prevented the new move notification dialog from opening:\n\n0: board 4 "
       "in front fails"},
      {"chess set", {}, {}, {"graphics"}, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    desktop.boxes.messages.clear();
    desktop.windows.lacking = row.lacking;
    desktop.windows.failing = row.failing;
    desktop.windows.refusing = row.refusing;
    desktop.windows.choices = {NotifyChoice::Play};
    Notify("4;");
    EXPECT_EQ(desktop.LastMessage().second, row.told);
    EXPECT_EQ(Process().PendingGames, "4;");
    EXPECT_TRUE(Process().NewMoveArrived);
    EXPECT_TRUE(Process().CheckTimer.Enabled);
    EXPECT_FALSE(Process().CheckTimerHeld);
  }
}

TEST_F(NotificationTest, PollingIsHeldWhileAskedAndPutBackAsItWas) {
  bool held = false;
  desktop.windows.duringQuestion = [&held] {
    held = Process().CheckTimerHeld && !Process().CheckTimer.Enabled;
  };
  desktop.windows.choices = {NotifyChoice::Later};
  Process().CheckTimer.Enabled = false;
  Process().CheckTimerHeld = true;
  Notify("4;");
  EXPECT_TRUE(held);
  EXPECT_TRUE(Process().CheckTimerHeld);
  EXPECT_FALSE(Process().CheckTimer.Enabled);
}

}  // namespace
}  // namespace shell
