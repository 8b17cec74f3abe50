// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the place where settings persist: a map from group and name to text. The product's
// own values lie in the group with the empty name; every older version kept a group named by its
// version.
//
// Settings that can't be read, or are damaged, are not empty: who asks for a value hears of it, and
// nothing is written over them.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace platform {

/// What it says is a plain sentence for the user that names the place and the reason.
struct SettingsError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  /// Nothing where the value is missing. Raises SettingsError where that can't be told.
  virtual std::optional<std::string> Read(const std::string& group, const std::string& name) = 0;

  /// Names with their new values.
  using Values = std::vector<std::pair<std::string, std::string>>;

  /// Written through at once, all in one change: what was reported as stored survives a crash right
  /// after. False, and all as it was, where it can't be stored. Never raises.
  virtual bool Write(const std::string& group, const Values& values) = 0;

  /// False where the settings can't be read. Never raises.
  virtual bool CreateGroup(const std::string& group) = 0;

  /// The names of all groups but the one with the empty name, in no particular order. Raises
  /// SettingsError.
  virtual std::vector<std::string> Groups() = 0;

  /// Puts damaged settings aside, and the state before their latest change in their place, or none.
  /// Answers what was done, in plain sentences; empty where nothing was damaged. Raises
  /// SettingsError where they can't be read, or can't be mended.
  virtual std::string Mend() = 0;
};

}  // namespace platform
