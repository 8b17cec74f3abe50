// SPDX-License-Identifier: GPL-3.0-or-later
// The settings in an INI file that people can read and edit. The product's own values stand at its
// top, every group is a section. Several processes may use one file: each write is merged into what
// the others have written, value by value.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/settings_store.h"

namespace desktop {

class IniSettings : public platform::SettingsStore {
 public:
  /// The file and its folders are made by the first write.
  explicit IniSettings(std::string path) : path_(std::move(path)) {}

  std::optional<std::string> Read(const std::string& group, const std::string& name) override;
  bool Write(const std::string& group, const std::string& name, const std::string& value) override;

  /// True where it could be written; the group is there as soon as it has a value.
  bool CreateGroup(const std::string& group) override;

  std::vector<std::string> Groups() override;

 private:
  std::string path_;
};

}  // namespace desktop
