// SPDX-License-Identifier: GPL-3.0-or-later
// Sets of squares as 64 bits, bit (x - 1) + (y - 1) * 8, and the tables that answer "which squares
// does a piece reach from here" without walking. They stand beside the piece codes for speed alone:
// every rule reads the same with or without them.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

namespace rules {

using Bitboard = std::uint64_t;

constexpr int ColumnOf(int index) { return index % 8 + 1; }
constexpr int RowOf(int index) { return index / 8 + 1; }
constexpr bool IsOnBoard(int x, int y) { return x >= 1 && x <= 8 && y >= 1 && y <= 8; }
constexpr int IndexOf(int x, int y) { return (x - 1) + (y - 1) * 8; }
constexpr Bitboard BitOf(int x, int y) { return Bitboard{1} << IndexOf(x, y); }

/// Takes the lowest square out of a set that isn't empty; its index.
inline int TakeLowest(Bitboard& set) {
  const int index = std::countr_zero(set);
  set &= set - 1;
  return index;
}

/// How many squares a set has. Quick where they are few, as among attackers of one square.
constexpr int CountSquares(Bitboard set) {
  int count = 0;
  for (; set != 0; set &= set - 1) ++count;
  return count;
}

struct Step {
  int dx;
  int dy;
};

// Some operations answer with the first move that they find, so the order of the steps counts.
inline constexpr std::array<Step, 4> straightSteps{{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}};
inline constexpr std::array<Step, 4> diagonalSteps{{{-1, -1}, {-1, 1}, {1, -1}, {1, 1}}};
inline constexpr std::array<Step, 8> knightSteps{
    {{-1, 2}, {1, 2}, {-1, -2}, {1, -2}, {-2, 1}, {-2, -1}, {2, 1}, {2, -1}}};

namespace tables {

using SquareTable = std::array<Bitboard, 64>;

template <std::size_t N>
constexpr SquareTable LeapsFrom(const std::array<Step, N>& steps) {
  SquareTable table{};
  for (int i = 0; i < 64; ++i) {
    for (const Step step : steps) {
      const int x = ColumnOf(i) + step.dx;
      const int y = RowOf(i) + step.dy;
      if (IsOnBoard(x, y)) table[i] |= BitOf(x, y);
    }
  }
  return table;
}

template <std::size_t N>
constexpr SquareTable RaysFrom(const std::array<Step, N>& steps) {
  SquareTable table{};
  for (int i = 0; i < 64; ++i) {
    for (const Step step : steps) {
      int x = ColumnOf(i) + step.dx;
      int y = RowOf(i) + step.dy;
      for (; IsOnBoard(x, y); x += step.dx, y += step.dy) table[i] |= BitOf(x, y);
    }
  }
  return table;
}

constexpr std::array<SquareTable, 64> SquaresBetween() {
  std::array<SquareTable, 64> table{};
  for (int from = 0; from < 64; ++from) {
    for (int dx = -1; dx <= 1; ++dx) {
      for (int dy = -1; dy <= 1; ++dy) {
        if (dx == 0 && dy == 0) continue;
        Bitboard passed = 0;
        int x = ColumnOf(from) + dx;
        int y = RowOf(from) + dy;
        for (; IsOnBoard(x, y); x += dx, y += dy) {
          table[from][IndexOf(x, y)] = passed;
          passed |= BitOf(x, y);
        }
      }
    }
  }
  return table;
}

constexpr std::array<SquareTable, 8> RaysByStep() {
  std::array<SquareTable, 8> rays{};
  for (std::size_t i = 0; i < 4; ++i) {
    rays[i] = RaysFrom(std::array<Step, 1>{straightSteps[i]});
    rays[i + 4] = RaysFrom(std::array<Step, 1>{diagonalSteps[i]});
  }
  return rays;
}

inline constexpr std::array<Step, 8> kingSteps{
    {{-1, -1}, {-1, 0}, {-1, 1}, {0, -1}, {0, 1}, {1, -1}, {1, 0}, {1, 1}}};

}  // namespace tables

/// The squares of one ray on an empty board, by the place of its step among the eight and by index:
/// the straight steps first, then the diagonal ones.
inline constexpr std::array<tables::SquareTable, 8> rayReach = tables::RaysByStep();

/// The nearest square of a set that isn't empty, seen along ray `ray` from its origin.
inline int NearestOnRay(Bitboard set, std::size_t ray) {
  // Along these steps the index grows.
  constexpr std::array<bool, 8> upward{false, true, false, true, false, true, false, true};
  return upward[ray] ? std::countr_zero(set) : 63 - std::countl_zero(set);
}

/// Squares reached on an empty board, by index.
inline constexpr tables::SquareTable straightReach = tables::RaysFrom(straightSteps);
inline constexpr tables::SquareTable diagonalReach = tables::RaysFrom(diagonalSteps);
inline constexpr tables::SquareTable knightReach = tables::LeapsFrom(knightSteps);
inline constexpr tables::SquareTable kingReach = tables::LeapsFrom(tables::kingSteps);

/// The squares that a pawn of the side attacks.
inline constexpr std::array<tables::SquareTable, 2> pawnReach{
    tables::LeapsFrom(std::array<Step, 2>{{{-1, 1}, {1, 1}}}),
    tables::LeapsFrom(std::array<Step, 2>{{{-1, -1}, {1, -1}}})};

/// The squares strictly between two squares of one line; empty for squares of no common line.
inline constexpr std::array<tables::SquareTable, 64> squaresBetween = tables::SquaresBetween();

}  // namespace rules
