// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/mail_watch.h"

#include "mail/sending.h"
#include "shell/shell_fixture.h"
#include "shell/tray_status.h"

namespace shell {
namespace {

using platform::MailLink;
using platform::MailStage;
using platform::Process;

class FakeMailState : public platform::MailState {
 public:
  platform::MailConnection Connection() override { return connection; }
  std::vector<platform::MailOnItsWay> OnItsWay() override { return mails; }
  void NoteTold(const std::string&) override { mails.at(0).isTold = true; }

  platform::MailConnection connection{MailLink::Connected, 0, 0, 0, {}};
  std::vector<platform::MailOnItsWay> mails;
};

class MailWatchTest : public ShellFixture {
 protected:
  MailWatchTest() {
    BecomeIdle();
    Process().StartupComplete = true;
    platform::TheSeams().mailState = &state;
    Store(1, 2);
  }

  void Has(MailStage stage, const std::string& reason) {
    state.mails = {{mail::ThreadOf(Game(1, 2, "Anna")), "anna@example.org", stage, 1,
                    desktop.clock.seconds + 3600, reason}};
  }

  FakeMailState state;
};

TEST_F(MailWatchTest, TheTrayAndTheListTellHowTheMailsFare) {
  const struct {
    MailLink link;
    MailStage stage;
    const char* line;
    const char* ofGame;
  } rows[] = {
      {MailLink::Connected, MailStage::Sending, "", "The move is on its way."},
      {MailLink::Connected, MailStage::Waiting, "1 mail is waiting",
       "The move waits to be sent, next try 09:05: Greylisted."},
      {MailLink::Waiting, MailStage::Waiting, "Waiting for the network since 07:05, next try 08:20",
       "The move waits to be sent, next try 09:05: Greylisted."},
      {MailLink::Connected, MailStage::Failed, "1 mail could not be sent",
       "The move could not be sent: Greylisted."},
      {MailLink::Refused, MailStage::Waiting, "The mail server refuses the account",
       "The move waits to be sent, next try 09:05: Greylisted."},
  };
  state.connection.since = desktop.clock.seconds - 3600;
  state.connection.nextTry = desktop.clock.seconds + 900;
  for (const auto& row : rows) {
    state.connection.link = row.link;
    Has(row.stage, "Greylisted.");
    EXPECT_EQ(MailLine(), row.line);
    const GameMails mails;
    ASSERT_NE(mails.Of(Game(1, 2, "Anna")), nullptr);
    EXPECT_EQ(mails.Of(Game(1, 2, "Anna"))->text, row.ofGame);
    EXPECT_EQ(MayDeliverNow(), row.stage == MailStage::Waiting);
    UpdateTrayStatus(platform::TrayOperation::Modify);
    EXPECT_NE(Happened().find(row.line), std::string::npos);
  }
}

TEST_F(MailWatchTest, AFailureIsToldOnceWhenNothingElseIsUpAndMendedByTheUser) {
  Has(MailStage::Failed, "No such user");
  Process().CheckTimerHeld = true;
  TellOfMailTrouble();
  EXPECT_TRUE(desktop.boxes.messages.empty());
  Process().CheckTimerHeld = false;
  desktop.boxes.answers = {false};
  desktop.windows.newAddress = "new@example.org";
  for (int time = 0; time < 2; ++time) TellOfMailTrouble();
  ASSERT_EQ(desktop.boxes.messages.size(), 1u);
  EXPECT_NE(desktop.LastMessage().second.find("No such user"), std::string::npos);
  ASSERT_EQ(desktop.mail.sent.size(), 1u);
  EXPECT_EQ(desktop.mail.sent[0].recipientAddress, "new@example.org");
}

TEST_F(MailWatchTest, ARefusalTakesTheProgramOfflineAndIsToldOnce) {
  state.connection = {MailLink::Refused, 0, 0, 0, "Wrong password."};
  for (int time = 0; time < 2; ++time) FollowMails();
  EXPECT_TRUE(Process().Offline);
  ASSERT_EQ(desktop.boxes.messages.size(), 1u);
  EXPECT_NE(desktop.LastMessage().second.find("Wrong password."), std::string::npos);
  state.connection.link = MailLink::Connected;
  FollowMails();
  EXPECT_FALSE(Process().Offline) << "the account is taken again";
}

TEST_F(MailWatchTest, WhoSignsInAnewAtARefusalIsLoggedOnAtOnce) {
  state.connection = {MailLink::Refused, 0, 0, 0, "Please sign in again.", true};
  desktop.boxes.answers = {false};
  platform::TheSeams().hooks.signIn = [this] {
    state.connection = {};
    return true;
  };
  FollowMails();
  EXPECT_FALSE(Process().Offline);
  EXPECT_EQ(desktop.boxes.messages.size(), 1u);
}

}  // namespace
}  // namespace shell
