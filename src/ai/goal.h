// SPDX-License-Identifier: GPL-3.0-or-later
// A square that moves are rewarded for coming closer to, in whole units of distance.
#pragma once

#include <array>
#include <cstdint>

#include "rules/bitboard.h"
#include "rules/position.h"

namespace ai {

/// How far each square is from one.
using Lengths = std::array<std::uint8_t, 64>;

constexpr int RootCut(int square) {
  int root = 0;
  while ((root + 1) * (root + 1) <= square) ++root;
  return root;
}

constexpr int RootRounded(int square) { return (RootCut(4 * square) + 1) / 2; }

constexpr Lengths LengthsTo(rules::Square goal, int (*root)(int)) {
  Lengths lengths{};
  for (int i = 0; i < 64; ++i) {
    const int dx = goal.x - rules::ColumnOf(i), dy = goal.y - rules::RowOf(i);
    lengths[i] = static_cast<std::uint8_t>(root(dx * dx + dy * dy));
  }
  return lengths;
}

/// The lengths, cut, to each square by column and row. A piece that isn't there counts as on {0,
/// 0}.
inline constexpr auto lengthsCut = [] {
  std::array<std::array<Lengths, 9>, 9> lengths{};
  for (int x = 0; x <= 8; ++x) {
    for (int y = 0; y <= 8; ++y) lengths[x][y] = LengthsTo({x, y}, RootCut);
  }
  return lengths;
}();

inline constexpr Lengths lengthsToCentre = LengthsTo({4, 4}, RootRounded);

class Goal {
 public:
  Goal(const Lengths& lengths, int reward)
      : lengths_(lengths), rewards_{-FloorOfHalf(reward), 0, reward} {}

  int RewardOf(rules::Square from, rules::Square to) const {
    const int before = lengths_[rules::IndexOf(from)], after = lengths_[rules::IndexOf(to)];
    return rewards_[1 + (after < before) - (after > before)];
  }

 private:
  static int FloorOfHalf(int value) { return value >> 1; }

  const Lengths& lengths_;
  std::array<int, 3> rewards_;  // for leaving it, for neither, for nearing it
};

}  // namespace ai
