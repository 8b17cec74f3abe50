// SPDX-License-Identifier: GPL-3.0-or-later
// Passwords in the desktop's keyring. Where there is none, or it fails, the file stands in: what
// lies there is newer than what the keyring has, because a password that the keyring takes is
// removed from the file.
#pragma once

#include <functional>
#include <string>

#include "post/accounts/file_passwords.h"

namespace QKeychain {
class Job;
}

namespace post {

/// Wants the application object. While a keyring asks its user to unlock it, all events run but
/// those of mouse and keyboard.
class KeyringPasswords : public Passwords {
 public:
  explicit KeyringPasswords(const std::string& file) : file_(file) {}

  std::optional<std::string> Read(const std::string& key) override;
  bool Write(const std::string& key, const std::string& password) override;
  bool Forget(const std::string& key) override;

  /// What becomes of a question to the keyring. One that stays locked gives no answer, or says that
  /// it has no such entry.
  enum class Outcome { Success, NoEntry, NoAnswer, NoKeyring };

 private:
  Outcome Run(QKeychain::Job& job, const std::string& key, const std::function<void()>& take = {});
  Outcome ReadFromKeyring(const std::string& key, std::optional<std::string>& password);

  FilePasswords file_;
  bool answers_ = true;  // until it once keeps us waiting for too long
};

}  // namespace post
