// SPDX-License-Identifier: GPL-3.0-or-later
// Mail on servers beside the user's other mail programs, other people's mails and bad luck:
// whatever happens, only the program's own mails are touched.
#include <gtest/gtest.h>
#include <stdlib.h>

#include "letters/mail_text.h"
#include "mail_servers/the_servers.h"
#include "post/account_check.h"
#include "post/server_mail.h"

namespace {

using servers::Told;

const std::string prefix = "Tarvolenix : ";

/// Subjects, without the prefix and with a Maildir's flags in brackets.
std::string Shown(const servers::Box& box) {
  std::string all;
  for (const auto& [file, mail] : box.Mails()) {
    std::string subject = letters::SubjectOf(mail);
    if (subject.starts_with(prefix)) subject.erase(0, prefix.size());
    const std::string flags = servers::FlagsOf(file);
    all += subject + (flags.empty() ? "" : "(" + flags + ")") + ' ';
  }
  return all;
}

class RealServersTest : public testing::Test {
 protected:
  void SetUp() override { servers::Empty(); }

  /// `subject` gets the prefix where it begins with a small letter.
  void Deliver(const std::string& subject, const std::string& flags = "") {
    inbox_.Put(
        "From: you@localhost\nSubject: " + (subject[0] >= 'a' ? prefix : "") + subject + "\n\ntext",
        flags);
  }

  /// Lists, and answers the identifiers by subject behind the prefix.
  std::map<std::string, std::string> Ids(bool unreadOnly = false) {
    std::map<std::string, std::string> ids;
    for (const letters::FetchedMail& mail : mail_.List(unreadOnly)) {
      ids[mail.subject.substr(prefix.size())] = mail.id;
    }
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

  const servers::Box inbox_{Told("MAIL_USER")};
  post::ServerMail mail_{servers::Account(), Told("MAIL_PASSWORD")};
};

TEST_F(RealServersTest, OtherMailsKeepTheirMarksAndStayUnread) {
  const std::string others = "Tarvolenix is fun Hello(F) Read(RS) Draft(D) ";
  Deliver("Tarvolenix is fun");
  Deliver("Hello", "F");
  Deliver("Read", "RS");
  Deliver("Draft", "D");
  for (const char* subject : {"a", "b"}) Deliver(subject);
  EXPECT_EQ(Subjects(), "a b ");
  EXPECT_EQ(Shown(inbox_), others + "a b ") << "a look changes nothing";
  const auto ids = Ids(true);
  MarkRead(ids.at("a"));
  Remove(ids.at("b"));
  EXPECT_EQ(Subjects(true), "");
  EXPECT_EQ(Shown(inbox_), others + "a(S) ");
}

TEST_F(RealServersTest, WhatAnotherProgramHasMarkedAsDeletedSurvivesOurDeletion) {
  Deliver("a");
  Deliver("b", "T");
  Deliver("Hello", "T");
  EXPECT_EQ(Subjects(), "a ");
  Remove(Ids().at("a"));
  mail_.Close();
  EXPECT_EQ(Shown(inbox_), "b(T) Hello(T) ");
}

TEST_F(RealServersTest, AnotherProgramMayChangeTheInboxMeanwhile) {
  for (const char* subject : {"First", "a", "b", "c", "Last"}) Deliver(subject);
  const auto ids = Ids();
  std::map<std::string, std::filesystem::path> files;
  for (const auto& [file, mail] : inbox_.Mails()) files[letters::SubjectOf(mail)] = file;
  for (const std::string gone : {"First", "Tarvolenix : b"}) std::filesystem::remove(files[gone]);
  std::filesystem::rename(files["Last"], files["Last"].string() + "F");
  Deliver("d");
  for (const char* gone : {"b", "b"}) {
    EXPECT_NO_THROW(MarkRead(ids.at(gone)));
    EXPECT_NO_THROW(Remove(ids.at(gone)));
  }
  MarkRead(ids.at("a"));
  Remove(ids.at("c"));
  EXPECT_EQ(Shown(inbox_), "a(S) Last(F) d ");
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
    {"TLS from the first byte", "GOOD_HOST", "Tls", ""},
    {"STARTTLS", "GOOD_HOST", "StartTls", ""},
    {"a host given by its number", "GOOD_HOST_BY_NUMBER", "Tls", ""},
    {"an unknown authority", "GOOD_HOST", "Tls", "doesn't trust", true},
    {"an unknown authority behind STARTTLS", "GOOD_HOST", "StartTls", "doesn't trust", true},
    {"an expired certificate", "EXPIRED_HOST", "Tls", "has expired"},
    {"another host's certificate behind STARTTLS", "FOREIGN_HOST", "StartTls",
     "certificate of another one"},
    {"no STARTTLS where it was asked for", "PLAIN_HOST", "StartTls", "offers no STARTTLS"},
};

TEST_F(RealServersTest, NoPasswordAndNoMailGoesToAServerThatProvesNothing) {
  const std::string authority = Told("SSL_CERT_FILE");
  const std::string opponent = "you@localhost";
  const letters::OutgoingMail move = {
      {"", Told("MAIL_USER")}, {{"", opponent}}, prefix + "a", "text"};
  for (const SecurityCase& row : securityCases) {
    SCOPED_TRACE(row.name);
    servers::Empty();
    const post::MailAccount account = servers::Account(row.host, row.security);
    if (row.otherAuthority) ::setenv("SSL_CERT_FILE", Told("OTHER_AUTHORITY").c_str(), 1);
    const int passwordsBefore = servers::PasswordsSeen();
    post::ServerMail mail(account, Told("MAIL_PASSWORD"));
    const bool works = *row.says == '\0';
    const std::string problem = post::WhatIsWrongWith(account, Told("MAIL_PASSWORD"));
    EXPECT_NE(problem.find(row.says), std::string::npos) << problem;
    EXPECT_EQ(problem.empty(), works);
    if (works) {
      EXPECT_NO_THROW(mail.Send(move));
      mail.KeepCopies();
    } else {
      EXPECT_THROW(mail.Open(), platform::MailError);
      EXPECT_THROW(mail.TryOutgoing(), platform::MailError);
      EXPECT_THROW(mail.Send(move), platform::MailError);
    }
    ::setenv("SSL_CERT_FILE", authority.c_str(), 1);
    servers::AwaitDelivery();
    // The check's two, the mail's and its copy's.
    EXPECT_EQ(servers::PasswordsSeen() - passwordsBefore, works ? 4 : 0);
    EXPECT_EQ(Shown(servers::Box(opponent)), works ? "a " : "");
  }
}

}  // namespace
