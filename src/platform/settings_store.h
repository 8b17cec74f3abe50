// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the place where settings persist: a map from group and name to text. The product's
// own values lie in the group with the empty name; every older version kept a group named by its
// version.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace platform {

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// Nothing where the value is missing. Never raises.
  virtual std::optional<std::string> Read(const std::string& group, const std::string& name) = 0;

  /// Written through at once: a value that Write reported as stored survives a crash right after.
  virtual bool Write(const std::string& group, const std::string& name,
                     const std::string& value) = 0;

  virtual bool CreateGroup(const std::string& group) = 0;

  /// The names of all groups but the one with the empty name, in no particular order.
  virtual std::vector<std::string> Groups() = 0;
};

}  // namespace platform
