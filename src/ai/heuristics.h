// SPDX-License-Identifier: GPL-3.0-or-later
// What the computer opponent wants and doesn't want on the board. A motivation's value is the
// number of score points that the thing is worth to it; 0 is indifference. There is one table per
// program, and all games against the computer play with it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace ai {

inline constexpr int heuristicCount = 54;

struct HeuristicEntry {
  int listRow;  ///< its row on the options page, and its key in an AI file
  const char* name;
  std::int16_t factory;
};

/// A value for each motivation, by index.
using HeuristicTable = std::array<std::int16_t, heuristicCount>;

/// All motivations by index. Groups of five are Rook, Knight, Bishop, Queen, Pawn.
extern const std::array<HeuristicEntry, heuristicCount> heuristicEntries;

/// The current values. Changed by the settings, the options page and the console only. A search in
/// progress goes on with those that it began with.
extern HeuristicTable Heuristics;

/// `index` from 0 to 53.
std::int16_t GetDefaultHeuristic(int index);

HeuristicTable DefaultHeuristics();

void LoadDefaultHeuristics();

/// The table as its setting: 54 decimal numbers joined by ";".
std::string HeuristicsText();

/// Takes the first 54 fields of such a text. False, with nothing changed, where one of them is no
/// 16-bit number.
bool SetHeuristicsFromText(std::string_view text);

}  // namespace ai
