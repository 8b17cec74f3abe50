// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/polling_loop.h"

#include <algorithm>

#include "platform/registry.h"
#include "shell/shell_fixture.h"

namespace shell {
namespace {

using platform::Process;

class PollingLoopTest : public ShellFixture {
 protected:
  PollingLoopTest() {
    BecomeIdle();
    platform::Settings().NotificationMethod = 0;
  }

  int TimesCalled(const std::string& member) const {
    return static_cast<int>(
        std::count(desktop.mail.calls.begin(), desktop.mail.calls.end(), member));
  }
};

TEST_F(PollingLoopTest, ATickDoesWhatItsStateAllows) {
  using Flag = bool platform::ProcessState::*;
  const struct {
    const char* name;
    std::vector<Flag> set;
    bool timer;
    const char* happened;
  } rows[] = {
      {"connected", {}, true, "timer off, buildTrayGameMenu, timer on"},
      {"stand-alone",
       {&platform::ProcessState::StandAlone},
       true,
       "timer off, buildTrayGameMenu, timer on"},
      {"disconnected", {&platform::ProcessState::Offline}, true, nullptr},
      {"stand-alone and offline",
       {&platform::ProcessState::StandAlone, &platform::ProcessState::Offline},
       true,
       "timer off, buildTrayGameMenu, timer on"},
      {"held", {&platform::ProcessState::CheckTimerHeld}, true, nullptr},
      {"tray's menu open", {&platform::ProcessState::TrayMenuOpen}, true, nullptr},
      {"timer disabled", {}, false, nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Process() = {};
    Process().Offline = false;
    Process().CheckTimer.Enabled = row.timer;
    for (const Flag flag : row.set) Process().*flag = true;
    desktop.mail.calls.clear();
    CheckTimerTick();
    EXPECT_EQ(Happened(), row.happened ? row.happened + std::string(", tray modify 1 Tarvolenix - "
                                                                    "Nothing new")
                                       : "");
    EXPECT_EQ(TimesCalled("Fetch"), row.happened && !Process().StandAlone ? 1 : 0);
    EXPECT_TRUE(desktop.boxes.statusTexts.empty()) << "quietly";
  }
}

TEST_F(PollingLoopTest, ATickReturnsBeforeTheMailServiceAnswers) {
  desktop.mail.answersLater = true;
  MoveArrives();
  CheckTimerTick();
  EXPECT_EQ(Happened(), "") << "the user's click behind the tick finds an idle program";
  EXPECT_TRUE(Process().CheckTimer.Enabled);
  CheckTimerTick();
  EXPECT_EQ(desktop.mail.LooksUnderWay(), 1U) << "one look at a time";
  EXPECT_EQ(TimesCalled("Fetch"), 0);

  desktop.mail.AnswerLook();
  EXPECT_TRUE(Happened().ends_with("tray modify 2 Tarvolenix - New move arrived"));
  EXPECT_EQ(TimesCalled("FlushLater"), 1);
  EXPECT_EQ(TimesCalled("Flush"), 0) << "nor does it wait for marks and deletions";
  EXPECT_TRUE(desktop.mail.inbox.empty());
  CheckTimerTick();
  EXPECT_EQ(desktop.mail.LooksUnderWay(), 1U);
}

TEST_F(PollingLoopTest, AnAnswerAtABadMomentIsDroppedUntilTheNextTick) {
  const std::pair<const char*, std::function<void(bool)>> rows[] = {
      {"held", [](bool bad) { Process().CheckTimerHeld = bad; }},
      {"tray's menu open", [](bool bad) { Process().TrayMenuOpen = bad; }},
      {"timer disabled", [](bool bad) { Process().CheckTimer.Enabled = !bad; }},
      {"set used up by the user's own retrieve",
       [this](bool bad) { desktop.mail.answersStale = bad; }},
  };
  for (const auto& [name, badMoment] : rows) {
    SCOPED_TRACE(name);
    desktop.mail.answersLater = true;
    CheckTimerTick();
    badMoment(true);
    desktop.mail.calls.clear();
    desktop.mail.AnswerLook();
    EXPECT_EQ(Happened(), "");
    EXPECT_EQ(TimesCalled("Fetch"), 0);
    badMoment(false);
    desktop.mail.answersLater = false;
    CheckTimerTick();
    EXPECT_EQ(TimesCalled("Fetch"), 1);
    Happened();
  }
}

TEST_F(PollingLoopTest, ALookThatEndedWithItsSessionStandsInNobodysWay) {
  desktop.mail.answersLater = true;
  CheckTimerTick();
  desktop.mail.messages.SessionID(2);
  CheckTimerTick();
  EXPECT_EQ(desktop.mail.LooksUnderWay(), 2U);
}

TEST_F(PollingLoopTest, AFailedLookGoesOfflineAndNoTickLogsOn) {
  for (const char* failing : {"Prefetch", "Fetch"}) {
    SCOPED_TRACE(failing);
    Process().Offline = false;
    Process().GameListOpen = true;
    desktop.mail.failing = {failing};
    CheckTimerTick();
    EXPECT_TRUE(Happened().ends_with("tray modify 3 Tarvolenix v1 - Not connected"));
    EXPECT_TRUE(Process().Offline);
    CheckTimerTick();
    EXPECT_EQ(Happened(), "");
  }
  EXPECT_TRUE(desktop.boxes.messages.empty());
}

TEST_F(PollingLoopTest, AnOpenListIsRefilledOnlyWhereTheGamesChanged) {
  Process().GameListOpen = true;
  Store(3, 2);
  const struct {
    const char* name;
    std::function<void()> before;
    std::optional<std::int32_t> selected;
    const char* fill;
  } ticks[] = {
      {"first tick", [] {}, 3, "fill 3"},
      {"nothing happened", [] {}, 3, ""},
      {"saved by this program", [] { Store(3, 1); }, 3, "fill 3"},
      {"mail changed a name",
       [this] {
         MoveArrives();
         desktop.mail.inbox.back().senderName = "Ann";
       },
       {},
       "fill"},
      {"changed by another program",
       [this] { desktop.files.content["/program/Data/Tvgdb.dat"].clear(); },
       {},
       "fill"},
      {"still empty", [] {}, {}, ""},
  };
  for (const auto& tick : ticks) {
    SCOPED_TRACE(tick.name);
    tick.before();
    desktop.windows.selected = tick.selected;
    CheckTimerTick();
    const std::string happened = Happened();
    const std::string fill = tick.fill;
    EXPECT_EQ(Times("fill", happened), fill.empty() ? 0 : 1);
    EXPECT_EQ(Times(", " + (fill.empty() ? fill : fill + ", ") + "tray modify", happened), 1);
  }
}

TEST_F(PollingLoopTest, RetrieveByHandLogsOnAndTakesReadMailsToo) {
  platform::SetLogonStatus(true);
  Process().Offline = true;
  Process().GameListOpen = true;
  desktop.mail.messages.SessionID(0);
  MoveArrives();
  desktop.mail.inbox.back().read = true;
  RetrieveByHand();
  EXPECT_EQ(Happened(),
            "timer off, sign on, buildTrayGameMenu, fill, tray modify 2 Tarvolenix - "
            "New move arrived, timer on");
  EXPECT_TRUE(desktop.mail.inbox.empty());
  EXPECT_FALSE(Process().Offline);
  EXPECT_FALSE(Process().CheckTimerHeld);
  EXPECT_TRUE(desktop.boxes.messages.empty());
  EXPECT_EQ(desktop.boxes.statusTexts.front(), "Logging on...");
}

TEST_F(PollingLoopTest, ARetrieveThatLeadsToTheBoardLeavesPollingToIt) {
  platform::Settings().NotificationMethod = 2;
  desktop.windows.choices = {platform::NotifyChoice::Play};
  MoveArrives();
  RetrieveByHand();
  EXPECT_TRUE(Happened().ends_with("graphics, board 1 in front"));
  EXPECT_FALSE(Process().CheckTimer.Enabled);
  EXPECT_TRUE(Process().CheckTimerHeld);
}

}  // namespace
}  // namespace shell
