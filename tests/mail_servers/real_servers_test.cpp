// SPDX-License-Identifier: GPL-3.0-or-later
// Mail on servers beside the user's other mail programs, other people's mails and bad luck:
// whatever happens, only the program's own mails are touched.
#include <gtest/gtest.h>
#include <stdlib.h>

#include "letters/mail_text.h"
#include "mail_servers/imap_world.h"
#include "mail_servers/other_client.h"
#include "mail_servers/the_servers.h"
#include "post/account_check.h"
#include "post/server_mail.h"

namespace {

using post::MailAccount;
using letters::FetchedMail;

const std::string user = userAddress;
const std::string opponent = "you@localhost";

const letters::OutgoingMail mailToOpponent = {
    {"", user}, {{"", opponent}}, "Tarvolenix : a", "text"};

MailServers& EmptyServers() {
  TheServers().Empty();
  return TheServers();
}

class RealServersTest : public testing::Test {
 protected:
  /// `subject` begins with "Tarvolenix : " where it begins with a small letter.
  void Deliver(const std::string& subject, const std::string& flags = "") {
    const bool ours = subject[0] >= 'a';
    other_.Append("INBOX", flags,
                  "From: you@localhost\r\nSubject: " + std::string(ours ? "Tarvolenix : " : "") +
                      subject + "\r\n\r\ntext");
  }

  /// Subjects, with flags in brackets.
  std::string InboxOf(const std::string& owner) {
    std::string all;
    for (const auto& mail : OtherClient(servers_, owner).Mails("INBOX")) {
      std::string subject = letters::SubjectOf(mail.bytes);
      if (subject.starts_with("Tarvolenix : ")) subject.erase(0, 13);
      all += subject + (mail.flags.empty() ? "" : "(" + mail.flags + ")") + ' ';
    }
    return all;
  }

  /// Lists, and answers the identifiers by subject behind the prefix.
  std::map<std::string, std::string> Ids(bool unreadOnly = false) {
    std::map<std::string, std::string> ids;
    for (const FetchedMail& mail : mail_.List(unreadOnly)) ids[mail.subject.substr(13)] = mail.id;
    return ids;
  }

  std::string Subjects(bool unreadOnly = false) {
    std::string subjects;
    for (const auto& [subject, id] : Ids(unreadOnly)) subjects += subject + ' ';
    return subjects;
  }

  void MarkRead(const std::string& id) {
    mail_.MarkRead(id);
    mail_.Flush();
  }

  void Remove(const std::string& id) {
    mail_.Remove(id);
    mail_.Flush();
  }

