// SPDX-License-Identifier: GPL-3.0-or-later
// Mail on servers that misbehave. Whatever they do, an operation ends with an answer or a
// MailError, and the next one finds a server that has come to its senses.
#include "post/server_mail.h"

#include <gtest/gtest.h>

#include "rude_server.h"

namespace {

using platform::MailError;
using post::MailAccount;
using post::ServerMail;

// Nobody waits for so long on purpose: it is for a machine that is busy with other tests.
constexpr auto patience = std::chrono::seconds(20);

// Only where a failure is expected: on a busy machine a healthy server may take longer, too.
constexpr auto impatience = std::chrono::milliseconds(100);

const Answers imapAnswers = {
    {"", "* OK ready\n"},
    {"CAPABILITY", "* CAPABILITY IMAP4rev1 UIDPLUS\n$ OK done\n"},
    {"LOGIN", "$ OK done\n"},
    {"AUTHENTICATE XOAUTH2", "$ OK done\n"},
    {"AUTHENTICATE PLAIN AG", "$ OK done\n"},
    {"AUTHENTICATE PLAIN", "+ \n"},
    {"AG1l", "T2 OK done\n"},
    {emptyLine, "$ NO go away\n"},
    {" ID (\"name\"", "$ BAD what?\n"},
    {"SELECT INBOX", "* FLAGS (\\Seen)\n* 2 EXISTS\n* OK [UIDVALIDITY 7] fine\n$ OK done\n"},
    {"NOOP", "* 3 EXISTS\n$ OK done\n"},
    {"EXAMINE", "* 2 EXISTS\n$ OK done\n"},
    {"HEADER Message-ID", "* SEARCH\n$ OK done\n"},
    {"UID SEARCH", "* SEARCH 9 4\n$ OK done\n"},
    {"RFC822.SIZE",
     "* 1 FETCH (UID 4 FLAGS (\\Seen) RFC822.SIZE 80 BODY[HEADER.FIELDS (SUBJECT)] {28}\n"
     "Subject: Tarvolenix : e4\n\n)\n"
     "* 7 FETCH (FLAGS (\\Answered))\n"
     "* 2 FETCH (RFC822.SIZE 60 UID 9 FLAGS () BODY[HEADER.FIELDS (SUBJECT)] \"Subject: Hi\")\n"
     "$ OK done\n"},
    {"BODY.PEEK[]",
     "* 1 FETCH (UID 4 BODY[]<0> {63}\n"
     "From: Bob <bob@example.org>\nSubject: Tarvolenix : e4\n\ntext\n)\n$ OK done\n"},
    {"UID STORE", "$ OK done\n"},
    {"UID MOVE", "* 1 EXPUNGE\n$ OK done\n"},
    {"UID EXPUNGE", "* 1 EXPUNGE\n$ OK done\n"},
    {"LIST", "* LIST (\\Sent) \"/\" \"Out \\\"going\\\"\"\n$ OK done\n"},
    {"APPEND", "+ go on\n"},
    {"LOGOUT", "* BYE\n$ OK done\n"},
    {endOfMail, "$ OK done\n"},
};

const std::string credentials = "AG1lAHNlY3JldA==";

const Answers smtpAnswers = {
    {"", "220 ready\n"},        {"EHLO", "250-here\n250 AUTH PLAIN\n"},
    {"AUTH PLAIN", "334 \n"},   {"MAIL FROM", "250 fine\n"},
    {"RCPT TO", "250 fine\n"},  {"DATA", "354 go on\n"},
    {"QUIT", "221 goodbye\n"},  {credentials, "235 fine\n"},
    {endOfMail, "250 taken\n"},
};

// Its text ends in the line at which the servers stop swallowing it.
const letters::OutgoingMail mailToBob = {
    {"Me", "me@example.org"}, {{"Bob", "bob@example.org"}}, "s", "a\n."};

/// An account, and the servers that it is at.
struct RudeWorld {
  MailAccount Account() const {
    MailAccount account;
    account.MailKind = "Imap";
    account.MyName = "Me";
    account.MyAddress = "me@example.org";
    account.ImapHost = account.SmtpHost = "127.0.0.1";
    account.ImapPort = imap_.Port();
    account.SmtpPort = smtp_.Port();
    account.ImapSecurity = account.SmtpSecurity = "None";
    account.UserName = "me";
    return account;
  }

