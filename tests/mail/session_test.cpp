// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/mail_fixture.h"
#include "mail/mail_session.h"
#include "mail/sending.h"
#include "platform/registry.h"

namespace mail {
namespace {

using platform::Process;

using Session = MailFixture;

constexpr const char* crashed =
    "2 Email logon failer\nAs some point in the past Tarvolenix crashed while trying to connect to "
    "your email system.  "
    "You are now working off-line and will remain so until you choose Logon / Retrieve games from "
    "the system tray menu and successfully connect to your email client.  Please consult the "
    "document FAQ for help.\n[Ok] /program/Data/Cs005.tvs";
constexpr const char* notConnected =
    "4 Network error.\nTarvolenix failed to connect to your mail service.\n\nPlease ensure you are "
    "logged onto a "
    "network and running an email client.  Tarvolenix is now running Offline.\n[Ok] "
    "/program/Data/Cs005.tvs";
constexpr const char* notSent =
    "4 Transmission error.\nTarvolenix was unable to send your chess move.\n\nPlease re-open the "
    "game and re-send it.\n[OK] /program/Data/Cs005.tvs";

TEST_F(Session, LogonIsGuardedAgainstAnEarlierCrash) {
  const struct {
    const char* name;
    bool guard, session;
    const char* options;
    const char* failing;
    bool showStatus;
    bool online;
    const char* guardWritten;
    const char* told;
  } rows[] = {
      {"plain logon", false, false, "", "", true, true, "True False", ""},
      {"guard stands", true, false, "", "", true, false, "", crashed},
      {"guard stands at the quiet start", true, false, "", "", false, false, "", crashed},
      {"session runs", false, true, "", "", true, true, "", ""},
      {"session runs, guard stands", true, true, "", "", true, false, "", crashed},
      {"session can't be read", false, true, "", "SessionID", true, true, "True False", ""},
      {"no network", false, false, "-nonetwork", "", true, false, "", ""},
      {"logon fails", false, false, "", "SignOn", true, false, "True", notConnected},
      {"logon fails quietly", false, false, "", "SignOn", false, false, "True", ""},
      {"logon fails alone", false, false, "-testingmode", "SignOn", true, false, "True", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    platform::SetupGlobalVariables("/program", row.options);
    platform::SetLogonStatus(row.guard);
    desktop.mail.messages.SessionID(row.session ? 1 : 0);
    desktop.mail.failing = {row.failing};
    Process().CheckTimer.Enabled = true;
    Process().Offline = false;
    ForgetRecords();
    MailLogon(row.showStatus);
    EXPECT_EQ(Process().Offline, !row.online);
    std::string written;
    for (const auto& [name, value] : desktop.settings.writes) {
      written += (written.empty() ? "" : " ") + value;
    }
    EXPECT_EQ(written, row.guardWritten);
    EXPECT_EQ(desktop.mail.calls.size(), written.empty() ? 0U : 1U);  // SignOn alone is recorded
    EXPECT_EQ(Told(), row.told);
    EXPECT_TRUE(Process().CheckTimer.Enabled && !Process().CheckTimerHeld);
    desktop.mail.failing.clear();
    EXPECT_EQ(desktop.mail.messages.SessionID() > 0, row.session || row.online);
    EXPECT_EQ(desktop.boxes.statusTexts.empty(), !row.showStatus);
    if (row.showStatus) {
      EXPECT_EQ(desktop.boxes.statusTexts.back(), "");
    }
  }
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
    const char* from;
  } rows[] = {
      {"online: the Inbox", false, "", "sender@example.org"},
      {"online stand-alone: the Inbox too", false, "-testingmode", "sender@example.org"},
      {"offline: nowhere", false, "-nonetwork", ""},
      {"offline stand-alone: the waiting files", false, "-nonetwork -testingmode",
       "/program/Data/Cmove1.txt"},
      {"import, offline", true, "-nonetwork", "/home/anna/saved mail"},
      {"import, online", true, "", "/home/anna/saved mail"},
  };
  desktop.files.content["/home/anna/saved mail"] = FromAnna(1);
  platform::TheDesktop().hooks.pickMoveFile = [] { return "/home/anna/saved mail"; };
  platform::TheDesktop().hooks.buildTrayGameMenu = [] { EXPECT_TRUE(Process().CheckTimerHeld); };
  for (const auto& row : rows) {
    platform::SetupGlobalVariables("/program", row.options);
    desktop.mail.inbox.clear();
    desktop.mail.messages.SessionID(0);
    Arrives(FromAnna(1));
    File("Cmove1.txt") = FromAnna(1);
    std::string from;
    for (const auto& arrival : LogonAndCollect(row.importFile, false, true)) from += arrival.from;
    EXPECT_EQ(from, row.from) << row.name;
  }
}

TEST_F(Session, MoveGoesToTheOpponentAlone) {
  Store(AnnasGame(), 2);
  Store(BerndsGame(), 1);
  for (const int leftOver : {0, 1}) {
    desktop.mail.messages.RecipIndex(leftOver);
    desktop.mail.messages.RecipAddress("left@over.org");
  }
  EXPECT_TRUE(SendMoveMail(7));
  EXPECT_TRUE(SendMoveMail(12));
  std::string sent;
  for (const fakes::SentMail& mail : desktop.mail.sent) {
    sent += mail.recipientName + " " + mail.recipientAddress + " " + mail.subject + "\n";
  }
  EXPECT_EQ(sent,
            "Bernd bernd@example.org Tarvolenix : e5, No comment.\n"
            "Anna anna@example.org Tarvolenix : e4, Good luck!\n");
  EXPECT_EQ(desktop.mail.sent.at(0).text, FromAnna(2));
  EXPECT_EQ(File("tvgdb.bak"), GameFile());
  EXPECT_TRUE(desktop.boxes.messages.empty());
}

TEST_F(Session, FailureToSendIsTold) {
  Store(AnnasGame(), 1);
  Store(BerndsGame(), 0);
  const auto fails = [&](std::int32_t id) {
    ForgetRecords();
    EXPECT_FALSE(SendMoveMail(id));
    EXPECT_EQ(Told(), notSent);
    EXPECT_TRUE(desktop.mail.sent.empty());
  };
  fails(99);  // no such game
  fails(12);  // no move to tell
  desktop.mail.failing = {"Send"};
  fails(7);
  desktop.mail.failing.clear();
  GameFile() = "no number|\r\n";
  fails(7);
}

}  // namespace
}  // namespace mail
