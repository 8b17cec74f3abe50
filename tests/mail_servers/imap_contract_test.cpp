// SPDX-License-Identifier: GPL-3.0-or-later
// An IMAP and SMTP account on real servers keeps the contract of every mail service.
#include "fakes/fake_desktop.h"
#include "fakes/memory_passwords.h"
#include "fakes/plain_events.h"
#include "letters/mail_text.h"
#include "mail_servers/the_servers.h"
#include "post/mail_contract.h"
#include "post/mail_service.h"

namespace {

class ImapWorld : public MailWorld {
 public:
  ImapWorld() {
    servers::Empty();
    post::SaveAccountAnswer({servers::Account(), servers::Told("MAIL_PASSWORD")}, passwords_);
  }

  platform::MAPISession& Session() override { return service_; }
  platform::MAPIMessages& Messages() override { return service_; }
  platform::MailState& State() override { return service_; }
  platform::Events& Events() override { return events_; }

  void Deliver(const letters::OutgoingMail& mail) override {
    servers::Box(userAddress).Put(letters::ComposeMail(mail));
  }

  void AwaitDelivery() override { servers::AwaitDelivery(); }

  std::map<std::string, bool> Inbox() override {
    std::map<std::string, bool> inbox;
    for (const auto& [file, mail] : servers::Box(userAddress).Mails()) {
      inbox[letters::SubjectOf(mail)] = servers::FlagsOf(file) == "S";
    }
    return inbox;
  }

  std::vector<letters::FetchedMail> ReceivedBy(const std::string& address) override {
    std::vector<letters::FetchedMail> received;
    for (const auto& [file, mail] : servers::Box(address).Mails()) {
      received.push_back(letters::ParseMail(mail));
      received.back().read = !servers::FlagsOf(file).empty();
    }
    return received;
  }

  void Refuse(const std::string& address) override {
    ASSERT_EQ(address, servers::Told("REFUSED_RECIPIENT"));
  }

 private:
  fakes::FakeDesktop desktop_;
  fakes::MemoryPasswords passwords_;
  fakes::PlainEvents events_;
  post::MailService service_{events_, passwords_};
};

std::unique_ptr<MailWorld> MakeImapWorld() { return std::make_unique<ImapWorld>(); }

}  // namespace

INSTANTIATE_TEST_SUITE_P(Servers, MailContractTest,
                         testing::Values(MailKind{"Imap", MakeImapWorld}), NameOfKind);
