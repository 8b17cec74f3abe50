// SPDX-License-Identifier: GPL-3.0-or-later
// What the list of games tells of each beside its record: the last move, and since when it stands
// as it does.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "store/queries.h"

namespace shell {

/// As players write it, with its number: "12. Nf3", and of Black "12... Nf6"; a draw offer and its
/// like by its word.
std::string NumberedMove(const store::MoveRecord& move);

class GameNews {
 public:
  /// Of no games.
  GameNews() = default;

  /// As things are now.
  explicit GameNews(store::LastMoves lastMoves);

  /// A NumberedMove; blank where there is none.
  std::string LastMove(const store::GameRecord& game) const;

  /// The number of the last move, or 0.
  std::int32_t Moves(const store::GameRecord& game) const;

  /// When the last mail of the game came or went, in seconds since 1970. Nothing where that isn't
  /// known.
  std::optional<std::int64_t> Since(const store::GameRecord& game) const;

  /// By the number of moves, or by time. Games without any come last in either order, and a tie
  /// stays as it is.
  void SortByMove(store::GameRecords& games, bool descending) const;
  void SortByTime(store::GameRecords& games, bool descending) const;

 private:
  store::LastMoves lastMoves_;
  std::map<std::string, std::int64_t> lastMails_;  // by thread
};

}  // namespace shell
