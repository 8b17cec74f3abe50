// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail_servers/imap_world.h"

#include "fakes/fake_desktop.h"
#include "fakes/memory_passwords.h"
#include "fakes/plain_events.h"
#include "letters/mail_text.h"
#include "mail_servers/other_client.h"
#include "mail_servers/the_servers.h"
#include "post/mail_service.h"

namespace {

class ImapWorld : public MailWorld {
 public:
  ImapWorld() {
    servers_.Empty();
    post::SaveAccountAnswer({ServerAccount(userAddress), MailServers::password}, passwords_);
  }

  platform::MAPISession& Session() override { return service_; }
  platform::MAPIMessages& Messages() override { return service_; }

  void Deliver(const letters::OutgoingMail& mail) override {
    OtherClient(servers_, userAddress).Append("INBOX", "", letters::ComposeMail(mail));
  }

  void AwaitDelivery() override { servers_.AwaitDelivery(); }

  std::map<std::string, bool> Inbox() override {
    std::map<std::string, bool> inbox;
    for (const auto& mail : OtherClient(servers_, userAddress).Mails("INBOX")) {
      inbox[letters::SubjectOf(mail.bytes)] = mail.flags == "\\Seen";
    }
    return inbox;
  }

  std::vector<letters::FetchedMail> ReceivedBy(const std::string& address) override {
    std::vector<letters::FetchedMail> received;
    for (const auto& mail : OtherClient(servers_, address).Mails("INBOX")) {
      received.push_back(letters::ParseMail(mail.bytes));
      received.back().read = !mail.flags.empty();
    }
    return received;
  }

  void Refuse(const std::string& address) override { servers_.Refuse(address); }

 private:
  MailServers& servers_ = TheServers();
  fakes::FakeDesktop desktop_;
  fakes::MemoryPasswords passwords_;
  fakes::PlainEvents events_;
  post::MailService service_{events_, passwords_};
};

}  // namespace

post::MailAccount ServerAccount(const std::string& address) {
  const MailServers& servers = TheServers();
  post::MailAccount account;
  account.MailKind = "Imap";
  account.MyName = userName;
  account.MyAddress = address;
  account.UserName = address;
  account.ImapHost = account.SmtpHost = MailServers::host;
  account.ImapPort = servers.ImapPort("Tls");
  account.SmtpPort = servers.SmtpPort("Tls");
  return account;
}

std::unique_ptr<MailWorld> MakeImapWorld() { return std::make_unique<ImapWorld>(); }
