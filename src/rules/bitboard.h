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

constexpr int ColumnOf(int index) { return (index & 7) + 1; }
constexpr int RowOf(int index) { return (index >> 3) + 1; }
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
inline constexpr std::array<Step, 8> kingSteps{
    {{-1, -1}, {-1, 0}, {-1, 1}, {0, -1}, {0, 1}, {1, -1}, {1, 0}, {1, 1}}};

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

}  // namespace tables

/// The squares of one ray on an empty board, by the place of its step among the eight and by index:
/// the straight steps first, then the diagonal ones.
inline constexpr std::array<tables::SquareTable, 8> rayReach = tables::RaysByStep();

inline constexpr std::size_t downRay = 2;
inline constexpr std::size_t upRay = 3;
inline constexpr std::size_t firstDiagonalRay = 4;

/// True for the rays along which the index grows.
constexpr bool IsUpward(std::size_t ray) { return ray % 2 != 0; }

/// The nearest square of a set that isn't empty, seen along ray `ray` from its origin.
constexpr int NearestOnRay(Bitboard set, std::size_t ray) {
  return IsUpward(ray) ? std::countr_zero(set) : 63 - std::countl_zero(set);
}

/// What a piece on `from` reaches along a ray: all up to the first square of `occupied`, and it.
constexpr Bitboard ReachOnRay(std::size_t ray, int from, Bitboard occupied) {
  // Behind the outermost corner nothing lies, so it may end every ray.
  const Bitboard corner = Bitboard{1} << (IsUpward(ray) ? 63 : 0);
  const Bitboard reach = rayReach[ray][from];
  return reach ^ rayReach[ray][NearestOnRay((reach & occupied) | corner, ray)];
}

/// Squares reached on an empty board, by index.
inline constexpr tables::SquareTable straightReach = tables::RaysFrom(straightSteps);
inline constexpr tables::SquareTable diagonalReach = tables::RaysFrom(diagonalSteps);
inline constexpr tables::SquareTable knightReach = tables::LeapsFrom(knightSteps);
inline constexpr tables::SquareTable kingReach = tables::LeapsFrom(kingSteps);

/// The squares that a pawn of the side attacks.
inline constexpr std::array<tables::SquareTable, 2> pawnReach{
    tables::LeapsFrom(std::array<Step, 2>{{{-1, 1}, {1, 1}}}),
    tables::LeapsFrom(std::array<Step, 2>{{{-1, -1}, {1, -1}}})};

/// The squares strictly between two squares of one line; empty for squares of no common line.
inline constexpr std::array<tables::SquareTable, 64> squaresBetween = tables::SquaresBetween();

namespace tables {

inline constexpr SquareTable column = RaysFrom(std::array<Step, 2>{{{0, -1}, {0, 1}}});
inline constexpr SquareTable rising = RaysFrom(std::array<Step, 2>{{{-1, -1}, {1, 1}}});
inline constexpr SquareTable falling = RaysFrom(std::array<Step, 2>{{{-1, 1}, {1, -1}}});

/// What a piece reaches of row 1, by its index and by what stands on columns 2 to 7.
inline constexpr auto reachOnRow = [] {
  std::array<std::array<std::uint8_t, 64>, 8> table{};
  for (int from = 0; from < 8; ++from) {
    for (Bitboard inner = 0; inner < 64; ++inner) {
      const Bitboard reach = ReachOnRay(0, from, inner << 1) | ReachOnRay(1, from, inner << 1);
      table[from][inner] = static_cast<std::uint8_t>(reach);
    }
  }
  return table;
}();

/// The set seen from the other side of the board.
constexpr Bitboard RowsTurned(Bitboard set) {
  set = (set >> 8 & 0x00ff00ff00ff00ffU) | (set & 0x00ff00ff00ff00ffU) << 8;
  set = (set >> 16 & 0x0000ffff0000ffffU) | (set & 0x0000ffff0000ffffU) << 16;
  return set >> 32 | set << 32;
}

/// What a piece reaches of a line that has one square in a row.
constexpr Bitboard ReachOnLine(const SquareTable& line, int from, Bitboard occupied) {
  // The subtraction borrows from the nearest piece above: the bits that change are those up to it.
  const auto changed = [](Bitboard pieces, Bitboard origin) { return pieces ^ (pieces - origin); };
  const Bitboard pieces = line[from] & occupied;
  const Bitboard origin = Bitboard{1} << from;
  const Bitboard above = changed(pieces, origin);
  const Bitboard below = RowsTurned(changed(RowsTurned(pieces), RowsTurned(origin)));
  return line[from] & (above | below);
}

}  // namespace tables

/// What a piece on `from` reaches along its row and column: all up to the first squares of
/// `occupied`, and these.
constexpr Bitboard ReachStraight(int from, Bitboard occupied) {
  const int row = from & 56;
  const Bitboard onRow = tables::reachOnRow[from & 7][occupied >> (row + 1) & 63];
  return onRow << row | tables::ReachOnLine(tables::column, from, occupied);
}

/// The same along its diagonals.
constexpr Bitboard ReachDiagonally(int from, Bitboard occupied) {
  return tables::ReachOnLine(tables::rising, from, occupied) |
         tables::ReachOnLine(tables::falling, from, occupied);
}

}  // namespace rules