  void Send() {
    mail_.Send(mailToBob);
    mail_.KeepCopies();
  }

  RudeServer imap_{imapAnswers};
  RudeServer smtp_{smtpAnswers};
  ServerMail mail_{Account(), "secret", patience};
};

class ServerMailTest : public testing::Test, protected RudeWorld {};

struct Rudeness {
  const char* name;
  std::string answer;
};

const Rudeness rudenesses[] = {
    {"hangs up", hangUp},
    {"hangs up in the middle of a literal", "* 1 FETCH (UID 4 BODY[] {100}\nFrom:" + hangUp},
    {"never stops", flood},
    {"never stops a literal", "* 1 FETCH (UID 4 BODY[] {4000000000}\n" + flood},
    {"announces more than there is in the world",
     "* 1 FETCH (X {99999999999999999999999}\n" + hangUp},
    {"says goodbye", "* BYE for now\n" + hangUp},
    {"sends noise", std::string("\x80\xFF{\0}\x7F(((\"\n", 11) + hangUp},
};

/// Does `test` with every rudeness, and those that only this protocol knows, at every command: at
/// all commands at the same time, each in a world of its own.
template <typename Test>
void WithEvery(const std::vector<std::string>& commands, const std::vector<Rudeness>& more,
               const Test& test) {
  std::vector<Rudeness> all(std::begin(rudenesses), std::end(rudenesses));
  all.insert(all.end(), more.begin(), more.end());
  std::vector<std::jthread> threads;
  for (const std::string& command : commands) {
    threads.emplace_back([&all, &command, &test] {
      RudeWorld world;
      for (const Rudeness& rudeness : all) {
        SCOPED_TRACE(rudeness.name + (" at \"" + command + '"'));
        test(world, command, rudeness.answer);
      }
    });
  }
}

const Rudeness imapRefusal = {"says no", "$ NO I won't\n"};

TEST(RudeServersTest, EveryRudenessAtEveryCommandIsAFailureAndNoMore) {
  const std::vector<std::string> asked = {"",     "CAPABILITY", "LOGIN",       "SELECT INBOX",
                                          "NOOP", "UID SEARCH", "RFC822.SIZE", "BODY.PEEK[]"};
  WithEvery(asked, {imapRefusal}, [](RudeWorld& world, auto& command, auto& answer) {
    world.imap_.Answer(command, answer);
    EXPECT_THROW(world.mail_.List(false), MailError);
    world.imap_.Answer(command, "");
    const auto list = world.mail_.List(false);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].id, "7.4");
    EXPECT_EQ(list[0].text, "text\r\n");
    EXPECT_TRUE(list[0].read);
    world.mail_.Close();
  });
}

TEST_F(ServerMailTest, WhoeverSaysNothingOrNothingOfUseIsLeft) {
  const std::string silence = "* O" + hang;
  const std::string babble = "HTTP/1.1 400 Bad\n\n<html>\n";
  const struct {
    RudeServer& server;
    std::string command, answer;
  } rows[] = {{imap_, "", silence}, {imap_, "CAPABILITY", babble}, {imap_, "BODY.PEEK[]", silence},
              {smtp_, "", silence}, {smtp_, "EHLO", babble},       {smtp_, endOfMail, silence}};
  ServerMail impatient(Account(), "secret", impatience);
  for (const auto& [server, command, answer] : rows) {
    SCOPED_TRACE(command + ": " + answer);
    server.Answer(command, answer);
    if (&server == &imap_) {
      EXPECT_THROW(impatient.List(false), MailError);
    } else {
      EXPECT_THROW(impatient.Send(mailToBob), MailError);
    }
    server.Answer(command, "");
  }
  EXPECT_LE(smtp_.Count(endOfMail), 1) << "nothing goes twice";
  EXPECT_EQ(mail_.List(false).size(), 1u);
  EXPECT_NO_THROW(Send());
}

TEST_F(ServerMailTest, WhoeverGreetsAsAStrangerIsLeftAtOnce) {
  ServerMail mail(Account(), "secret", std::chrono::hours(1));
  for (const std::string greeting : {"HTTP/1.1 400 Bad\n", "+OK POP3\n", "220 SMTP\n"}) {
    imap_.Answer("", greeting + hang);
    EXPECT_THROW(mail.Open(), MailError);
  }
  for (const std::string greeting : {"HTTP/1.1 400 Bad\n", "+OK POP3\n", "* OK IMAP4\n"}) {
    smtp_.Answer("", greeting + hang);
    EXPECT_THROW(mail.TryOutgoing(), MailError);
  }
}

