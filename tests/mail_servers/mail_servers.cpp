// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail_servers/mail_servers.h"

#include <pwd.h>
#include <stdlib.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <initializer_list>
#include <stdexcept>
#include <string_view>
#include <thread>
#include <utility>

#include "mail_servers/certificates.h"

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr const char* dovecot = "/usr/sbin/dovecot";
constexpr const char* smtpd = "/usr/sbin/smtpd";

/// Whom the mailboxes belong to.
constexpr const char* owner = "mail";

constexpr const char* dovecotSettings = R"(
base_dir = FOLDER/run
state_dir = FOLDER/run
log_path = FOLDER/dovecot.log
protocols = imap submission
listen = 127.0.0.1, 127.0.0.2, 127.0.0.3, 127.0.0.4
service imap-login {
  inet_listener imap {
    port = IMAP_PORT
  }
  inet_listener imaps {
    port = IMAPS_PORT
  }
}
service submission-login {
  inet_listener submission {
    port = SMTP_PORT
  }
  inet_listener submissions {
    port = SMTPS_PORT
    ssl = yes
  }
}
submission_relay_host = 127.0.0.1
submission_relay_port = RELAY_PORT

ssl = yes
ssl_cert = <FOLDER/good.pem
ssl_key = <FOLDER/good.key
local 127.0.0.2 {
  ssl_cert = <FOLDER/expired.pem
  ssl_key = <FOLDER/expired.key
}
local 127.0.0.3 {
  ssl_cert = <FOLDER/foreign.pem
  ssl_key = <FOLDER/foreign.key
}
local 127.0.0.4 {
  ssl = no
}

disable_plaintext_auth = no
auth_failure_delay = 0
service anvil {
  unix_listener anvil-auth-penalty {
    mode = 0
  }
}
first_valid_uid = 1
passdb {
  driver = static
  args = password=PASSWORD
}
userdb {
  driver = static
  args = uid=OWNER gid=OWNER home=FOLDER/mail/%Lu
}
mail_location = maildir:FOLDER/mail/%Lu
namespace inbox {
  inbox = yes
  mailbox Sent {
    auto = no
    special_use = \Sent
  }
}
)";

constexpr const char* smtpdSettings = R"(
table refused file:FOLDER/refused
listen on 127.0.0.1 port RELAY_PORT
action deliver maildir "FOLDER/mail/%{rcpt.user:lowercase}@%{rcpt.domain:lowercase}" \
  user OWNER virtual { "@" = OWNER }
match for rcpt-to <refused> reject
match from any for any action deliver
)";

/// OpenSMTPD's tables can't be empty.
constexpr const char* nobody = "nobody@refused.invalid";

void Write(const fs::path& path, std::string_view content) { std::ofstream(path) << content; }

using Values = std::initializer_list<std::pair<const char*, std::string>>;

std::string Filled(std::string text, const Values& values) {
  for (const auto& [name, value] : values) {
    for (auto at = text.find(name); at != std::string::npos; at = text.find(name)) {
      text.replace(at, std::string_view(name).size(), value);
    }
  }
  return text;
}

int CountIn(const fs::path& file, std::initializer_list<const char*> words) {
  int count = 0;
  std::ifstream stream(file);
  for (std::string line; std::getline(stream, line);) {
    for (const char* word : words) count += line.find(word) != std::string::npos ? 1 : 0;
  }
  return count;
}

fs::path NewFolder() {
  std::string pattern = (fs::temp_directory_path() / "tarvolenix-servers-XXXXXX").string();
  if (!::mkdtemp(pattern.data())) throw std::runtime_error("Can't make a folder for mail servers");
  return pattern;
}

void GiveToOwner(const fs::path& path) {
  const passwd* user = ::getpwnam(owner);
  if (!user || ::chown(path.c_str(), user->pw_uid, user->pw_gid) != 0) {
    throw std::runtime_error("Can't give a mailbox to its owner");
  }
}

