// SPDX-License-Identifier: GPL-3.0-or-later
// Settings in memory, with every write recorded in order.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/settings_store.h"

namespace fakes {

class MemorySettings : public platform::SettingsStore {
 public:
  std::optional<std::string> Read(const std::string& group, const std::string& name) override {
    if (unreadable) throw platform::SettingsError("the settings can't be read");
    const auto found = groups.find(group);
    if (found == groups.end()) return std::nullopt;
    const auto value = found->second.find(name);
    if (value == found->second.end()) return std::nullopt;
    return value->second;
  }

  bool Write(const std::string& group, const Values& values) override {
    if (readOnly || unreadable) return false;
    for (const auto& [name, value] : values) {
      groups[group][name] = value;
      writes.emplace_back(name, value);
    }
    return true;
  }

  bool CreateGroup(const std::string& group) override {
    groups[group];
    return true;
  }

  std::vector<std::string> Groups() override {
    if (unreadable) throw platform::SettingsError("the settings can't be read");
    std::vector<std::string> names;
    for (const auto& [name, values] : groups) {
      if (!name.empty()) names.push_back(name);
    }
    return names;
  }

  std::string Mend() override {
    if (unreadable) throw platform::SettingsError("the settings can't be read");
    return std::exchange(mended, {});
  }

  std::map<std::string, std::map<std::string, std::string>> groups;
  std::vector<std::pair<std::string, std::string>> writes;
  bool readOnly = false;
  bool unreadable = false;
  std::string mended;  ///< what the next Mend answers
};

}  // namespace fakes