TEST_F(ServerMailTest, AConnectionThatWasCutWhileIdleIsMadeAnew) {
  for (const bool unreadOnly : {true, false}) {
    EXPECT_EQ(mail_.List(unreadOnly).size(), 1u);
    imap_.Cut();
  }
  mail_.MarkRead("7.4");
  mail_.Flush();
  imap_.Answer("NOOP", "* BYE idle for too long\n" + hangUp);
  EXPECT_THROW(mail_.List(true), MailError) << "cut twice in a row is no idle connection";
  EXPECT_EQ(imap_.Count("LOGIN"), 4);
  EXPECT_EQ(imap_.Count("UNDELETED UNSEEN OR SUBJECT \"Tarvolenix\" (SINCE "), 1);
}

TEST_F(ServerMailTest, TheServerSearchesOnlyWhereSomethingMayHaveChanged) {
  mail_.List(true);
  mail_.List(true);
  EXPECT_EQ(imap_.Count("UID SEARCH"), 2) << "this server tells of a new mail each time";
  imap_.Answer("NOOP", "$ OK nothing new\n");
  imap_.Answer("RFC822.SIZE", "$ OK nothing left of them\n");
  for (int time = 0; time < 3; ++time) EXPECT_TRUE(mail_.List(true).empty());
  EXPECT_EQ(imap_.Count("UID SEARCH"), 3) << "once behind the last change";
  imap_.Answer("LIST", "* 8 EXISTS\n$ OK no folders\n");
  Send();
  mail_.List(true);
  EXPECT_EQ(imap_.Count("UID SEARCH"), 4) << "told while something else was asked";
  mail_.List(false);
  EXPECT_EQ(imap_.Count("UID SEARCH"), 5) << "other mails are meant";
}

TEST_F(ServerMailTest, WhatIsTooMuchForOneLookComesWithTheNext) {
  std::string numbers;
  for (int uid = 1; uid <= 5001; ++uid) numbers.append(" ").append(std::to_string(uid));
  imap_.Answer("UID SEARCH", "* SEARCH" + numbers + "\n$ OK done\n");
  EXPECT_EQ(mail_.List(true).size(), 1u);
  EXPECT_TRUE(mail_.MoreToCome());
  imap_.Cut();
  EXPECT_TRUE(mail_.List(true).empty()) << "4 was there already";
  EXPECT_EQ(imap_.Count("UID FETCH 5001 "), 1);
  EXPECT_EQ(mail_.List(true).size(), 1u) << "the round is complete";
}

TEST_F(ServerMailTest, OnlyTheMailsThatAreMeantAreMarkedAndDestroyedInFewCommands) {
  mail_.Open();
  for (const char* id : {"7.4", "7.5", "7.6", "8.4"}) mail_.MarkRead(id);
  for (const char* id : {"7.5", "8.5", "7.8"}) mail_.Remove(id);
  mail_.Flush();
  EXPECT_EQ(imap_.Count("UID STORE 4,6 +FLAGS.SILENT (\\Seen)"), 1);
  EXPECT_EQ(imap_.Count("UID STORE 5,8 +FLAGS.SILENT (\\Deleted)"), 1);
  EXPECT_EQ(imap_.Count("UID EXPUNGE 5,8"), 1);
  imap_.Answer("SELECT INBOX", "* OK [UIDVALIDITY 9] all is new\n$ OK done\n");
  imap_.Cut();
  mail_.Remove("7.6");
  mail_.Flush();
  mail_.Flush();
  EXPECT_EQ(imap_.Count("UID STORE"), 2) << "a number of another Inbox means nothing";

  mail_.Close();
  imap_.Answer("CAPABILITY", "* CAPABILITY IMAP4rev1\n$ OK done\n");
  mail_.Remove("9.4");
  mail_.Flush();
  EXPECT_EQ(imap_.Count("UID STORE 4 +FLAGS.SILENT (\\Deleted)"), 1);
  EXPECT_EQ(imap_.Count("EXPUNGE"), 1) << "it would take along what others have marked";

  imap_.Answer("CAPABILITY", "* CAPABILITY IMAP4rev1 MOVE\n$ OK done\n");
  imap_.Answer("LIST", "* LIST (\\HasNoChildren \\Trash) \"/\" Bin\n$ OK done\n");
  mail_.Close();
  mail_.Remove("9.4");
  mail_.Flush();
  EXPECT_EQ(imap_.Count("UID MOVE 4 \"Bin\""), 1);
  EXPECT_EQ(imap_.Count("\\Deleted"), 2);
}

