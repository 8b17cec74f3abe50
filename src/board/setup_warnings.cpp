// SPDX-License-Identifier: GPL-3.0-or-later
#include "board/setup_warnings.h"

#include <bit>

namespace board {
namespace {

constexpr int mostPawns = 8;
constexpr int mostPieces = 16;

std::string WarningsOf(const rules::BoardSquares& squares, rules::Side side) {
  const auto of = [&](rules::PieceCode kind) { return squares.Of(rules::OfSide(kind, side)); };
  const int pawns = std::popcount(of(rules::WhitePawn));
  const int court = std::popcount(of(rules::WhiteRook)) + std::popcount(of(rules::WhiteKnight)) +
                    std::popcount(of(rules::WhiteBishop)) + std::popcount(of(rules::WhiteQueen));
  int onWhite = 0;
  int onBlack = 0;
  for (rules::Bitboard bishops = of(rules::WhiteBishop); bishops != 0;) {
    const rules::Square square = rules::SquareAt(rules::TakeLowest(bishops));
    ++((square.x + square.y) % 2 == 0 ? onBlack : onWhite);
  }
  const bool pair = onWhite + onBlack >= 2;
  const bool crowded = pawns + court > mostPieces;
  const struct {
    bool holds;
    const char* text;
  } warnings[] = {
      {pawns > mostPawns, "To many pawns"},
      {crowded, "Not exchanged enough pawns to pay for the court pieces"},
      {pair && onWhite == 0, "No bishops on a white board square"},
      {pair && onBlack == 0, "No bishops on a black board square"},
      {crowded, "More than 16 pieces on the board"},
  };
  std::string text;
  for (const auto& warning : warnings) {
    if (!warning.holds) continue;
    if (text.empty()) text = side == rules::White ? "White warnings" : "Black warnings";
    text += "\n      ";
    text += warning.text;
  }
  return text;
}

}  // namespace

std::string SetupWarnings(const rules::BoardSquares& squares) {
  const std::string white = WarningsOf(squares, rules::White);
  const std::string black = WarningsOf(squares, rules::Black);
  return white + (white.empty() || black.empty() ? "" : "\n\n") + black;
}

}  // namespace board
