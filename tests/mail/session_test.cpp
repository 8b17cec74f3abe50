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
    std::string told;
    bool another = false, readOnly = false;
    const char* problem = "";
  } rows[] = {
      {"plain logon", false, false, "", "", true, true, "True False", ""},
      {"guard stands", true, false, "", "", true, false, "", crashed},
      {"session runs", false, true, "", "", true, true, "", ""},
      {"no network", false, false, "-nonetwork", "", true, false, "", ""},
      {"logon fails", false, false, "", "SignOn", true, false, "True", notConnected},
      {"logon fails, and the service says why", false, false, "", "SignOn", true, false, "True",
       std::string(notConnected).insert(std::string(notConnected).find("\n["), "\n\nWhy it is."),
       false, false, "Why it is."},
      {"logon fails quietly", false, false, "", "SignOn", false, false, "True", ""},
      {"the guard of another process", true, false, "", "", true, true, "", "", true},
      {"another process logs on", false, false, "", "", true, true, "", "", true},
      {"guard can't be stored", false, false, "", "", true, true, "", "", false, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    platform::SetupGlobalVariables("/program", row.options);
    platform::SetLogonStatus(row.guard);
    desktop.mail.messages.SessionID(row.session ? 1 : 0);
    desktop.mail.failing = {row.failing};
    desktop.settings.readOnly = row.readOnly;
    std::unique_ptr<platform::HeldLock> another;
    if (row.another) another = desktop.files.Lock("/program/Data/logon.lock");
    desktop.mail.problem = row.problem;
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
    EXPECT_EQ(Told(), row.told);
    EXPECT_TRUE(Process().CheckTimer.Enabled && !Process().CheckTimerHeld);
    EXPECT_EQ(desktop.files.locked.size(), row.another ? 1U : 0U);
    ForgetEarlierCrash();
    EXPECT_EQ(platform::GetLogonStatus(), row.guard && row.another)
        << "not this process's to clear";
  }
}

TEST_F(Session, CollectsFromWhereMovesComeFrom) {
  const struct {
    const char* name;
    const char* options;
    const char* from;
  } rows[] = {
      {"online: the Inbox", "", "sender@example.org"},
      {"offline: nowhere", "-nonetwork", ""},
      {"offline stand-alone: the waiting files", "-nonetwork -testingmode",
       "/program/Data/Cmove1.txt"},
  };
  platform::TheDesktop().hooks.buildTrayGameMenu = [] { EXPECT_TRUE(Process().CheckTimerHeld); };
  for (const auto& row : rows) {
    platform::SetupGlobalVariables("/program", row.options);
    desktop.mail.inbox.clear();
    desktop.mail.messages.SessionID(0);
    Arrives(FromAnna(1));
    File("Cmove1.txt") = FromAnna(1);
    std::string from;
    for (const auto& arrival : LogonAndCollect(false, false, true)) from += arrival.from;
    EXPECT_EQ(from, row.from) << row.name;
  }
}

TEST_F(Session, MoveGoesToTheOpponentAlone) {
  Store(AnnasGame(), 2);
  for (const int leftOver : {0, 1}) {
    desktop.mail.messages.RecipIndex(leftOver);
    desktop.mail.messages.RecipAddress("left@over.org");
  }
  EXPECT_TRUE(SendMoveMail(7));
  ASSERT_EQ(desktop.mail.sent.size(), 1U);
  const fakes::SentMail& mail = desktop.mail.sent[0];
  EXPECT_EQ(mail.recipientName + " " + mail.recipientAddress, "Bernd bernd@example.org");
  EXPECT_EQ(mail.subject, "Tarvolenix : e5, No comment.");
  EXPECT_EQ(mail.text, FromAnna(2));
  EXPECT_TRUE(desktop.boxes.messages.empty());
}

TEST_F(Session, FailureToSendIsTold) {
  Store(AnnasGame(), 1);
  Store(BerndsGame(), 0);
  desktop.mail.failing = {"Send"};
  for (const int id : {7, 12, 99}) {  // 12 has no move to tell, 99 isn't there
    ForgetRecords();
    EXPECT_FALSE(SendMoveMail(id));
    EXPECT_EQ(Told(), notSent);
    desktop.mail.failing.clear();
    EXPECT_TRUE(desktop.mail.sent.empty());
  }
}

}  // namespace
}  // namespace mail
