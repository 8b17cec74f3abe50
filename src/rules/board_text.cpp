// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/board_text.h"

#include "platform/conversions.h"
#include "platform/text_fields.h"

namespace rules {
namespace {

PieceCode ReadCode(std::string_view row, int x) {
  const auto at = 2 * static_cast<std::size_t>(x - 1);
  if (row.size() < at + 2) return NoPiece;
  const char tens = row[at];
  const char units = row[at + 1];
  if ((tens != '0' && tens != '1') || units < '0' || units > '9') return NoPiece;
  const PieceCode code = (tens - '0') * 10 + (units - '0');
  return code > BlackPawn ? NoPiece : code;
}

}  // namespace

BoardSquares ReadBoardText(std::string_view text) {
  BoardSquares board;
  platform::FieldWalk rows(text, ';');
  for (int y = 1; y <= 8; ++y) {
    const std::string_view row = rows.Next();
    for (int x = 1; x <= 8; ++x) board.Put({x, y}, ReadCode(row, x));
  }
  return board;
}

std::string WriteBoardText(const BoardSquares& board) {
  std::string text;
  text.reserve(135);
  for (int y = 1; y <= 8; ++y) {
    if (y > 1) text += ';';
    for (int x = 1; x <= 8; ++x) text += platform::ZeroFilled(board.At(x, y), 2);
  }
  return text;
}

}  // namespace rules
