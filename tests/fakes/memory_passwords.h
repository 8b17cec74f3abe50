// SPDX-License-Identifier: GPL-3.0-or-later
// Passwords in memory.
#pragma once

#include <map>

#include "post/accounts/passwords.h"

namespace fakes {

class MemoryPasswords : public post::Passwords {
 public:
  std::optional<std::string> Read(const std::string& key) override {
    const auto found = kept.find(key);
    if (isLocked || found == kept.end()) return std::nullopt;
    return found->second;
  }

  bool Write(const std::string& key, const std::string& password) override {
    if (!readOnly) kept[key] = password;
    return !readOnly;
  }

  bool Forget(const std::string& key) override {
    if (!readOnly) kept.erase(key);
    return !kept.contains(key);
  }

  std::map<std::string, std::string> kept;
  bool readOnly = false;
  bool isLocked = false;  ///< what is kept can't be read
};

}  // namespace fakes
