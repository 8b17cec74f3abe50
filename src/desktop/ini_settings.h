// SPDX-License-Identifier: GPL-3.0-or-later
// The settings in an INI file that people can read and edit. The product's own values stand at its
// top, every group is a section. Several processes may use one file: each write is merged into what
// the others have written, value by value, while "NAME.lock" keeps them out.
//
// The file is only ever replaced whole, by a rename of "NAME.new" that was read back before, so
// that a full disk or a crash at any moment leaves the old file or the new one. "NAME.bak" holds
// the state before the latest change. An empty file beside such a state counts as damaged.
#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desktop/ini_text.h"
#include "platform/files.h"
#include "platform/settings_store.h"

namespace desktop {

class IniSettings : public platform::SettingsStore {
 public:
  /// The file and its folders are made by the first write. `files` must outlive this.
  IniSettings(platform::Files& files, std::string path) : files_(files), path_(std::move(path)) {}

  std::optional<std::string> Read(const std::string& group, const std::string& name) override;
  bool Write(const std::string& group, const Values& values) override;

  /// The group is there as soon as it has a value.
  bool CreateGroup(const std::string& group) override;

  std::vector<std::string> Groups() override;
  std::string Mend() override;

 private:
  std::optional<std::string> Content();
  std::optional<std::string> KeptContent();
  std::optional<IniText> Understood(const std::string& content);
  IniText Load();
  IniText LoadAnew();
  void Replace(const std::string& path, const std::string& content);

  platform::Files& files_;
  std::string path_;
  std::mutex lookingAtKept_;  // any thread reads settings
  std::string stamp_;         // of the file as it was when what is kept was read
  IniText kept_;
};

}  // namespace desktop
