// SPDX-License-Identifier: GPL-3.0-or-later
// Games of a file that are stored already, so that a file may be read twice. Two games are one
// where their players, day, start, moves and result are the same. Of a game without a day, which
// is stored with that of its import, the others are enough.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "pgn/import.h"

namespace pgn {

struct KnownGame {
  int number = 0;         ///< in the file
  std::int32_t game = 0;  ///< in the list; 0 for one that stands in the file twice
};

class KnownGames {
 public:
  /// Those that are stored now. `options` are those of the import. Nothing where the game file
  /// can't be read.
  static std::optional<KnownGames> Stored(const ImportOptions& options);

  /// Takes those out of `games` that are known by now, also where they lack something, and tells
  /// them by their numbers. Those that are taken are known from now on.
  std::vector<KnownGame> LeaveOutOf(ImportedGames& games);

 private:
  struct StoredGame;

  explicit KnownGames(const ImportOptions& options);

  std::optional<std::int32_t> Find(const StoredGame& game) const;
  void Take(const StoredGame& game, store::NewGames& taken);
  void Add(const store::GameRecord& game, const store::MoveRecords& moves);
  std::string KeyOf(const store::GameRecord& game, const store::MoveRecords& moves) const;

  std::string ownName_;
  std::string today_;
  /// Their numbers in the list, by keys with the day ahead, and without one.
  std::unordered_map<std::string, std::int32_t> keys_;
};

}  // namespace pgn