void RequireServers() {
  if (::geteuid() != 0) {
    throw std::runtime_error("The tests with mail servers have to run as root.");
  }
  if (!fs::exists(dovecot) || !fs::exists(smtpd)) {
    throw std::runtime_error("The mail servers are missing: scripts/prepare mail installs them.");
  }
}

}  // namespace

MailServers::MailServers() {
  RequireServers();
  folder_ = NewFolder();
  fs::permissions(folder_, fs::perms{0755});
  fs::create_directory(folder_ / "run");
  fs::create_directory(folder_ / "mail");
  GiveToOwner(folder_ / "mail");
  MakeCertificates(folder_);
  const auto ports = FreePorts(5);
  imap_ = ports[0];
  imaps_ = ports[1];
  smtp_ = ports[2];
  smtps_ = ports[3];
  relay_ = ports[4];
  WriteSettings();
  delivery_.emplace(
      std::vector<std::string>{smtpd, "-d", "-B", "queue=ram", "-f", folder_ / "smtpd.conf"},
      folder_ / "smtpd.log");
  boxes_.emplace(std::vector<std::string>{dovecot, "-F", "-c", folder_ / "dovecot.conf"},
                 folder_ / "dovecot.log");
  delivery_->AwaitPort(relay_);
  boxes_->AwaitPort(imap_);
  boxes_->AwaitPort(smtp_);
  ::setenv("SSL_CERT_FILE", Authority().c_str(), 1);
}

MailServers::~MailServers() {
  if (delivery_) delivery_->AskToStop();
  boxes_.reset();
  delivery_.reset();
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

void MailServers::WriteSettings() const {
  const Values values = {{"FOLDER", folder_.string()},
                         {"OWNER", owner},
                         {"PASSWORD", password},
                         {"IMAP_PORT", std::to_string(imap_)},
                         {"IMAPS_PORT", std::to_string(imaps_)},
                         {"SMTP_PORT", std::to_string(smtp_)},
                         {"SMTPS_PORT", std::to_string(smtps_)},
                         {"RELAY_PORT", std::to_string(relay_)}};
  Write(folder_ / "dovecot.conf", Filled(dovecotSettings, values));
  Write(folder_ / "smtpd.conf", Filled(smtpdSettings, values));
  Write(folder_ / "refused", nobody);
}

void MailServers::Empty() {
  AwaitDelivery();
  CutConnections();
  for (const auto& box : fs::directory_iterator(folder_ / "mail")) fs::remove_all(box);
  Refuse(nobody);
}

void MailServers::DeliverOthers(const std::string& address, int count) {
  for (const char* part : {"", "cur", "new", "tmp"}) {
    fs::create_directories(BoxOf(address) / part);
    GiveToOwner(BoxOf(address) / part);
  }
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    Write(BoxOf(address) / "new" / ("1000000000.M" + number + "P1.other"),
          "From: Shop <shop@example.com>\nSubject: Offer " + number + "\n\nBuy!\n");
  }
}

void MailServers::Refuse(const std::string& address) {
  Write(folder_ / "refused", address);
  RunCommand(folder_, "smtpctl update table refused");
}

void MailServers::AwaitDelivery() const {
  const fs::path log = folder_ / "smtpd.log";
  const auto isDelivered = [&log] {
    return CountIn(log, {" smtp envelope evpid="}) == CountIn(log, {" stat=Delivered"});
  };
  for (int i = 0; i < 1000 && !isDelivered(); ++i) std::this_thread::sleep_for(10ms);
  if (!isDelivered()) throw std::runtime_error("A mail wasn't delivered; see " + log.string());
}

void MailServers::CutConnections() {
  RunCommand(folder_,
             "export CONFIG_FILE=$PWD/dovecot.conf; doveadm kick '*'; "
             "while doveadm who -1 2>&1 | grep -q imap; do sleep 0.01; done");
}

int MailServers::PasswordsSeen() const {
  return CountIn(folder_ / "dovecot.log", {": Login: user=", "(auth failed"});
}
