// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/heuristic_rows.h"

#include <cassert>

#include "ai/heuristics.h"

namespace ai {
namespace {

struct Heading {
  int row;
  const char* text;
  int under;
  int last;
};

constexpr Heading headings[] = {
    {1, "Check motivations", 0, 2},      {3, "Vulnerability motivations", 0, 13},
    {14, "Taking motivations", 0, 29},   {30, "Pinning motivations", 0, 48},
    {31, "Pin with a Bishop", 30, 36},   {37, "Pin with a Rook", 30, 42},
    {43, "Pin with a Queen", 30, 48},    {49, "Movement motivations", 0, 58},
    {59, "Castling motivations", 0, 63},
};

}  // namespace

const std::array<HeuristicRow, heuristicRowCount> heuristicRows = [] {
  std::array<HeuristicRow, heuristicRowCount> rows{};
  for (const Heading& heading : headings) {
    for (int row = heading.row + 1; row <= heading.last; ++row) rows[row].under = heading.row;
    rows[heading.row] = {heading.text, -1, heading.under, heading.last};
  }
  for (int index = 0; index < heuristicCount; ++index) {
    const auto& [row, name, factory] = heuristicEntries[index];
    rows[row] = {name, index, rows[row].under, row};
  }
  return rows;
}();

int HeuristicOnRow(int row) {
  return row >= 0 && row < heuristicRowCount ? heuristicRows[row].index : -1;
}

std::int16_t GetDefaultOfRow(int row) {
  constexpr int castlingRook = 60;
  constexpr int lastCastlingRook = 61;
  assert(HeuristicOnRow(row) >= 0);
  const int other = castlingRook + lastCastlingRook - row;
  const bool exchanged = row == castlingRook || row == lastCastlingRook;
  return GetDefaultHeuristic(HeuristicOnRow(exchanged ? other : row));
}

}  // namespace ai
