// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/notification.h"

#include "shell/shell_fixture.h"

namespace shell {

using fakes::GameIDs;
namespace {

using enum platform::NotifyChoice;
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

  /// The windows that came.
  std::string Notify(const GameIDs& pending) {
    Process().NewMoveArrived = true;
    Process().PendingGames = pending;
    Happened();
    NotifyNewMoves();
    return Happened({"notify", "game list", "board"});
  }
};

TEST_F(NotificationTest, TheMethodSaysHowTheUserHears) {
  for (const int method : {0, 1, 2, 3}) {
    SCOPED_TRACE(method);
    const bool sounds = method == 1 || method == 3;
    const bool asks = method >= 2;
    Settings().NotificationMethod = method;
    desktop.sounds.played.clear();
    desktop.windows.choices = {Later};
    EXPECT_EQ(Notify({4}).empty(), !asks);
    EXPECT_EQ(desktop.sounds.played, std::vector<std::string>(sounds ? 1 : 0, "/sounds/gong.wav"));
    EXPECT_EQ(Process().PendingGames, asks ? GameIDs{} : GameIDs{4})
        << "who wasn't asked still has a new move";
  }
}

TEST_F(NotificationTest, TheFourAnswersLeadOnThroughThePendingGames) {
  const std::string anna = "notify Anna/Game 4/My plan", bernd = ", notify Bernd/Game 5//last";
  const struct {
    const char* name;
    GameIDs pending;
    std::deque<platform::NotifyChoice> choices;
    std::string came;
    GameIDs left;
  } rows[] = {
      {"Game list drops all", {4, 5}, {GameList}, anna + ", game list", {}},
      {"Play leaves the others", {4, 5}, {Play}, anna + ", board 4 in front", {5}},
      {"a game stands twice", {4, 5, 4}, {Next, Play}, anna + bernd + ", board 5 in front", {}},
  };
  desktop.windows.duringQuestion = [] {
    EXPECT_TRUE(Process().CheckTimerHeld && !Process().CheckTimer.Enabled);
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Process().CheckTimer.Enabled = true;
    Process().CheckTimerHeld = Process().GameListOpen = Process().BoardOpen = false;
    desktop.windows.choices = row.choices;
    EXPECT_EQ(Notify(row.pending), row.came);
    EXPECT_TRUE(desktop.windows.choices.empty());
    EXPECT_EQ(Process().PendingGames, row.left);
    EXPECT_EQ(Process().NewMoveArrived, !row.left.empty());
    EXPECT_EQ(Process().CheckTimerHeld, Process().BoardOpen);
    EXPECT_EQ(Process().CheckTimer.Enabled, !Process().BoardOpen);
  }
}

TEST_F(NotificationTest, TheDesktopsNoticeCanBeAnsweredInThePlaceOfTheDialog) {
  const std::string anna = "Anna, Game 4\n1. e4\nMy plan", bernd = "Bernd, Game 5\n1. e4";
  const std::string both = "Anna, Game 4\nBernd, Game 5";
  const struct {
    const char* name;
    int method;
    platform::NotifyChoice answer;
    bool anotherWindow;
    std::string came;
    GameIDs left;
    std::string notice;  // that stands in the end
  } rows[] = {
      {"Play beside the dialog",
       2,
       Play,
       false,
       "notify Anna/Game 4/My plan, board 4 in front",
       {5},
       ""},
      {"Later beside the dialog", 2, Later, false, "notify Anna/Game 4/My plan", {}, ""},
      {"Play without one", 0, Play, false, "board 4 in front", {5}, ""},
      {"Later without one", 0, Later, false, "", {}, ""},
      {"Play while something else is up", 0, Play, true, "raise", {4, 5}, both},
  };
  Settings().DesktopNotices = true;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Settings().NotificationMethod = row.method;
    Process().CheckTimerHeld = Process().BoardOpen = false;
    const auto answer = [&] {
      EXPECT_EQ(desktop.notices.text, row.method == 0 ? both : anna);
      Process().CheckTimerHeld = row.anotherWindow || row.method != 0;
      desktop.notices.Answer(row.answer);
    };
    desktop.windows.duringQuestion = answer;
    Process().NewMoveArrived = true;
    Process().PendingGames = {4, 5};
    Happened();
    NotifyNewMoves();
    if (row.method == 0) answer();
    EXPECT_EQ(Happened({"notify", "board", "raise"}), row.came);
    EXPECT_EQ(Process().PendingGames, row.left);
    EXPECT_EQ(desktop.notices.text, row.notice);
  }
  Process().CheckTimerHeld = Process().BoardOpen = false;
  Notify({4, 5});
  Process().PendingGames.clear();  // by the next look
  Process().NewMoveArrived = false;
  desktop.notices.Answer(Play);
  Process().CheckTimerHeld = Process().BoardOpen = false;
  NotifyNewMoves();
  EXPECT_EQ(desktop.notices.text, bernd) << "the second is told when the board closes";
  Process().GameListOpen = true;
  for (const bool inUse : {true, false}) {
    desktop.windows.inUse = inUse;
    desktop.notices.Withdraw();
    EXPECT_EQ(Notify({4}), "");
    EXPECT_EQ(desktop.notices.text, inUse ? "" : anna) << "the list is behind other programs";
  }
}

TEST_F(NotificationTest, AGameThatIsGoneIsToldAndCountsAsLater) {
  store::RemoveGame(4);
  Notify({4, 5});
  EXPECT_EQ(desktop.LastMessage().first, "Notification error.");
  EXPECT_TRUE(Process().PendingGames.empty());
  EXPECT_FALSE(Process().NewMoveArrived);
}

TEST_F(NotificationTest, AFailureEndsItAndTheNextCallTriesAgain) {
  desktop.windows.failing = {"board 4 in front"};
  desktop.windows.choices = {Play};
  Notify({4});
  EXPECT_EQ(desktop.LastMessage().first, "Options error");
  EXPECT_EQ(Process().PendingGames, GameIDs{4});
  EXPECT_TRUE(Process().NewMoveArrived);
  EXPECT_TRUE(Process().CheckTimer.Enabled && !Process().CheckTimerHeld);

  desktop.windows.failing = {};
  desktop.windows.refusing = {"graphics"};
  desktop.windows.choices = {Play};
  Notify({4});
  EXPECT_EQ(Process().PendingGames, GameIDs{4}) << "no board came";
}

}  // namespace
}  // namespace shell
