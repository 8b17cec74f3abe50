// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/repair.h"

#include <exception>
#include <stdexcept>

#include "platform/process_state.h"
#include "platform/seams.h"
#include "store/data_files.h"
#include "store/database_lock.h"
#include "store/game_file.h"
#include "store/sorted_content.h"

namespace store {
namespace {

/// Raises where there is no backup without damage.
SortedContent ReadBackup() {
  SortedContent backup = SortOut(platform::TheFiles().Read(BackupPath()));
  if (!backup.damaged.empty()) throw std::invalid_argument("the backup is damaged, too");
  return backup;
}

std::optional<int> GamesInBackup() {
  try {
    return ReadBackup().games;
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

std::string DescribeLines(const std::vector<DamagedLine>& damaged) {
  const DamagedLine& first = damaged.front();
  const std::string number = std::to_string(first.number);
  const std::string file = "your game file " + GameFilePath();
  return damaged.size() == 1
             ? "Line " + number + " of " + file + " is damaged: " + first.why + "."
             : std::to_string(damaged.size()) + " lines of " + file +
                   " are damaged. The first is line " + number + ": " + first.why + ".";
}

}  // namespace

std::string CountedGames(int games) {
  return games == 1 ? "1 game" : std::to_string(games) + " games";
}

Examination ExamineGameFile() {
  try {
    SortedContent found = SortOut(ReadGameFile().value_or(""));
    Examination examination{{}, found.games, std::move(found.damaged), {}};
    if (!examination.damaged.empty()) examination.backupGames = GamesInBackup();
    return examination;
  } catch (const std::exception& error) {
    return {error.what(), 0, {}, {}};
  }
}

std::string DescribeDamage(const Examination& examination) {
  if (examination.damaged.empty()) return {};
  const std::optional<int>& backupGames = examination.backupGames;
  return DescribeLines(examination.damaged) + " " + CountedGames(examination.games) +
         " in it can be read. " +
         (backupGames
              ? "The backup tvgdb.bak beside it is good and holds " + CountedGames(*backupGames)
              : "There is no good backup tvgdb.bak beside it") +
         ".";
}

std::string DamageSentence() {
  const std::string damage = DescribeDamage(ExamineGameFile());
  if (damage.empty()) return {};
  return damage +
         " When you start Tarvolenix again, it offers to repair the file. In a terminal, "
         "\"tarvolenix-cli repair\" mends it.";
}

std::string WithDamage(const std::string& text) {
  const std::string damage = DamageSentence();
  return damage.empty() ? text : text + "||" + damage;
}

RepairOutcome Repair(bool fromBackup) {
  try {
    const DatabaseLock lock;
    const std::string before = ReadGameFile().value_or("");
    SortedContent found = SortOut(before);
    if (found.damaged.empty()) return {{}, found.games, {}, {}};
    const SortedContent kept = fromBackup ? ReadBackup() : found;
    const std::string aside = FreeName("Tvgdb.damaged-", ".dat");
    ReplaceGameFile(before, kept.goodLines, aside);
    return {{}, kept.games, std::move(found.damaged), aside};
  } catch (const std::exception& error) {
    return {"Your game file could not be repaired: " + std::string(error.what()) + ".", 0, {}, {}};
  }
}

}  // namespace store
