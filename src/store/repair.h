// SPDX-License-Identifier: GPL-3.0-or-later
// What is damaged in the game file, and its repair. A line is damaged where a reader of the file
// would fail at it, or where its game stands once more further down. A file that can't be read at
// all isn't damaged: its games may all be there once the disk is.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace store {

struct DamagedLine {
  int number = 0;   ///< from 1
  std::string why;  ///< the end of a sentence such as "it is empty"
};

/// What a look through the game file finds.
struct Examination {
  std::string unreadable;            ///< why the file can't be read; nothing else is known then
  int games = 0;                     ///< that can be read, each counted once
  std::vector<DamagedLine> damaged;  ///< in the order of the file
  std::optional<int> backupGames;    ///< of a backup without damage; not looked for without need
};

Examination ExamineGameFile();

std::string CountedGames(int games);  ///< "1 game", "2 games"

/// What is damaged and what the backup holds, in plain words; empty where nothing is damaged.
std::string DescribeDamage(const Examination& examination);

/// What a refused operation has to say of the game file's damage: DescribeDamage, and where the
/// repair is found. Empty where the file has none, or can't be read.
std::string DamageSentence();

/// A message's text, with DamageSentence as a paragraph of its own behind it where there is one.
std::string WithDamage(const std::string& text);

struct RepairOutcome {
  std::string failure;  ///< why nothing was done, as a sentence; the game file is as it was
  int kept = 0;         ///< games in the file now
  std::vector<DamagedLine> lost;  ///< the damaged lines that stand in it no more
  std::string aside;  ///< the name of the damaged file beside it; empty where nothing was damaged
};

/// Puts the lines that can be read in the place of a damaged game file, or the backup. The damaged
/// file is kept under a name of its own first. A file without damage stays as it is.
RepairOutcome Repair(bool fromBackup);

}  // namespace store
