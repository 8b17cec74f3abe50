// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/known_providers.h"

#include <gtest/gtest.h>

namespace {

using post::MailAccount;

/// Both servers and the user name.
std::string Guessed(const std::string& address) {
  MailAccount account;
  account.MyAddress = address;
  account = post::WithGuessedServers(account);
  return account.ImapHost + ':' + std::to_string(account.ImapPort) + account.ImapSecurity + ' ' +
         account.SmtpHost + ':' + std::to_string(account.SmtpPort) + account.SmtpSecurity + ' ' +
         account.UserName;
}

TEST(KnownProvidersTest, AnAddressTellsItsServers) {
  const struct {
    const char *address, *guessed;
    bool known = true;
  } rows[] = {
      {"Anna@ICloud.com", "imap.mail.me.com:993Tls smtp.mail.me.com:587StartTls Anna@ICloud.com"},
      {"in@hotmail.co.uk",  // as in any country
       "outlook.office365.com:993Tls smtp-mail.outlook.com:587StartTls in@hotmail.co.uk"},
      {"anna@proton.me", "127.0.0.1:1143None 127.0.0.1:1025None anna@proton.me"},
      {"anna@tuta.com", ":993Tls :465Tls anna@tuta.com"},
      {"short@yahoo.co.jp", "imap.mail.yahoo.co.jp:993Tls smtp.mail.yahoo.co.jp:465Tls short"},
      {"x@live.example.org",  // only begins like a provider's
       "imap.live.example.org:993Tls smtp.live.example.org:465Tls x@live.example.org", false},
  };
  for (const auto& [address, guessed, known] : rows) {
    EXPECT_EQ(Guessed(address), guessed);
    EXPECT_EQ(post::IsKnownProvider(address), known) << address;
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
  MailAccount account;
  for (const auto& [host, advice] : {std::pair("IMAP.gmail.com", "app password"), {"", "Tuta"}}) {
    account.ImapHost = host;
    EXPECT_NE(post::PasswordAdvice(account).find(advice), std::string::npos) << advice;
  }
  for (const char* host : {"imap.example.org", "127.0.0.1"}) {
    account.ImapHost = host;
    EXPECT_EQ(post::PasswordAdvice(account), "") << host;
  }
}

}  // namespace
