// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/polling_loop.h"

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

  long TimesCalled(const std::string& member) const {
    return std::count(desktop.mail.calls.begin(), desktop.mail.calls.end(), member);
  }
};

TEST_F(PollingLoopTest, ATickDoesWhatItsStateAllows) {
  using Flag = bool platform::ProcessState::*;
  constexpr Flag standAlone = &platform::ProcessState::StandAlone;
  constexpr Flag offline = &platform::ProcessState::Offline;
  const struct {
    const char* name;
    std::vector<Flag> set;
    bool collects;
  } rows[] = {
      {"connected", {}, true},
      {"disconnected", {offline}, false},
      {"stand-alone and offline", {standAlone, offline}, true},
      {"held", {&platform::ProcessState::CheckTimerHeld}, false},
      {"tray's menu open", {&platform::ProcessState::TrayMenuOpen}, false},
      {"at its end", {&platform::ProcessState::Stopping}, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Process() = {};
    Process().Offline = false;
    Process().CheckTimer.Enabled = true;
    for (const Flag flag : row.set) Process().*flag = true;
    desktop.mail.calls.clear();
    CheckTimerTick();
    EXPECT_EQ(!Happened({"tray"}).empty(), row.collects);
    EXPECT_EQ(TimesCalled("Fetch"), row.collects && !Process().StandAlone ? 1 : 0);
  }
}

TEST_F(PollingLoopTest, AMoveFileIsHeardOfOnce) {
  Process().StandAlone = true;
  platform::Settings().NotificationMethod = 1;
  desktop.files.content["/program/Data/Cmove1.txt"] =
      mail::BuildMailBody(Game(7, 2, "Me"), {{1, "5254", "e4", "Hi"}});
  for (int tick = 1; tick <= 3; ++tick) CheckTimerTick();
  EXPECT_EQ(desktop.sounds.played.size(), 1U);
}

TEST_F(PollingLoopTest, AnAnswerIsTakenWithoutWaiting) {
  desktop.mail.answersLater = true;
  MoveArrives();
  CheckTimerTick();
  CheckTimerTick();
  EXPECT_EQ(desktop.mail.LooksUnderWay(), 1U) << "one look at a time";
  EXPECT_EQ(TimesCalled("Fetch"), 0);
  desktop.mail.AnswerLook();
  EXPECT_TRUE(desktop.mail.inbox.empty());
  EXPECT_TRUE(Happened().ends_with("tray modify 2 Tarvolenix - New move arrived"));
  EXPECT_EQ(TimesCalled("Flush"), 0) << "nor for marks and deletions";
  CheckTimerTick();
  desktop.mail.SessionID(2);
  CheckTimerTick();
  EXPECT_EQ(desktop.mail.LooksUnderWay(), 2U) << "a look that ended with its session";
}

TEST_F(PollingLoopTest, AnAnswerAtABadMomentIsDroppedUntilTheNextTick) {
  for (const bool usedUpByHand : {false, true}) {
    desktop.mail.answersLater = true;
    CheckTimerTick();
    desktop.mail.answersStale = usedUpByHand;
    Process().CheckTimerHeld = !usedUpByHand;
    desktop.mail.calls.clear();
    desktop.mail.AnswerLook();
    EXPECT_EQ(TimesCalled("Fetch"), 0);
    desktop.mail.answersStale = desktop.mail.answersLater = Process().CheckTimerHeld = false;
    CheckTimerTick();
    EXPECT_EQ(TimesCalled("Fetch"), 1);
  }
}

TEST_F(PollingLoopTest, AFailedLookGoesOfflineAndNoTickLogsOn) {
  for (const char* failing : {"Prefetch", "Fetch"}) {
    SCOPED_TRACE(failing);
    Process().Offline = false;
    desktop.mail.failing = {failing};
    CheckTimerTick();
    EXPECT_EQ(Happened({"tray"}), "tray modify 3 Tarvolenix v1 - Not connected");
    EXPECT_TRUE(Process().Offline);
    CheckTimerTick();
    EXPECT_EQ(Happened(), "");
  }
  EXPECT_TRUE(desktop.boxes.messages.empty());
}

TEST_F(PollingLoopTest, RetrieveByHandLogsOnAndTakesReadMailsToo) {
  for (const bool plays : {false, true}) {
    platform::SetLogonStatus(true);
    Process().Offline = true;
    desktop.mail.SessionID(0);
    MoveArrives();
    desktop.mail.inbox.back().read = true;
    platform::Settings().NotificationMethod = plays ? 2 : 0;
    desktop.windows.choices = {platform::NotifyChoice::Play};
    store::RemoveGame(1);
    RetrieveByHand();
    EXPECT_TRUE(desktop.mail.inbox.empty());
    EXPECT_FALSE(Process().Offline);
    EXPECT_TRUE(desktop.boxes.messages.empty());
    EXPECT_EQ(Process().BoardOpen, plays);
    EXPECT_EQ(Process().CheckTimerHeld, plays) << "polling is the board's while it is there";
    EXPECT_EQ(Process().CheckTimer.Enabled, !plays);
  }
}

}  // namespace
}  // namespace shell