TEST_F(ServerMailTest, AMoveAmongTheSpamIsToldOfOnceALogon) {
  imap_.Answer("LIST", "* LIST () \"/\" Spam\n$ OK done\n");
  const auto list = mail_.List(true);
  ASSERT_EQ(list.size(), 2u);
  EXPECT_FALSE(list[0].isSpam);
  EXPECT_TRUE(list[1].isSpam);
  EXPECT_EQ(mail_.List(true).size(), 1u);
  EXPECT_EQ(imap_.Count("EXAMINE \"Spam\""), 1);
  EXPECT_EQ(imap_.Count("SELECT INBOX"), 2);
}

TEST_F(ServerMailTest, WhatCannotBeCarriedOutIsToldOnceAndLeavesTheConnection) {
  mail_.Open();
  mail_.Remove("7.4");
  imap_.Answer("UID STORE", "$ NO read only\n");
  EXPECT_THROW(mail_.Flush(), MailError);
  imap_.Answer("UID STORE", "");
  EXPECT_NO_THROW(mail_.Flush());
  EXPECT_EQ(imap_.Count("LOGIN"), 1);
}

TEST_F(ServerMailTest, ASentMailIsFiledWhereTheServerSays) {
  Send();
  imap_.Cut();
  EXPECT_EQ(smtp_.Count("MAIL FROM:<me@example.org>"), 1);
  EXPECT_EQ(smtp_.Count("RCPT TO:<bob@example.org>"), 1);
  EXPECT_EQ(smtp_.Count("EHLO [127.0.0.1]"), 1) << "nobody learns this machine's name";
  EXPECT_EQ(imap_.Count("APPEND \"Out \\\"going\\\"\" (\\Seen)"), 1);

  imap_.Answer("LIST", "* LIST () \".\" INBOX.Sent\n* LIST (\\Noselect) \".\" Sent\n$ OK\n");
  Send();
  EXPECT_EQ(imap_.Count("APPEND \"INBOX.Sent\""), 1);
  imap_.Answer("HEADER Message-ID", "* SEARCH 3\n$ OK the server has kept it\n");
  Send();
  imap_.Cut();
  imap_.Answer("LIST", "$ OK no folders\n");
  Send();
  EXPECT_EQ(imap_.Count("APPEND"), 2);
}

TEST(RudeServersTest, ACopyThatCannotBeKeptIsNoFailure) {
  const std::vector<std::string> asked = {"LIST", "EXAMINE", "HEADER Message-ID", "APPEND",
                                          endOfMail};
  WithEvery(asked, {imapRefusal}, [](RudeWorld& world, auto& command, auto& answer) {
    world.mail_.Open();
    world.imap_.Answer(command, answer);
    EXPECT_NO_THROW(world.Send());
    world.imap_.Answer(command, "");
    EXPECT_EQ(world.mail_.List(false).size(), 1u);
  });
}

TEST(RudeServersTest, WhatGoesWrongInSendingIsToldAndNothingGoesTwice) {
  const std::vector<Rudeness> refusals = {{"refuses", "550 no such user\n"},
                                          {"is over quota", "452 mailbox full\n"},
                                          {"is closing", "421 going down\n" + hangUp}};
  const std::vector<std::string> asked = {"",        "EHLO", "AUTH PLAIN", "MAIL FROM",
                                          "RCPT TO", "DATA", endOfMail};
  WithEvery(asked, refusals, [](RudeWorld& world, auto& command, auto& answer) {
    world.smtp_.Answer(command, answer);
    const int before = world.smtp_.Count("MAIL FROM");
    EXPECT_THROW(world.Send(), MailError);
    EXPECT_LE(world.smtp_.Count("MAIL FROM"), before + 1);
    world.smtp_.Answer(command, "");
    EXPECT_NO_THROW(world.Send());
    world.mail_.Close();
  });
}

