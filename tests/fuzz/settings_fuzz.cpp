// SPDX-License-Identifier: GPL-3.0-or-later
// Settings files that people, other programs and accidents have written: whatever can be read can
// be stored elsewhere too, and all other values stay as they are.
#include "desktop/ini_settings.h"
#include "fakes/memory_files.h"
#include "fuzz/fuzz.h"

namespace {

/// One value of each group.
std::vector<std::optional<std::string>> Values(desktop::IniSettings& settings,
                                               const std::vector<std::string>& groups) {
  std::vector<std::optional<std::string>> values{settings.Read("", "Name")};
  for (const std::string& group : groups) values.push_back(settings.Read(group, "Name"));
  return values;
}

}  // namespace

void TryInput(std::string_view input) {
  fakes::MemoryFiles files;
  files.content["/settings.ini"] = input;
  desktop::IniSettings settings(files, "/settings.ini");
  std::vector<std::string> groups;
  try {
    groups = settings.Groups();
  } catch (const platform::SettingsError&) {
    return;  // what is damaged isn't written over
  }
  const auto values = Values(settings, groups);
  for (const auto& value : values) {
    if (!value) continue;
    Require(settings.Write("Other/group", {{"other=name", *value}}));
    Require(settings.Read("Other/group", "other=name") == value);
  }
  Require(Values(settings, groups) == values);
}
