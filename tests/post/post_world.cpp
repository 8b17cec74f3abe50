// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/fake_desktop.h"
#include "fakes/memory_passwords.h"
#include "fakes/plain_events.h"
#include "letters/mail_text.h"
#include "mail_world.h"
#include "post/mail_service.h"
#include "post/post_office.h"
#include "fakes/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

class PostWorld : public MailWorld {
 public:
  PostWorld() {
    desktop_.settings.groups["Mail"] = {{"MailKind", "Post"},
                                        {"MyName", userName},
                                        {"MyAddress", userAddress},
                                        {"PostFolder", folder_ / "post/"}};
  }

  platform::MAPISession& Session() override { return service_; }
  platform::MAPIMessages& Messages() override { return service_; }

  void Deliver(const letters::OutgoingMail& mail) override {
    fs::create_directories(folder_ / "post");
    const post::Maildir box(BoxOf(userAddress));
    box.Create();
    box.Deliver(letters::ComposeMail(mail));
  }

  std::map<std::string, bool> Inbox() override {
    std::map<std::string, bool> inbox;
    for (const char* part : {"new", "cur"}) {
      for (const auto& entry : fs::directory_iterator(BoxOf(userAddress) + part)) {
        const std::string path = entry.path().string();
        inbox[letters::SubjectOf(ReadFile(path))] = path.ends_with(":2,S");
      }
    }
    return inbox;
  }

  std::vector<letters::FetchedMail> ReceivedBy(const std::string& address) override {
    if (!fs::exists(BoxOf(address))) return {};
    return post::Maildir(BoxOf(address)).List(false);
  }

  void Refuse(const std::string& address) override {
    WriteFile(folder_ / ("post/" + post::BoxName(address)), "a file where the box should be");
  }

 private:
  std::string BoxOf(const std::string& address) const {
    return folder_ / ("post/" + post::BoxName(address) + "/");
  }

  TemporaryFolder folder_;
  fakes::FakeDesktop desktop_;
  fakes::PlainEvents events_;
  fakes::MemoryPasswords passwords_;
  post::MailService service_{events_, passwords_};
};

}  // namespace

std::unique_ptr<MailWorld> MakePostWorld() { return std::make_unique<PostWorld>(); }
