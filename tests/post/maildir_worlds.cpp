// SPDX-License-Identifier: GPL-3.0-or-later
// The kinds of mail that need no server keep the contract of every mail service. Their boxes are
// Maildirs in the test's folder: the local post office's, and those of the system's own mail, with
// a script for its sendmail program. A file where a box should be stands for one that takes
// nothing.
#include "fakes/fake_desktop.h"
#include "fakes/memory_passwords.h"
#include "fakes/plain_events.h"
#include "fakes/temporary_folder.h"
#include "letters/mail_text.h"
#include "post/accounts/local_address.h"
#include "post/mail_contract.h"
#include "post/mail_service.h"
#include "post/post_office.h"
#include "post/system_mail.h"

namespace {

namespace fs = std::filesystem;

class MaildirWorld : public MailWorld {
 public:
  platform::MAPISession& Session() override { return service_; }
  platform::MAPIMessages& Messages() override { return service_; }
  platform::MailState& State() override { return service_; }
  platform::Events& Events() override { return events_; }

  void Deliver(const letters::OutgoingMail& mail) override {
    fs::create_directories(folder_ / "post");
    const post::Maildir box(BoxOf(userAddress) + '/');
    box.Create();
    box.Deliver(letters::ComposeMail(mail));
  }

  std::map<std::string, bool> Inbox() override {
    std::map<std::string, bool> inbox;
    for (const auto& entry : fs::recursive_directory_iterator(BoxOf(userAddress))) {
      const std::string path = entry.path().string();
      if (entry.is_regular_file()) {
        inbox[letters::SubjectOf(ReadFile(path))] = path.ends_with(":2,S");
      }
    }
    return inbox;
  }

  std::vector<letters::FetchedMail> ReceivedBy(const std::string& address) override {
    if (!fs::exists(BoxOf(address))) return {};
    return post::Maildir(BoxOf(address) + '/').List(false);
  }

  void Refuse(const std::string& address) override { WriteFile(BoxOf(address), "full"); }

 protected:
  explicit MaildirWorld(const std::string& kind,
                        post::MailService::MakeTransport make = post::MakeMailTransport)
      : service_(events_, passwords_, {}, std::move(make)) {
    desktop_.settings.groups["Mail"] = {{"MailKind", kind},
                                        {"MyName", userName},
                                        {"MyAddress", userAddress},
                                        {"PostFolder", folder_ / "post/"}};
  }

  std::string BoxOf(const std::string& address) const {
    return folder_ / ("post/" + post::BoxName(address));
  }

  TemporaryFolder folder_;

 private:
  fakes::FakeDesktop desktop_;
  fakes::PlainEvents events_;
  fakes::MemoryPasswords passwords_;
  post::MailService service_;
};

class PostWorld : public MaildirWorld {
 public:
  PostWorld() : MaildirWorld("Post") {}
};

constexpr const char* sendmailScript = R"sh(#!/bin/sh
[ "$1 $2" = "-i --" ] || exit 64
shift 2
cd "$(dirname "$0")/post" || exit 71
cat > ../arrived
for address in "$@"; do
  box=$(echo "$address" | tr A-Z a-z)
  if [ -f "$box" ]; then
    echo "a warning" >&2
    echo "<$address>: mailbox full" >&2
    exit 67
  fi
  mkdir -p "$box/tmp" "$box/new" "$box/cur"
  echo >> ../count
  cp ../arrived "$box/tmp/mail" && mv "$box/tmp/mail" "$box/new/$(date +%s).M$(wc -l < ../count)P$$"
done
)sh";

class SystemWorld : public MaildirWorld {
 public:
  SystemWorld()
      : MaildirWorld("System", [this](const post::MailAccount&, const std::string&) {
          return std::make_unique<post::SystemMail>(BoxOf(userAddress), folder_ / "sendmail");
        }) {
    WriteFile(folder_ / "sendmail", sendmailScript);
    fs::permissions(folder_ / "sendmail", fs::perms::owner_all);
    fs::create_directories(folder_ / "post");
    post::Maildir(BoxOf(userAddress) + '/').Create();
  }
};

template <typename World>
std::unique_ptr<MailWorld> Make() {
  return std::make_unique<World>();
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Maildirs, MailContractTest,
                         testing::Values(MailKind{"Post", Make<PostWorld>},
                                         MailKind{"System", Make<SystemWorld>}),
                         NameOfKind);