TEST_F(ServerMailTest, WhatTheServerRepliesDecidesWhetherTheMailIsTriedAgain) {
  const struct {
    std::string command, answer, kind, said;
  } rows[] = {
      {"RCPT TO", "550-5.1.1 No\n550 such user\n", "refused", "5.1.1 No such user (550)"},
      {"DATA", "554 no\n", "refused", "no (554)"},
      {endOfMail, "552 too big\n", "refused", "too big (552)"},
      {"RCPT TO", "450 greylisted\n", "later", "greylisted (450)"},
      {endOfMail, "451 not now\n", "later", "not now (451)"},
      {"", "554 go away\n", "lost", "go away"},
      {"", "421 too many\n", "lost", "too many"},
      {"MAIL FROM", "421 closing\n" + hangUp, "lost", "closing"},
      {"RCPT TO", hangUp, "lost", ""},
      {endOfMail, hangUp, "perhaps", ""},
      {endOfMail, "421 closing\n" + hangUp, "lost", "closing"},
      {"AUTH PLAIN", "454 later\n", "lost", "later"},
      {"AUTH PLAIN", "535 no\n", "login", "refuses the user name or the password."},
      {credentials, "454 4.7.0 Busy\n", "lost", "try again later. The server says: Busy"},
      {credentials, "535 5.7.8 Temporary trouble\n", "lost",
       "try again later. The server says: Tempor"},
      {credentials, "535-5.7.8 Wrong\n535 5.7.8 name\n" + hangUp, "login", "says: Wrong name"},
      {credentials, "534-5.7.9 Get one\n534 5.7.9 at our site\n", "login",
       "wants an app password, made on your provider's web site for one program, not your usual "
       "one. The server says: Get one at our site"},
      {"EHLO", "250-here\n250 AUTH GSSAPI\n", "account", "no way of logging on"},
      {"MAIL FROM", "530 log in\n", "login", "log in"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.command + ": " + row.answer);
    smtp_.Answer(row.command, row.answer);
    std::string kind, said;
    const auto heard = [&](const char* what, const std::exception& error) {
      kind = what;
      said = error.what();
    };
    try {
      mail_.Send(mailToBob);
    } catch (const post::MailRefused& error) {
      heard("refused", error);
    } catch (const post::LoginRefused& error) {
      heard("login", error);
    } catch (const post::AccountRefused& error) {
      heard("account", error);
    } catch (const post::PerhapsSent& error) {
      heard("perhaps", error);
    } catch (const post::ConnectionLost& error) {
      heard("lost", error);
    } catch (const MailError& error) {
      heard("later", error);
    }
    EXPECT_EQ(kind, row.kind);
    EXPECT_NE(said.find(row.said), std::string::npos) << said;
    smtp_.Answer(row.command, "");
  }
  const int logons = smtp_.Count("EHLO");
  for (int time = 0; time < 3; ++time) mail_.Send(mailToBob);
  EXPECT_EQ(smtp_.Count("EHLO"), logons + 1) << "one connection serves them all";
  for (const auto& enough : {std::string("452 too many\n"), "421 too many\n" + hangUp}) {
    smtp_.AnswerOnce("MAIL FROM", enough);
    EXPECT_NO_THROW(mail_.Send(mailToBob)) << "on another connection";
  }
  smtp_.AnswerOnce(endOfMail, hangUp);
  EXPECT_THROW(mail_.Send(mailToBob), post::PerhapsSent);
}

TEST_F(ServerMailTest, NoPasswordTravelsUnencryptedUnasked) {
  MailAccount account = Account();
  for (const char* security : {"Tls", "StartTls", ""}) {
    account.ImapSecurity = account.SmtpSecurity = security;
    ServerMail mail(account, "secret", patience);
    EXPECT_THROW(mail.Open(), MailError) << security;
    EXPECT_THROW(mail.TryOutgoing(), MailError) << security;
  }
  account.ImapHost = account.SmtpHost = "0.0.0.0";  // leads here, but doesn't say so
  account.ImapSecurity = account.SmtpSecurity = "None";
  ServerMail mail(account, "secret", patience);
  EXPECT_THROW(mail.Open(), MailError);
  EXPECT_THROW(mail.TryOutgoing(), MailError);
  EXPECT_EQ(imap_.Count("LOGIN") + imap_.Count("AUTHENTICATE") + smtp_.Count("AUTH"), 0);
}

