// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/heuristics.h"

#include <cassert>

#include "platform/conversions.h"
#include "platform/text_fields.h"

namespace ai {

const std::array<HeuristicEntry, heuristicCount> heuristicEntries = {{
    // clang-format off
    {2, "Go for check", 88},
    {4, "Leave Rook vulnerable", -118},
    {5, "Leave Knight vulnerable", -39},
    {6, "Leave Bishop vulnerable", -51},
    {7, "Leave Queen vulnerable", -171},
    {8, "Leave Pawn vulnerable", 0},
    {9, "Protect a Rook", 68},
    {10, "Protect a Knight", 24},
    {11, "Protect a Bishop", 24},
    {12, "Protect a Queen", 128},
    {13, "Protect a Pawn", 0},
    {15, "Take a Rook", 70},
    {16, "Take a Knight", 40},
    {17, "Take a Bishop", 40},
    {18, "Take a Queen", 80},
    {19, "Take a Pawn", 15},
    {50, "Move a Rook", 9},
    {51, "Move a Knight", 52},
    {52, "Move a Bishop", 64},
    {53, "Move a Queen", 74},
    {54, "Move a Pawn", 0},
    {55, "Move a King", -20},
    {20, "Taking a completely undefended Rook", 142},
    {21, "Taking a completely undefended Knight", 50},
    {22, "Taking a completely undefended Bishop", 57},
    {23, "Taking a completely undefended Queen", 200},
    {24, "Taking a completely undefended Pawn", 14},
    {25, "Allow an undefended Rook to be taken", -200},
    {26, "Allow an undefended Knight to be taken", -200},
    {27, "Allow an undefended Bishop to be taken", -200},
    {28, "Allow an undefended Queen to be taken", -200},
    {29, "Allow an undefended Pawn to be taken", -12},
    {32, "Pin a Rook with a Bishop", 50},
    {33, "Pin a Knight with a Bishop", 11},
    {34, "Pin a Bishop with a Bishop", 35},
    {35, "Pin a Queen with a Bishop", 57},
    {36, "Pin a Pawn with a Bishop", 0},
    {38, "Pin a Rook with Rook", 10},
    {39, "Pin a Knight with Rook", 5},
    {40, "Pin a Bishop with Rook", 6},
    {41, "Pin a Queen with Rook", 18},
    {42, "Pin a Pawn with Rook", 0},
    {44, "Pin a Rook with a Queen", 2},
    {45, "Pin a Knight with a Queen", 1},
    {46, "Pin a Bishop with a Queen", 1},
    {47, "Pin a Queen with a Queen", 1},
    {48, "Pin a Pawn with a Queen", 0},
    {56, "Move closer to opposing King", 55},
    {57, "Move closer to opposing Queen", 51},
    {58, "Move closer to the center of the board", 30},
    {61, "Move the last rook that could castle", -58},
    {60, "Move a rook that could castle", -40},
    {62, "Move the king before its castled", -88},
    {63, "Perform the Castle manuver", 148},
    // clang-format on
}};

HeuristicTable Heuristics{};

std::int16_t GetDefaultHeuristic(int index) {
  assert(index >= 0 && index < heuristicCount);
  return heuristicEntries[static_cast<std::size_t>(index)].factory;
}

HeuristicTable DefaultHeuristics() {
  HeuristicTable table{};
  for (int i = 0; i < heuristicCount; ++i) table[i] = GetDefaultHeuristic(i);
  return table;
}

void LoadDefaultHeuristics() { Heuristics = DefaultHeuristics(); }

std::string HeuristicsText() {
  std::string text;
  for (const std::int16_t value : Heuristics) {
    if (!text.empty()) text += ';';
    text += std::to_string(value);
  }
  return text;
}

bool SetHeuristicsFromText(std::string_view text) {
  HeuristicTable values{};
  platform::FieldWalk fields(text, ';');
  for (std::int16_t& value : values) {
    const auto number = platform::ToInteger16(fields.Next());
    if (!number) return false;
    value = *number;
  }
  Heuristics = values;
  return true;
}

}  // namespace ai
