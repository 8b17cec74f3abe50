// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/mail_contract.h"

namespace {

using platform::MailError;
using Inbox = std::map<std::string, bool>;

/// SMTP knows no line without an end: it may be put there on the way. And some mailboxes end their
/// lines in a line feed alone.
std::string WithLastLineEnded(std::string text) {
  std::erase(text, '\r');
  return text.ends_with('\n') ? text : text + '\n';
}

TEST_P(MailContractTest, SessionIsAboveZeroWhileSignedOn) {
  EXPECT_EQ(session_.SessionID(), 0);
  SignOn();
  EXPECT_GT(session_.SessionID(), 0);
  EXPECT_EQ(messages_.SessionID(), session_.SessionID());
  session_.SignOn();
  EXPECT_EQ(FetchedSubjects(false), "") << "an empty Inbox";
  session_.SignOff();
  session_.SignOff();
  EXPECT_EQ(session_.SessionID(), 0);
  EXPECT_THROW(messages_.Fetch(), MailError);
  Compose("you@localhost", "Tarvolenix : e4", "x");
  EXPECT_THROW(messages_.Send(), MailError);
  SignOn();
  EXPECT_EQ(FetchedSubjects(false), "");
}

TEST_P(MailContractTest, OnlyReadingTheTextMarksAMailAndOnlyThatOneAtTheNextFlush) {
  for (const char* subject : {"Tarvolenix : a", "Hello", "Tarvolenix : b"}) Deliver(subject);
  SignOn();
  EXPECT_EQ(FetchedSubjects(true), "a b ");
  messages_.MsgIndex(0);
  EXPECT_EQ(messages_.MsgOrigDisplayName(), "You");
  EXPECT_EQ(messages_.MsgOrigAddress(), "you@localhost");
  EXPECT_EQ(TextOf(1), "text");
  EXPECT_EQ(Subjects(), "a b ") << "a mark changes nothing of the set";
  EXPECT_EQ(FetchedSubjects(true), "a b ") << "nor of the store, before the flush";
  messages_.Flush();
  EXPECT_EQ(world_->Inbox(),
            (Inbox{{"Tarvolenix : a", false}, {"Hello", false}, {"Tarvolenix : b", true}}));
  EXPECT_EQ(FetchedSubjects(true), "a ");
  EXPECT_EQ(FetchedSubjects(false), "a b ");
}

TEST_P(MailContractTest, DeleteMovesTheFollowingDownAndIsFinal) {
  for (const char* subject : {"Tarvolenix : a", "Hello", "Tarvolenix : b", "Tarvolenix : c"}) {
    Deliver(subject);
  }
  SignOn();
  EXPECT_EQ(FetchedSubjects(true), "a b c ");
  messages_.MsgIndex(1);
  messages_.Delete();
  EXPECT_EQ(messages_.MsgCount(), 2);
  EXPECT_EQ(messages_.MsgSubject(), "Tarvolenix : c") << "the index stays";
  Deliver("Tarvolenix : d");
  EXPECT_EQ(Subjects(), "a c ") << "what arrives during a walk waits for the next";
  EXPECT_EQ(TextOf(0), "text");
  messages_.Delete();
  EXPECT_EQ(FetchedSubjects(false), "c d ");
  for (int index : {-1, 2}) {
    messages_.MsgIndex(index);
    EXPECT_THROW(messages_.MsgOrigAddress(), MailError);
    EXPECT_THROW(messages_.Delete(), MailError);
  }
  TextOf(0);
  messages_.MsgIndex(1);
  messages_.Delete();
  session_.SignOff();
  EXPECT_EQ(world_->Inbox(), (Inbox{{"Hello", false}, {"Tarvolenix : c", true}}));
}

TEST_P(MailContractTest, SendReachesTheOneRecipient) {
  SignOn();
  Compose("first@localhost", "Tarvolenix : e4, one", "one");
  Compose("Second@localhost", "Tarvolenix : e4, two", "two");
  SendAndWait();
  EXPECT_TRUE(world_->ReceivedBy("first@localhost").empty());
  const auto received = world_->ReceivedBy("second@localhost");
  ASSERT_EQ(received.size(), 1u);
  EXPECT_EQ(received[0].subject, "Tarvolenix : e4, two");
  EXPECT_EQ(received[0].name, userName);
  EXPECT_EQ(received[0].address, userAddress);
  EXPECT_EQ(WithLastLineEnded(received[0].text), "two\n");
  EXPECT_FALSE(received[0].read);
}

TEST_P(MailContractTest, WhatCannotBeSentRaises) {
  SignOn();
  for (const char* address : {"", "a b@localhost", "a@localhost\r\nBcc: b@localhost"}) {
    Compose(address, "Tarvolenix : e4", "x");
    EXPECT_THROW(messages_.Send(), MailError) << address;
  }
  messages_.DeleteRecipient();
  EXPECT_THROW(messages_.Send(), MailError) << "no recipient";
  world_->Refuse("full@localhost");
  Compose("full@localhost", "Tarvolenix : e4", "x");
  const auto failed = SendAndWait();
  ASSERT_EQ(failed.size(), 1u);
  EXPECT_EQ(failed[0].stage, platform::MailStage::Failed);
  EXPECT_NE(failed[0].reason, "");
  Compose("you@localhost", "Tarvolenix : e4", "x");
  EXPECT_EQ(SendAndWait().size(), 1u) << "it holds no other mail up";
}

struct TextCase {
  const char* name;
  std::string subject;  ///< behind the prefix
  std::string text;
};

std::string LongText() {
  std::string text;
  while (text.size() < 65536)
    text += std::to_string(text.size()) + "|5254|e4|Grüße ♔ und = Zeichen|\r\n";
  return text;
}

const TextCase textCases[] = {
    {"umlauts and other scripts", "e4, Grüße 棋 ♔ 😀", "Grüße 棋 ♔ 😀"},
    {"markup is text", "<b>&amp;</b>", "<html><b>&lt;</b> & <script>"},
    {"line ends, blank lines and blanks at both ends", "e4", "\r\n one \r\n\r\n\ttwo \r\n \r\n"},
    {"lines that look like a mail's own", "e4",
     ".\r\n..\r\nFrom me\r\n--\r\n-- x\r\nSubject: y\r\n=3D=\r\n>From\r\n"},
    {"what looks like an encoded word", "=?utf-8?Q?x?= =?", "=?utf-8?Q?x?="},
    {"runs of blanks, quotes and signs", "a  b   \"c\", (d) <e@f>; \\ : [g]", "\"x\"; \\ , y"},
    {"an empty text", "e4", ""},
    {"a subject that is longer than a line", std::string(300, 'x') + " " + std::string(300, 'y'),
     "z"},
    {"64 KB in long and many lines", "e4", LongText() + std::string(5000, 'x')},
};

TEST_P(MailContractTest, TextsArriveAsTheyWereSent) {
  SignOn();
  for (const TextCase& row : textCases) {
    SCOPED_TRACE(row.name);
    Compose(userAddress, "Tarvolenix : " + row.subject, row.text);
    SendAndWait();
    EXPECT_EQ(FetchedSubjects(true), row.subject + ' ');
    EXPECT_EQ(WithLastLineEnded(TextOf(0)), WithLastLineEnded(row.text));
    EXPECT_EQ(messages_.MsgOrigDisplayName(), userName);
    EXPECT_EQ(messages_.MsgOrigAddress(), userAddress);
    messages_.Delete();
  }
}

TEST_P(MailContractTest, HeadersComeWithoutReservedCharacters) {
  SignOn();
  const letters::Mailbox user = {"", userAddress};
  world_->Deliver({{"Y|ou\tand\x01me", "you@localhost"}, {user}, "Tarvolenix : a|b\r\nc", "x|y"});
  world_->Deliver({{" | ", "you@localhost"}, {user}, "Tarvolenix : d", "x"});
  EXPECT_EQ(FetchedSubjects(true), "a b  c d ");
  EXPECT_EQ(TextOf(0), "x|y");
  EXPECT_EQ(messages_.MsgOrigDisplayName(), "Y ou and me");
  messages_.MsgIndex(1);
  EXPECT_EQ(messages_.MsgOrigDisplayName(), "you@localhost") << "who has no name";
}

}  // namespace
