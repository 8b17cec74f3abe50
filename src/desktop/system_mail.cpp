// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/system_mail.h"

#include <pwd.h>
#include <signal.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <thread>

#include "desktop/mail_text.h"
#include "platform/mail_client.h"
#include "platform/text_fields.h"

namespace desktop {
namespace {

namespace fs = std::filesystem;
using platform::MailError;

[[noreturn]] void Fail(const std::string& action, int error) {
  throw MailError("Can't " + action + ": " + std::generic_category().message(error) + ".");
}

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

/// A file that has no name and goes with its owner. A program that reads its input from one and
/// writes what it says into another can neither break a pipe nor wait for anybody to empty it.
class NamelessFile {
 public:
  NamelessFile() : descriptor_(::memfd_create("mail", MFD_CLOEXEC)) {
    if (descriptor_ < 0) Fail("make a temporary file", errno);
  }
  ~NamelessFile() { ::close(descriptor_); }
  NamelessFile(const NamelessFile&) = delete;
  NamelessFile& operator=(const NamelessFile&) = delete;

  int Descriptor() const { return descriptor_; }

  void Fill(std::string_view bytes) const {
    for (std::size_t at = 0; at < bytes.size();) {
      const ssize_t written =
          ::pwrite(descriptor_, bytes.data() + at, bytes.size() - at, static_cast<off_t>(at));
      if (written < 0 && errno != EINTR) Fail("write a temporary file", errno);
      at += static_cast<std::size_t>(std::max<ssize_t>(written, 0));
    }
  }

  /// The last line that says something, in a length that can be shown.
  std::string LastLine() const {
    std::string end(1000, '\0');
    const off_t size = ::lseek(descriptor_, 0, SEEK_END);
    const auto from = std::max<off_t>(0, size - static_cast<off_t>(end.size()));
    end.resize(static_cast<std::size_t>(
        std::max<ssize_t>(0, ::pread(descriptor_, end.data(), end.size(), from))));
    end.resize(end.find_last_not_of(" \t\r\n") + 1);
    return WithoutReserved(end.substr(end.find_last_of("\r\n") + 1));
  }

 private:
  int descriptor_;
};

/// What belongs to one start of a program.
class SpawnPlan {
 public:
  SpawnPlan(const NamelessFile& input, const NamelessFile& output) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawn_file_actions_adddup2(&actions_, input.Descriptor(), STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions_, output.Descriptor(), STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions_, output.Descriptor(), STDERR_FILENO);
    // A process group of its own, so that all that it starts can be ended with it.
    ::posix_spawnattr_init(&attributes_);
    ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP);
  }
  ~SpawnPlan() {
    ::posix_spawnattr_destroy(&attributes_);
    ::posix_spawn_file_actions_destroy(&actions_);
  }
  SpawnPlan(const SpawnPlan&) = delete;
  SpawnPlan& operator=(const SpawnPlan&) = delete;

  /// The number of the process.
  pid_t Start(std::vector<std::string> words) const {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t process = 0;
    const int error =
        ::posix_spawn(&process, arguments[0], &actions_, &attributes_, arguments.data(), environ);
    if (error != 0) Fail("run " + words[0], error);
    return process;
  }

 private:
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

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
    throw MailError("The system delivers no mail to the folder " + folder_ +
                    ": there is no Maildir.");
  }
  if (::access(sendmail_.c_str(), X_OK) != 0 || IsFolder(sendmail_)) {
    throw MailError("The system can't send mail: there is no program " + sendmail_ + ".");
  }
}

void SystemMail::Send(const OutgoingMail& mail) {
  const NamelessFile input;
  const NamelessFile output;
  input.Fill(platform::ReplaceAll(ComposeMail(mail, Lines::SevenBit), "\r\n", "\n"));
  std::vector<std::string> words = {sendmail_, "-i", "--"};
  for (const Mailbox& recipient : mail.to) {
    words.push_back(EnvelopeAddress(recipient.address));
  }
  const int status = ExitStatus(SpawnPlan(input, output).Start(std::move(words)));
  if (status == 0) return;
  const std::string reason = output.LastLine();
  throw MailError(!reason.empty() ? reason
                                  : sendmail_ + " didn't take the mail (exit code " +
                                        std::to_string(status) + ").");
}

/// Waits for the process. One that takes too long is ended, with all that it has started.
int SystemMail::ExitStatus(pid_t process) const {
  const auto end = Patience::Clock::now() + patience_.Silence();
  int status = 0;
  pid_t waited = 0;
  while ((waited = ::waitpid(process, &status, WNOHANG)) == 0) {
    if (Patience::Clock::now() > end || patience_.IsOver()) {
      ::kill(-process, SIGKILL);
      ::waitpid(process, &status, 0);
      throw MailError(sendmail_ + " takes too long.");
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  if (waited < 0) Fail("wait for " + sendmail_, errno);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace desktop
