// SPDX-License-Identifier: GPL-3.0-or-later
// The whole game between two accounts on mail servers.
#include "end_to_end/whole_game.h"
#include "mail_servers/other_client.h"
#include "mail_servers/the_servers.h"
#include "post/file_passwords.h"

namespace {

class ServerGameTest : public WholeGameTest {
 protected:
  /// One of them by TLS, the other by STARTTLS, as providers have it.
  ServerGameTest() {
    servers_.Empty();
    MakePlayerOnServers("anna", "Tls");
    MakePlayerOnServers("bob", "StartTls");
  }

  void MakePlayerOnServers(const std::string& player, const std::string& security) {
    const std::string address = player + "@example.org";
    const std::string host = MailServers::host;
    MakePlayer(player, "MailKind=Imap\nMyAddress=" + address + "\nUserName=" + address +
                           "\nImapHost=" + host + "\nSmtpHost=" + host +
                           "\nImapSecurity=" + security + "\nSmtpSecurity=" + security +
                           "\nImapPort=" + std::to_string(servers_.ImapPort(security)) +
                           "\nSmtpPort=" + std::to_string(servers_.SmtpPort(security)) + "\n");
    post::FilePasswords passwords((root_ / player / "Tarvolenix.passwords").string());
    ASSERT_TRUE(passwords.Write(address + "@" + host, MailServers::password));
    OtherClient(servers_, address).Command("CREATE Sent");
    OtherClient(servers_, address).Append("INBOX", "", "Subject: Hello\r\n\r\nNo move.\r\n");
  }

  std::size_t CountOf(const std::string& address, const std::string& folder) {
    return OtherClient(servers_, address).Mails(folder).size();
  }

  MailServers& servers_ = TheServers();
};

TEST_F(ServerGameTest, ByMailServers) {
  FoundGame("bob@example.org", "--send");
  PlayGame("", [this](const std::string&, const std::string&) { servers_.AwaitDelivery(); });
  if (HasFatalFailure()) return;
  LookAtGame("bob", "", "Tarvolenix - CHECKMATE! - anna won.");
  ExpectTheSameEnd();
  for (const std::string player : {"anna@example.org", "bob@example.org"}) {
    const auto inbox = OtherClient(servers_, player).Mails("INBOX");
    ASSERT_EQ(inbox.size(), 1U) << "the moves are gone, and nothing else";
    EXPECT_EQ(inbox[0].flags, "") << "unread";
  }
  EXPECT_EQ(CountOf("anna@example.org", "Sent"), 12U);
  EXPECT_EQ(CountOf("bob@example.org", "Sent"), 11U);
}

}  // namespace
