// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/data_files.h"

#include <exception>

#include "platform/conversions.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/whole_file.h"
#include "store/batch.h"
#include "store/game_file.h"

namespace store {
namespace {

using platform::ZeroFilled;

}  // namespace

std::string BackupPath() { return platform::Process().DataPath + "tvgdb.bak"; }

std::optional<std::string> ReadGameFile() {
  if (const Batch* batch = Batch::Open()) return batch->Content();
  if (!platform::TheFiles().Exists(GameFilePath())) return std::nullopt;
  return platform::TheFiles().Read(GameFilePath());
}

void ReplaceGameFile(const std::string& before, const std::string& after,
                     const std::string& aside) {
  const std::string copy = platform::Process().DataPath + aside;
  try {
    ReplaceFile(copy, before);
    ReplaceFile(GameFilePath(), after);
  } catch (const std::exception&) {
    // The copy may only go where the game file surely is what it was.
    if (RestoreGameFile(before)) RemoveQuietly(copy);
    throw;
  }
}

std::string FreeName(const std::string& start, const std::string& ending) {
  platform::Clock& clock = *platform::TheSeams().clock;
  const platform::LocalTime now = clock.Now();
  const auto second = static_cast<int>(clock.Seconds() % 60);
  const std::string name = start + ZeroFilled(now.year, 4) + ZeroFilled(now.month, 2) +
                           ZeroFilled(now.day, 2) + "-" + ZeroFilled(now.hour, 2) +
                           ZeroFilled(now.minute, 2) + ZeroFilled(second, 2);
  std::string free = name + ending;
  for (int n = 2; platform::TheFiles().Exists(platform::Process().DataPath + free); ++n) {
    free = name;
    free.append("-").append(std::to_string(n)).append(ending);
  }
  return free;
}

void RemoveQuietly(const std::string& path) {
  try {
    if (platform::TheFiles().Exists(path)) platform::TheFiles().Remove(path);
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
      platform::TheFiles().Remove(GameFilePath());
    }
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace store
