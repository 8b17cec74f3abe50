// SPDX-License-Identifier: GPL-3.0-or-later
// Passwords in a file that only its owner can read, for desktops without a keyring.
//
// A line is a key and its password, with a blank between them; in both, all but letters and digits
// stands as "%" and two hexadecimal digits. A line that can't be read keeps nobody from the others
// and stays where it is. A file that others can read is closed to them; where that can't be done,
// as on many a memory stick, nothing in it is used or kept, and the user is told so, once.
#pragma once

#include <string>
#include <utility>

#include "post/accounts/passwords.h"

namespace post {

class FilePasswords : public Passwords {
 public:
  /// The file and its folders are made by the first write.
  explicit FilePasswords(std::string path) : path_(std::move(path)) {}

  std::optional<std::string> Read(const std::string& key) override;
  bool Write(const std::string& key, const std::string& password) override;
  bool Forget(const std::string& key) override;

 private:
  std::string path_;
  bool isTold_ = false;
};

}  // namespace post
