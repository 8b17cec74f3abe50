// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/arrivals.h"
#include "mail/mail_fixture.h"
#include "mail/mail_session.h"
#include "mail/sending.h"
#include "mail/unsent.h"
#include "platform/registry.h"

namespace mail {
namespace {

using platform::Process;

using Session = MailFixture;

TEST_F(Session, LogonIsGuardedAgainstAnEarlierCrash) {
  const std::string guard = "Email logon failer", failure = "Network error.";
  const struct {
    const char* name;
    bool guard;
    const char* failing;
    bool online;
    const char* guardWritten;
    std::string told;
    bool another = false, readOnly = false;
    const char* options = "";
  } rows[] = {
      {"plain logon", false, "", true, "True False ", ""},
      {"guard stands", true, "", false, "", guard},
      {"no network", false, "", false, "", "", false, false, "-nonetwork"},
      {"logon fails", false, "SignOn", false, "True False ", failure},
      {"the guard of another process", true, "", true, "", "", true},
      {"guard can't be stored", false, "", true, "", "", false, true},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    platform::SetupGlobalVariables("/program", row.options);
    platform::SetLogonStatus(row.guard);
    desktop.mail.SessionID(0);
    desktop.mail.failing = {row.failing};
    desktop.settings.readOnly = row.readOnly;
    std::unique_ptr<platform::HeldLock> another;
    if (row.another) another = desktop.files.Lock("/program/Data/logon.lock");
    ForgetRecords();
    MailLogon(true);
    EXPECT_EQ(Process().Offline, !row.online);
    std::string written;
    for (const auto& [name, value] : desktop.settings.writes) written += value + " ";
    EXPECT_EQ(written, row.guardWritten);
    EXPECT_EQ(desktop.LastMessage().first, row.told);
    EXPECT_EQ(desktop.files.locked.size(), row.another ? 1U : 0U);
    ForgetEarlierCrash();
    EXPECT_EQ(platform::GetLogonStatus(), row.guard && row.another)
        << "not this process's to clear";
  }
}

TEST_F(Session, ALogonThatWantsASignInOffersItAndIsTriedAgain) {
  struct : platform::MailState {
    platform::MailConnection Connection() override {
      return {platform::MailLink::Refused, 0, 0, 0, {}, true};
    }
  } state;
  platform::TheSeams().mailState = &state;
  desktop.mail.SessionID(0);
  for (const bool signsIn : {false, true}) {
    desktop.mail.failing = {"SignOn"};
    desktop.boxes.answers = {!signsIn};
    platform::TheSeams().hooks.signIn = [this] {
      desktop.mail.failing.clear();
      return true;
    };
    MailLogon(true);
    EXPECT_EQ(Process().Offline, !signsIn);
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
  for (const auto& row : rows) {
    platform::SetupGlobalVariables("/program", row.options);
    desktop.mail.inbox.clear();
    desktop.mail.SessionID(0);
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
    desktop.mail.RecipIndex(leftOver);
    desktop.mail.RecipAddress("left@over.org");
  }
  struct : platform::MovePages {
    platform::MovePage PageOf(std::int32_t gameID) override {
      if (raises) throw std::runtime_error("no page");
      return {std::to_string(gameID), "picture"};
    }
    bool raises = false;
  } movePages;
  platform::TheSeams().movePages = &movePages;
  EXPECT_TRUE(SendMoveMail(7));
  ASSERT_EQ(desktop.mail.sent.size(), 1U);
  EXPECT_EQ(desktop.mail.sent[0].page, (platform::MovePage{"7", "picture"}));
  movePages.raises = true;
  EXPECT_TRUE(SendMoveMail(7));
  EXPECT_EQ(desktop.mail.sent.at(1).page.html, "") << "but sent it is";
  const fakes::SentMail& mail = desktop.mail.sent[0];
  EXPECT_EQ(mail.recipientName + " " + mail.recipientAddress, "Bernd bernd@example.org");
  EXPECT_EQ(mail.subject, "Tarvolenix : e5, No comment.");
  EXPECT_EQ(mail.text, FromAnna(2));
  EXPECT_TRUE(desktop.boxes.messages.empty());
  EXPECT_EQ(LastMails(), (std::map<std::string, std::int64_t>{
                             {ThreadOf(AnnasGame()), platform::TheSeams().clock->Seconds()}}));
}

TEST_F(Session, FailureToSendIsTold) {
  Store(AnnasGame(), 1);
  Store(BerndsGame(), 0);
  desktop.mail.failing = {"Send"};
  desktop.mail.problem = "Nobody is there.";
  for (const int id : {7, 12, 99}) {  // 12 has no move to tell, 99 isn't there
    ForgetRecords();
    EXPECT_FALSE(SendMoveMail(id));
    EXPECT_EQ(desktop.LastMessage().first, "Transmission error.");
    const bool isServices = Told().ends_with("re-send it.\n\nThe cause: Nobody is there.");
    EXPECT_EQ(isServices, id == 7) << Told();
    desktop.mail.failing.clear();
    EXPECT_TRUE(desktop.mail.sent.empty());
  }
}

TEST_F(Session, WhatARunSavedAndDidntSendTheNextLogonSends) {
  const struct {
    const char* name;
    int movesBefore, stored;
    bool ended;  ///< in order
    std::size_t sent;
  } rows[] = {
      {"killed behind the saving", 1, 2, false, 1},
      {"killed ahead of the saving", 2, 2, false, 0},
      {"ended in order", 1, 2, true, 0},
  };
  for (const auto& row : rows) {
    desktop.files.content.clear();
    desktop.mail.sent.clear();
    desktop.mail.SessionID(0);
    Store(AnnasGame(), row.movesBefore);
    {
      SendingNote note(7);
      if (!row.ended) note.Keep();
    }
    Store(AnnasGame(), row.stored);
    MailLogon(false);
    EXPECT_EQ(desktop.mail.sent.size(), row.sent) << row.name;
    for (const auto& [path, text] : desktop.files.content) {
      EXPECT_EQ(path.find("sending-"), std::string::npos) << row.name;
    }
  }
}

}  // namespace
}  // namespace mail
