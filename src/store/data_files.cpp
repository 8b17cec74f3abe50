// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/data_files.h"

#include <exception>

#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/whole_file.h"
#include "store/batch.h"
#include "store/game_file.h"

namespace store {
namespace {

platform::Files& Files() { return *platform::TheSeams().files; }

}  // namespace

std::string BackupPath() { return platform::Process().DataPath + "tvgdb.bak"; }

std::optional<std::string> ReadGameFile() {
  if (const Batch* batch = Batch::Open()) return batch->Content();
  if (!Files().Exists(GameFilePath())) return std::nullopt;
  return Files().Read(GameFilePath());
}

void RemoveQuietly(const std::string& path) {
  try {
    if (Files().Exists(path)) Files().Remove(path);
  } catch (const std::exception&) {
    // It stays behind, and the next save overwrites it.
  }
}

void ReplaceFile(const std::string& path, std::string_view content) {
  platform::ReplaceFile(path, content, platform::Process().DataPath + "tvgdb.new");
}

bool RestoreGameFile(const std::optional<std::string>& before) {
  try {
    if (ReadGameFile() == before) return true;
    if (before) {
      ReplaceFile(GameFilePath(), *before);
    } else {
      Files().Remove(GameFilePath());
    }
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace store
