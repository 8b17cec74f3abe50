// SPDX-License-Identifier: GPL-3.0-or-later
#include "post/passwords.h"

#include <sys/resource.h>

#include <filesystem>

#include "desktop/folders.h"
#include "post/file_passwords.h"
#include "post/keyring_passwords.h"

namespace post {

std::unique_ptr<Passwords> PasswordsBeside(const std::string& settingsFile) {
  const std::string file =
      std::filesystem::path(settingsFile).replace_filename("Tarvolenix.passwords").string();
  const bool portable = !settingsFile.starts_with(desktop::ConfigHome());
  if (portable) return std::make_unique<FilePasswords>(file);
  return std::make_unique<KeyringPasswords>(file);
}

void ForbidCoreDumps() {
  // Where dumps go to another program a limit of 0 is no limit; 1 stops both kinds.
  constexpr rlimit none{1, 1};
  static_cast<void>(::setrlimit(RLIMIT_CORE, &none));
}

}  // namespace post
