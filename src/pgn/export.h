// SPDX-License-Identifier: GPL-3.0-or-later
// Games in the export format of the PGN standard: the seven tags, those of a position that was set
// up and of the end, and the moves with their comments, in lines of fewer than 80 characters.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "store/game_record.h"

namespace pgn {

struct ExportOptions {
  bool addresses = false;  ///< mail addresses of the players too
  std::string ownName;     ///< for a game in which the user's name isn't stored yet
  std::string ownAddress;
};

/// A game as PGN. It is complete in itself: another one may be put behind it. Entries that break
/// the rules of chess, which are checked nowhere else, stand in a comment with all that follows.
/// The live position is left as it is.
std::string PgnOfGame(const store::GameRecord& game, const store::MoveRecords& moves,
                      const ExportOptions& options = {});

/// The stored games of these numbers, or all, by number. Nothing where the game file can't be read.
/// `goOn`, where given, is asked before each; the text ends where it answers false.
std::optional<std::string> PgnOfStoredGames(const std::vector<std::int32_t>& numbers,
                                            const ExportOptions& options = {},
                                            const std::function<bool()>& goOn = {});

}  // namespace pgn
