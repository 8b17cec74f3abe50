// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/repair.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <set>
#include <stdexcept>
#include <string_view>

#include "platform/conversions.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "store/data_files.h"
#include "store/database_lock.h"
#include "store/game_file.h"

namespace store {
namespace {

using platform::ZeroFilled;

platform::Files& Files() { return *platform::TheSeams().files; }

struct Line {
  std::string_view text;
  std::int32_t gameID = 0;
  std::string why;  ///< of its damage; empty for a good one
};

void Judge(Line& line) {
  try {
    GameRecord record;
    ReadGameLine(line.text, record);
    ReadMoves(line.text);
    line.gameID = record.GAME_ID;
  } catch (const std::invalid_argument& damage) {
    line.why = damage.what();
  }
}

/// Of two lines of one game the later one was saved later.
void JudgeRepeatedGames(std::vector<Line>& lines) {
  std::set<std::int32_t> seen;
  std::for_each(lines.rbegin(), lines.rend(), [&seen](Line& line) {
    if (!line.why.empty() || seen.insert(line.gameID).second) return;
    line.why = "its game " + std::to_string(line.gameID) + " stands once more further down";
  });
}

/// A file's content, the good apart from the bad.
struct SortedContent {
  std::string goodLines;
  int games = 0;
  std::vector<DamagedLine> damaged;
};

SortedContent SortOut(std::string_view content) {
  std::vector<Line> lines;
  LineWalk walk(content);
  while (const auto text = walk.Next()) {
    lines.push_back({*text, 0, {}});
    Judge(lines.back());
  }
  JudgeRepeatedGames(lines);
  SortedContent sorted;
  int number = 0;
  for (Line& line : lines) {
    ++number;
    if (line.why.empty()) {
      sorted.goodLines.append(line.text).append(lineEnd);
      ++sorted.games;
    } else {
      sorted.damaged.push_back({number, std::move(line.why)});
    }
  }
  return sorted;
}

/// Raises where there is no backup without damage.
SortedContent ReadBackup() {
  SortedContent backup = SortOut(Files().Read(BackupPath()));
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

/// A name that no file of the data folder has.
std::string NameForDamagedFile() {
  platform::Clock& clock = *platform::TheSeams().clock;
  const platform::LocalTime now = clock.Now();
  const auto second = static_cast<int>(clock.Seconds() % 60);
  const std::string name = "Tvgdb.damaged-" + ZeroFilled(now.year, 4) + ZeroFilled(now.month, 2) +
                           ZeroFilled(now.day, 2) + "-" + ZeroFilled(now.hour, 2) +
                           ZeroFilled(now.minute, 2) + ZeroFilled(second, 2);
  std::string free = name + ".dat";
  for (int n = 2; Files().Exists(platform::Process().DataPath + free); ++n) {
    free = name + "-" + std::to_string(n) + ".dat";
  }
  return free;
}

void ReplaceGameFile(const std::string& before, const std::string& after,
                     const std::string& aside) {
  try {
    ReplaceFile(aside, before);
    ReplaceFile(GameFilePath(), after);
  } catch (const std::exception&) {
    // The copy may only go where the game file surely is what it was.
    if (RestoreGameFile(before)) RemoveQuietly(aside);
    throw;
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
    const std::string aside = NameForDamagedFile();
    ReplaceGameFile(before, kept.goodLines, platform::Process().DataPath + aside);
    return {{}, kept.games, std::move(found.damaged), aside};
  } catch (const std::exception& error) {
    return {"Your game file could not be repaired: " + std::string(error.what()) + ".", 0, {}, {}};
  }
}

}  // namespace store
