// SPDX-License-Identifier: GPL-3.0-or-later
// The list of motivations as the options page shows it: grouped under headings, which can be folded
// away. The rows are the keys of an AI file, so their order is part of its format.
#pragma once

#include <array>
#include <cstdint>

namespace ai {

/// With row 0, which has the captions of the columns.
inline constexpr int heuristicRowCount = 64;

inline constexpr int firstHeuristicRow = 2;

struct HeuristicRow {
  const char* text = "";  ///< the heading, or the motivation's name
  int index = -1;         ///< the motivation's, in Heuristics; -1 for a heading and for row 0
  int under = 0;          ///< the row of the nearest heading above it; 0 for none
  int last = 0;           ///< the last row that a heading folds away; else the row itself
};

/// By row.
extern const std::array<HeuristicRow, heuristicRowCount> heuristicRows;

/// The index of the motivation on a row; -1 for any number that no motivation has.
int HeuristicOnRow(int row);

/// What the defaults are for a row of the list. They are the factory's, but for the two rooks of
/// castling: the list has them the other way round than the table, and the defaults have not.
/// `row` is a motivation's.
std::int16_t GetDefaultOfRow(int row);

}  // namespace ai