TEST_F(ServerMailTest, LogsOnInTheWayThatTheServerOffers) {
  MailAccount account = Account();
  account.UserName = "me@\"home\"";
  for (const std::string offer : {"", "AUTH=PLAIN", "AUTH=GSSAPI AUTH=PLAIN SASL-IR ID"}) {
    imap_.Answer("CAPABILITY", "* CAPABILITY IMAP4rev1 " + offer + "\n$ OK done\n");
    EXPECT_NO_THROW(ServerMail(account, "sec\\ret", patience).Open()) << offer;
  }
  EXPECT_EQ(imap_.Count(R"(LOGIN "me@\"home\"" "sec\\ret")"), 1);
  EXPECT_EQ(imap_.Count(" ID ("), 1) << "said where it is wanted, and no matter if it is refused";
  const std::string encoded = "AG1lQCJob21lIgBzZWNccmV0";
  EXPECT_EQ(imap_.Count("AUTHENTICATE PLAIN"), 2);
  EXPECT_EQ(imap_.Count("AUTHENTICATE PLAIN " + encoded), 1);
  EXPECT_EQ(imap_.Count(encoded), 2);
}

TEST_F(ServerMailTest, NoRefusalRepeatsThePassword) {
  for (const std::string echo :
       {R"(LOGIN "me" "sec\"ret")", "bG sec\"ret", "\033[31mAG1lAHNlYyJyZXQ="}) {
    imap_.Answer("LOGIN", "$ NO what is " + echo + "\n");
    try {
      ServerMail(Account(), "sec\"ret", patience).Open();
      ADD_FAILURE() << "was let in";
    } catch (const post::LoginRefused& refusal) {
      EXPECT_EQ(std::string(refusal.what()),
                "The server \"127.0.0.1\" refuses the user name or the password.");
    }
  }
}

TEST_F(ServerMailTest, ATokenStandsForThePassword) {
  MailAccount account = Account();
  account.TokenCommand = "echo to''ken; echo more";
  imap_.Answer("CAPABILITY", "* CAPABILITY IMAP4rev1 AUTH=XOAUTH2 SASL-IR\n$ OK done\n");
  EXPECT_NO_THROW(ServerMail(account, "", patience).Open());
  const std::string encoded = "dXNlcj1tZQFhdXRoPUJlYXJlciB0b2tlbgEB";
  EXPECT_EQ(imap_.Count("AUTHENTICATE XOAUTH2 " + encoded), 1);
  imap_.Answer("AUTHENTICATE XOAUTH2", "+ eyJzdGF0dXMiOiI0MDAifQ==\n");
  EXPECT_THROW(ServerMail(account, "", patience).Open(), post::LoginRefused);
  EXPECT_EQ(imap_.Count("LOGIN"), 0);
  for (const char* command :
       {"exit 1", "true", "echo x; exit 1", "sleep 100", "/no/such/command"}) {
    account.TokenCommand = command;
    EXPECT_THROW(ServerMail(account, "", impatience).Open(), MailError) << command;
  }
}

// However often one hurries, and wherever the server has stopped to speak.
TEST_F(ServerMailTest, WhoeverIsInAHurryIsNotHeldUpForLong) {
  const std::pair<RudeServer*, std::string> rows[] = {{&imap_, ""},          {&imap_, "LOGIN"},
                                                      {&imap_, "NOOP"},      {&smtp_, ""},
                                                      {&smtp_, "MAIL FROM"}, {&smtp_, endOfMail}};
  for (const auto& [server, command] : rows) {
    SCOPED_TRACE(command);
    server->Answer(command, hang);
    ServerMail patient(Account(), "secret", std::chrono::hours(1));
    const std::jthread leaving([&patient](const std::stop_token& over) {
      for (; !over.stop_requested(); std::this_thread::sleep_for(std::chrono::milliseconds(50)))
        patient.Hurry();
    });
    EXPECT_THROW(server == &imap_ ? void(patient.List(true)) : patient.Send(mailToBob), MailError);
    patient.Remove("7.4");
    EXPECT_THROW(patient.Flush(), MailError) << "nor by what is left to do";
    server->Answer(command, "");
    server->GoOn();
  }
}

}  // namespace
