// SPDX-License-Identifier: GPL-3.0-or-later
// Where the passwords of mail accounts are kept: in the desktop's keyring, or else in a file that
// only the user can read. They go nowhere else.
#pragma once

#include <memory>
#include <optional>
#include <string>

namespace post {

/// Belongs to the window's thread. A keyring that asks its user to unlock it lets events run.
class Passwords {
 public:
  virtual ~Passwords() = default;

  /// `key` is PasswordKey's. Nothing where none is kept, or where it can't be read just now.
  virtual std::optional<std::string> Read(const std::string& key) = 0;

  /// False where it can't be kept; what was kept before then stands.
  virtual bool Write(const std::string& key, const std::string& password) = 0;

  /// False where a password is there and stays.
  virtual bool Forget(const std::string& key) = 0;
};

/// The passwords that belong to the settings of that file. Those of a portable program folder lie
/// in it, as all it knows does; the user's own go to his keyring. One that can't be kept is known
/// until the program ends.
std::unique_ptr<Passwords> PasswordsBeside(const std::string& settingsFile);

/// A crash then leaves no picture of the memory behind, which has passwords in it.
void ForbidCoreDumps();

}  // namespace post