  MailServers& servers_ = EmptyServers();
  OtherClient other_{servers_, user};  // has the Inbox open all the time
  post::ServerMail mail_{ServerAccount(user), MailServers::password};
};

TEST_F(RealServersTest, OtherMailsKeepTheirMarksAndStayUnread) {
  const std::string others =
      "Tarvolenix is fun Hello(\\Flagged) Read(\\Answered \\Seen) Draft(\\Draft Important) ";
  Deliver("Tarvolenix is fun");
  Deliver("Hello", "\\Flagged");
  Deliver("Read", "\\Answered \\Seen");
  Deliver("Draft", "\\Draft Important");
  for (const char* subject : {"a", "b"}) Deliver(subject);
  EXPECT_EQ(Subjects(), "a b ");
  EXPECT_EQ(InboxOf(user), others + "a b ") << "a look changes nothing";
  const auto ids = Ids(true);
  MarkRead(ids.at("a"));
  Remove(ids.at("b"));
  EXPECT_EQ(Subjects(true), "");
  EXPECT_EQ(InboxOf(user), others + "a(\\Seen) ");
}

TEST_F(RealServersTest, WhatAnotherProgramHasMarkedAsDeletedSurvivesOurDeletion) {
  Deliver("a");
  Deliver("b", "\\Deleted");
  Deliver("Hello", "\\Deleted");
  EXPECT_EQ(Subjects(), "a ");
  Remove(Ids().at("a"));
  mail_.Close();
  EXPECT_EQ(InboxOf(user), "b(\\Deleted) Hello(\\Deleted) ");
}

TEST_F(RealServersTest, AnotherProgramMayChangeTheInboxMeanwhile) {
  for (const char* subject : {"First", "a", "b", "c", "Last"}) Deliver(subject);
  const auto ids = Ids();
  other_.Command("SELECT INBOX");
  other_.Command("STORE 1,3 +FLAGS (\\Deleted)");
  other_.Command("EXPUNGE");
  other_.Command("STORE 3 +FLAGS (\\Flagged)");
  Deliver("d");
  for (const char* gone : {"b", "b"}) {
    EXPECT_NO_THROW(MarkRead(ids.at(gone)));
    EXPECT_NO_THROW(Remove(ids.at(gone)));
  }
  MarkRead(ids.at("a"));
  Remove(ids.at("c"));
  EXPECT_EQ(InboxOf(user), "a(\\Seen) Last(\\Flagged) d ") << "both had shared the numbers 2 and 3";
  EXPECT_EQ(Subjects(), "a d ");
}

struct SecurityCase {
  const char* name;
  const char* host;
  const char* security;
  const char* says;  ///< what the check tells in its sentence; blank: it works
  bool otherAuthority = false;
};

const SecurityCase securityCases[] = {
    {"TLS from the first byte", MailServers::host, "Tls", ""},
    {"STARTTLS", MailServers::host, "StartTls", ""},
    {"a host given by its number", MailServers::numericHost, "Tls", ""},
    {"an unknown authority", MailServers::host, "Tls", "doesn't trust", true},
    {"an unknown authority behind STARTTLS", MailServers::host, "StartTls", "doesn't trust", true},
    {"an expired certificate", MailServers::expiredHost, "Tls", "has expired"},
    {"another host's certificate behind STARTTLS", MailServers::foreignHost, "StartTls",
     "certificate of another one"},
    {"no STARTTLS where it was asked for", MailServers::plainHost, "StartTls",
     "offers no STARTTLS"},
};

TEST_F(RealServersTest, NoPasswordAndNoMailGoesToAServerThatProvesNothing) {
  for (const SecurityCase& row : securityCases) {
    SCOPED_TRACE(row.name);
    servers_.Empty();
    MailAccount account = ServerAccount(user);
    account.ImapHost = account.SmtpHost = row.host;
    account.ImapSecurity = account.SmtpSecurity = row.security;
    account.ImapPort = servers_.ImapPort(row.security);
    account.SmtpPort = servers_.SmtpPort(row.security);
    const std::string authority =
        row.otherAuthority ? servers_.OtherAuthority() : servers_.Authority();
    ::setenv("SSL_CERT_FILE", authority.c_str(), 1);
    const int passwordsBefore = servers_.PasswordsSeen();
    post::ServerMail mail(account, MailServers::password);
    const bool works = *row.says == '\0';
    const std::string problem = post::WhatIsWrongWith(account, MailServers::password);
    EXPECT_NE(problem.find(row.says), std::string::npos) << problem;
    EXPECT_EQ(problem.empty(), works);
    if (works) {
      EXPECT_NO_THROW(mail.Send(mailToOpponent));
    } else {
      EXPECT_THROW(mail.Open(), platform::MailError);
      EXPECT_THROW(mail.TryOutgoing(), platform::MailError);
      EXPECT_THROW(mail.Send(mailToOpponent), platform::MailError);
    }
    ::setenv("SSL_CERT_FILE", servers_.Authority().c_str(), 1);
    servers_.AwaitDelivery();
    // The check's two, the mail's and its copy's.
    EXPECT_EQ(servers_.PasswordsSeen() - passwordsBefore, works ? 4 : 0);
    EXPECT_EQ(InboxOf(opponent), works ? "a " : "");
  }
}

}  // namespace
