// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "mail/mail_fixture.h"
#include "mail/mail_session.h"
#include "mail/sending.h"
#include "platform/registry.h"

namespace mail {
namespace {

using platform::Process;

class Session : public MailFixture {
 protected:
  bool Called(const std::string& member) const {
    return std::count(desktop.mail.calls.begin(), desktop.mail.calls.end(), member) > 0;
  }
};

TEST_F(Session, LogonIsGuardedAgainstAnEarlierCrash) {
  const char* guardTitle = "Email logon failer";
  const char* failureTitle = "Network error.";
  const struct {
    const char* name;
    bool guard, session;
    const char* options;
    const char* failing;
    bool showStatus;
    bool offline, guardAfter, signsOn;
    const char* title;
  } rows[] = {
      {"plain logon", false, false, "", "", true, false, false, true, ""},
      {"guard stands", true, false, "", "", true, true, true, false, guardTitle},
      {"guard stands at the quiet start", true, false, "", "", false, true, true, false,
       guardTitle},
      {"session runs", false, true, "", "", true, false, false, false, ""},
      {"session runs, guard stands", true, true, "", "", true, true, true, false, guardTitle},
      {"session can't be read: none", false, true, "", "SessionID", true, false, false, true, ""},
      {"no network", false, false, "-nonetwork", "", true, true, false, false, ""},
      {"logon fails", false, false, "", "SignOn", true, true, true, true, failureTitle},
      {"logon fails quietly", false, false, "", "SignOn", false, true, true, true, ""},
      {"logon fails stand-alone", false, false, "-testingmode", "SignOn", true, true, true, true,
       ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    platform::SetupGlobalVariables("/program", row.options);
    desktop.boxes.messages.clear();
    desktop.mail.calls.clear();
    desktop.mail.failing = {row.failing};
    platform::SetLogonStatus(row.guard);
    desktop.mail.messages.SessionID(row.session ? 1 : 0);
    Process().CheckTimer.Enabled = true;
    MailLogon(row.showStatus);
    EXPECT_EQ(Process().Offline, row.offline);
    EXPECT_EQ(platform::GetLogonStatus(), row.guardAfter);
    EXPECT_EQ(Called("SignOn"), row.signsOn);
    EXPECT_EQ(TitleShown(), row.title);
    EXPECT_TRUE(Process().CheckTimer.Enabled && !Process().CheckTimerHeld);
    if (row.showStatus) {
      EXPECT_EQ(desktop.boxes.statusTexts.back(), "");
    }
  }
}

TEST_F(Session, GuardStandsDuringTheCall) {
  desktop.mail.failing = {"SignOn"};
  MailLogon(true);
  EXPECT_EQ(TextShown(),
            "Tarvolenix failed to connect to your mail service.\n\nPlease ensure you are logged "
            "onto a network and running an email client.  Tarvolenix is now running Offline.");
  EXPECT_EQ(desktop.boxes.messages.back().icon, 4);
  // Met as a crash by the next one; the user's own retrieve clears it and gets through.
  desktop.mail.failing.clear();
  MailLogon(true);
  EXPECT_EQ(TextShown(),
            "As some point in the past Tarvolenix crashed while trying to connect to your email "
            "system.  You are now working off-line and will remain so until you choose Logon / "
            "Retrieve games from the system tray menu and successfully connect to your email "
            "client.  Please consult the document FAQ for help.");
  EXPECT_EQ(desktop.boxes.messages.back().icon, 2);
  platform::SetLogonStatus(false);
  MailLogon(true);
  EXPECT_FALSE(Process().Offline);
  const auto& writes = desktop.settings.writes;
  EXPECT_EQ(writes.at(writes.size() - 2).second, "True");
  EXPECT_EQ(writes.back().second, "False");
}

TEST_F(Session, LogoffIgnoresErrors) {
  desktop.mail.failing = {"SignOff"};
  MailLogoff(true);
  EXPECT_EQ(desktop.boxes.statusTexts, (std::vector<std::string>{"Quiting Tarvolenix...", ""}));
  EXPECT_TRUE(desktop.boxes.messages.empty());
}

TEST_F(Session, CollectsFromWhereMovesComeFrom) {
  const struct {
    const char* name;
    bool importFile;
    const char* options;
    const char* failing;
    std::vector<std::string> from;
  } rows[] = {
      {"online: the Inbox", false, "", "", {"sender@example.org"}},
      {"online stand-alone: the Inbox too", false, "-testingmode", "", {"sender@example.org"}},
      {"offline", false, "-nonetwork", "", {}},
      {"offline stand-alone: the waiting files",
       false,
       "-nonetwork -testingmode",
       "",
       {"/program/Data/Cmove1.txt"}},
      {"import, offline: the picked file", true, "-nonetwork", "", {"/home/anna/saved mail"}},
      {"import, online: the picked file", true, "", "", {"/home/anna/saved mail"}},
  };
  desktop.files.content["/home/anna/saved mail"] = FromHost(1);
  platform::TheDesktop().hooks.pickMoveFile = [] { return "/home/anna/saved mail"; };
  for (const auto& row : rows) {
    platform::SetupGlobalVariables("/program", row.options);
    desktop.mail.inbox.clear();
    desktop.mail.messages.SessionID(0);
    Arrives(FromHost(1));
    desktop.files.content[folder + "Cmove1.txt"] = FromHost(1);
    std::vector<std::string> from;
    for (const auto& arrival : LogonAndCollect(row.importFile, false, true)) {
      from.push_back(arrival.from);
    }
    EXPECT_EQ(from, row.from) << row.name;
  }
}

using Sending = Session;

TEST_F(Sending, GoesToTheOpponentAlone) {
  Store(Game(true, hostsID, 0), 2);
  store::GameRecord guests = Game(false, guestsID, 3);
  guests.GAME_WHITE_NAME = "";
  Store(guests, 1);
  desktop.mail.messages.RecipIndex(0);
  desktop.mail.messages.RecipAddress("left@over.org");
  desktop.mail.messages.RecipIndex(1);
  desktop.mail.messages.RecipAddress("left@over.too");

  EXPECT_TRUE(SendMoveMail(hostsID));
  EXPECT_TRUE(SendMoveMail(guestsID));
  ASSERT_EQ(desktop.mail.sent.size(), 2U);
  const fakes::SentMail& first = desktop.mail.sent[0];
  EXPECT_EQ(first.recipientName, "Bernd");
  EXPECT_EQ(first.recipientAddress, "bernd@example.org");
  EXPECT_EQ(first.subject, "Tarvolenix : e5, No comment.");
  EXPECT_EQ(first.text, BuildMailBody(Game(true, hostsID, 0), Moves(2)));
  EXPECT_EQ(desktop.mail.sent[1].recipientName, "");
  EXPECT_EQ(desktop.mail.sent[1].recipientAddress, "anna@example.org");
  EXPECT_EQ(desktop.files.content[folder + "tvgdb.bak"], desktop.files.content[databasePath]);
  EXPECT_TRUE(desktop.boxes.messages.empty());
}

TEST_F(Sending, FailureIsTold) {
  Store(Game(true, hostsID, 0), 1);
  Store(Game(true, 8, 0), 0);
  const auto failsToSend = [&](std::int32_t id) {
    desktop.boxes.messages.clear();
    EXPECT_FALSE(SendMoveMail(id));
    EXPECT_EQ(TitleShown(), "Transmission error.");
    EXPECT_EQ(TextShown(),
              "Tarvolenix was unable to send your chess move.\n\nPlease re-open the game and "
              "re-send it.");
    EXPECT_TRUE(desktop.mail.sent.empty());
  };
  failsToSend(99);  // no such game
  failsToSend(8);   // no move to tell
  desktop.mail.failing = {"Send"};
  failsToSend(hostsID);
  desktop.mail.failing.clear();
  DamageStore();
  failsToSend(hostsID);
}

}  // namespace
}  // namespace mail
