// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/other_games.h"

#include <exception>
#include <optional>
#include <stdexcept>

#include "platform/process_state.h"
#include "platform/seams.h"
#include "store/data_files.h"
#include "store/database_lock.h"
#include "store/game_file.h"
#include "store/sorted_content.h"

namespace store {
namespace {

std::optional<std::string> ReadIfThere(const std::string& path) {
  if (!platform::TheFiles().Exists(path)) return std::nullopt;
  return platform::TheFiles().Read(path);
}

/// Nothing where there is none that is whole.
std::optional<std::string> ReadWholeBackup(const std::string& path) {
  try {
    auto content = ReadIfThere(path);
    if (content && SortOut(*content).damaged.empty()) return content;
  } catch (const std::exception&) {
    // The game file is whole, and is a backup of itself then.
  }
  return std::nullopt;
}

void UseBackup(const std::string& backup, const std::string& aside) {
  try {
    if (const auto before = ReadIfThere(BackupPath())) {
      ReplaceFile(platform::Process().DataPath + aside, *before);
    }
    ReplaceFile(BackupPath(), backup);
  } catch (const std::exception&) {
    // The games are there, and their next change makes a backup of its own.
  }
}

}  // namespace

OtherGames LookAtGamesIn(std::string folder) {
  const std::string& name = platform::Process().DatabaseFile;
  if (!folder.ends_with('/')) folder += '/';
  if (!platform::TheFiles().Exists(folder + name)) folder += "Data/";
  if (!platform::TheFiles().Exists(folder + name)) {
    throw std::runtime_error("there is no game file " + name + " in it");
  }
  OtherGames other{folder + name, platform::TheFiles().Read(folder + name), {}, 0};
  const SortedContent sorted = SortOut(other.content);
  if (!sorted.damaged.empty()) {
    throw std::runtime_error("its game file is damaged in line " +
                             std::to_string(sorted.damaged.front().number) + ": " +
                             sorted.damaged.front().why);
  }
  other.games = sorted.games;
  other.backup = ReadWholeBackup(folder + "tvgdb.bak").value_or(other.content);
  return other;
}

std::string UseGames(const OtherGames& other) {
  const DatabaseLock lock;
  const auto before = ReadGameFile();
  const std::string aside = FreeName("Tvgdb.replaced-", ".dat");
  if (before) {
    ReplaceGameFile(*before, other.content, aside);
  } else {
    ReplaceFile(GameFilePath(), other.content);
  }
  UseBackup(other.backup, aside + ".bak");
  return before ? aside : "";
}

}  // namespace store
