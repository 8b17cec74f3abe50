// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/accounts/passwords.h"

#include <sys/resource.h>

#include <filesystem>
#include <map>
#include <utility>

#include "desktop/folders.h"
#include "post/accounts/file_passwords.h"
#include "post/accounts/keyring_passwords.h"

namespace post {
namespace {

/// Knows the passwords that can't be kept, so that no user is asked for one twice in a run.
class PasswordsOfThisRun : public Passwords {
 public:
  explicit PasswordsOfThisRun(std::unique_ptr<Passwords> kept) : kept_(std::move(kept)) {}

  std::optional<std::string> Read(const std::string& key) override {
    const auto found = unkept_.find(key);
    return found != unkept_.end() ? found->second : kept_->Read(key);
  }

  bool Write(const std::string& key, const std::string& password) override {
    const bool keeps = kept_->Write(key, password);
    unkept_.erase(key);
    if (!keeps) unkept_[key] = password;
    return keeps;
  }

  bool Forget(const std::string& key) override {
    unkept_.erase(key);
    return kept_->Forget(key);
  }

 private:
  std::unique_ptr<Passwords> kept_;
  std::map<std::string, std::string> unkept_;
};

std::unique_ptr<Passwords> KeptBeside(const std::string& settingsFile) {
  const std::string file =
      std::filesystem::path(settingsFile).replace_filename("Tarvolenix.passwords").string();
  const bool portable = !settingsFile.starts_with(desktop::ConfigHome());
  if (portable) return std::make_unique<FilePasswords>(file);
  return std::make_unique<KeyringPasswords>(file);
}

}  // namespace

std::unique_ptr<Passwords> PasswordsBeside(const std::string& settingsFile) {
  return std::make_unique<PasswordsOfThisRun>(KeptBeside(settingsFile));
}

void ForbidCoreDumps() {
  // Where dumps go to another program a limit of 0 is no limit; 1 stops both kinds.
  constexpr rlimit none{1, 1};
  static_cast<void>(::setrlimit(RLIMIT_CORE, &none));
}

}  // namespace post
