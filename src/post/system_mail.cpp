// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/system_mail.h"

#include <pwd.h>
#include <sysexits.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "letters/mail_text.h"
#include "platform/mail_client.h"
#include "platform/text_fields.h"
#include "post/child_process.h"
#include "post/servers/mail_failures.h"

namespace post {
namespace {

namespace fs = std::filesystem;
using platform::MailError;

/// Of <sysexits.h>: what the system, a disk or a later try may mend.
constexpr int passingTrouble[] = {EX_OSERR, EX_CANTCREAT, EX_IOERR, EX_TEMPFAIL};

std::string HomeFolder() {
  const char* home = std::getenv("HOME");
  if (home && *home) return home;
  const passwd* user = ::getpwuid(::getuid());
  return user && user->pw_dir ? user->pw_dir : "";
}

bool IsFolder(const std::string& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

std::string UsersMaildir() {
  const char* mail = std::getenv("MAIL");
  return mail && IsFolder(mail) ? mail : HomeFolder() + "/Maildir";
}

/// The last line that says something, in a length that can be shown.
std::string LastLine(const std::string& said) {
  const std::string text = said.substr(0, said.find_last_not_of(" \t\r\n") + 1);
  return letters::WithoutReserved(text.substr(text.find_last_of("\r\n") + 1).substr(0, 1000));
}

}  // namespace

SystemMail::SystemMail() : SystemMail(UsersMaildir(), "/usr/sbin/sendmail") {}

SystemMail::SystemMail(const std::string& maildir, std::string sendmail,
                       std::chrono::milliseconds timeLimit)
    : folder_(maildir.ends_with('/') ? maildir : maildir + '/'),
      sendmail_(std::move(sendmail)),
      inbox_(folder_),
      patience_(timeLimit) {}

void SystemMail::Open() {
  if (!IsFolder(folder_ + "new") || !IsFolder(folder_ + "cur")) {
    throw AccountRefused("The system delivers no mail to the folder " + folder_ +
                         ": there is no Maildir.");
  }
  if (::access(sendmail_.c_str(), X_OK) != 0 || IsFolder(sendmail_)) {
    throw AccountRefused("The system can't send mail: there is no program " + sendmail_ + ".");
  }
}

void SystemMail::Send(const letters::OutgoingMail& mail) {
  std::vector<std::string> arguments = {"-i", "--"};
  for (const letters::Mailbox& recipient : mail.to) {
    arguments.push_back(letters::EnvelopeAddress(recipient.address));
  }
  const std::string bytes =
      platform::ReplaceAll(letters::ComposeMail(mail, letters::Lines::SevenBit), "\r\n", "\n");
  const ChildEnd end = RunProgram(sendmail_, arguments, bytes, patience_);
  if (end.exitCode == 0) return;
  std::string reason = LastLine(end.output + end.errors);
  if (reason.empty()) {
    reason = sendmail_ + " didn't take the mail (exit code " + std::to_string(end.exitCode) + ").";
  }
  if (std::ranges::count(passingTrouble, end.exitCode) > 0) throw MailError(reason);
  throw MailRefused(reason);
}

}  // namespace post
