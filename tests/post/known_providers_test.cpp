// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/known_providers.h"

#include <gtest/gtest.h>

namespace {

using post::MailAccount;

struct GuessCase {
  const char* name;
  const char* address;
  const char* imap;
  const char* smtp;
  const char* userName;
  bool known = true;
};

std::string Place(const std::string& host, int port, const std::string& security) {
  return host + ':' + std::to_string(port) + ' ' + security;
}

TEST(KnownProvidersTest, AnAddressTellsItsServers) {
  const GuessCase cases[] = {
      {"one of a provider's domains", "anna@googlemail.com", "imap.gmail.com:993 Tls",
       "smtp.gmail.com:465 Tls", "anna@googlemail.com"},
      {"in any case", "Anna@ICloud.com", "imap.mail.me.com:993 Tls",
       "smtp.mail.me.com:587 StartTls", "Anna@ICloud.com"},
      {"in any country", "anna@hotmail.co.uk", "outlook.office365.com:993 Tls",
       "smtp-mail.outlook.com:587 StartTls", "anna@hotmail.co.uk"},
      {"a country with servers of its own, and short user names", "anna@yahoo.co.jp",
       "imap.mail.yahoo.co.jp:993 Tls", "smtp.mail.yahoo.co.jp:465 Tls", "anna"},
      {"somebody else's domain that begins alike", "anna@live.example.org",
       "imap.live.example.org:993 Tls", "smtp.live.example.org:465 Tls", "anna@live.example.org",
       false},
      {"an unknown domain", "anna@example.org", "imap.example.org:993 Tls",
       "smtp.example.org:465 Tls", "anna@example.org", false},
  };
  for (const GuessCase& row : cases) {
    SCOPED_TRACE(row.name);
    MailAccount account;
    account.MyAddress = row.address;
    EXPECT_TRUE(post::HasGuessedServers(account)) << "nobody has chosen blank ones";
    account = post::WithGuessedServers(account);
    EXPECT_EQ(Place(account.ImapHost, account.ImapPort, account.ImapSecurity), row.imap);
    EXPECT_EQ(Place(account.SmtpHost, account.SmtpPort, account.SmtpSecurity), row.smtp);
    EXPECT_EQ(account.UserName, row.userName);
    EXPECT_EQ(post::IsKnownProvider(row.address), row.known);
    EXPECT_TRUE(post::HasGuessedServers(account));
    account.SmtpPort = 2525;
    EXPECT_FALSE(post::HasGuessedServers(account));
  }
}

TEST(KnownProvidersTest, WithoutADomainNothingIsGuessed) {
  MailAccount account;
  account.ImapHost = "mine";
  for (const char* address : {"", "anna", "anna@"}) {
    account.MyAddress = address;
    EXPECT_EQ(post::WithGuessedServers(account), account);
    EXPECT_FALSE(post::HasGuessedServers(account)) << "they are somebody's choice";
  }
}

TEST(KnownProvidersTest, AdviceGoesByTheServer) {
  EXPECT_NE(post::PasswordAdvice("IMAP.gmail.com").find("app password"), std::string::npos);
  EXPECT_EQ(post::PasswordAdvice("imap.example.org"), "");
}

}  // namespace
