// SPDX-License-Identifier: GPL-3.0-or-later
#include "pages/move_words.h"

#include <cstdlib>

#include "rules/notation.h"

namespace pages {
namespace {

using rules::Square;

std::string NameOf(rules::PieceCode piece) {
  static constexpr const char* names[] = {"", "rook", "knight", "bishop", "queen", "king", "pawn"};
  return names[rules::KindOf(piece)];
}

std::string NameOf(Square square) {
  return {static_cast<char>('a' + square.x - 1), static_cast<char>('0' + square.y)};
}

std::string Capitalized(std::string text) {
  text.front() = static_cast<char>(text.front() - 'a' + 'A');
  return text;
}

bool IsCastling(rules::PieceCode piece, Square from, Square to) {
  return rules::KindOf(piece) == rules::WhiteKing && std::abs(from.x - to.x) == 2;
}

/// What the pawn has become; no piece where it stayed one.
rules::PieceCode PromotedTo(const std::string& moveText) {
  const auto sign = moveText.find('=');
  if (sign == std::string::npos || sign + 1 == moveText.size()) return rules::NoPiece;
  return rules::PieceOfLetter(moveText[sign + 1]);
}

}  // namespace

std::string MoveWords(const store::MoveRecord& entry, const rules::BoardSquares& before) {
  const auto [from, to] = rules::LastMove::FromText(entry.MoveCoordinates);
  if (from == to || !rules::IsOnBoard(from) || !rules::IsOnBoard(to)) return {};
  const rules::PieceCode piece = before.At(from);
  const rules::PieceCode taken = before.At(to);
  if (piece == rules::NoPiece) return {};
  if (IsCastling(piece, from, to)) {
    const Square corner{to.x > from.x ? 8 : 1, from.y};
    const Square beside{(from.x + to.x) / 2, from.y};
    return "Castling: king from " + NameOf(from) + " to " + NameOf(to) + ", rook from " +
           NameOf(corner) + " to " + NameOf(beside);
  }
  std::string words = Capitalized(NameOf(piece)) + " from " + NameOf(from);
  if (taken != rules::NoPiece) {
    words += " takes the " + NameOf(taken) + " on " + NameOf(to);
  } else if (entry.MoveText.find("ep") != std::string::npos) {
    words += " takes the pawn on " + NameOf(Square{to.x, from.y}) + " in passing, and stands on " +
             NameOf(to);
  } else {
    words += " to " + NameOf(to);
  }
  const rules::PieceCode promoted = PromotedTo(entry.MoveText);
  if (promoted != rules::NoPiece) words += " and becomes a " + NameOf(promoted);
  return words;
}

}  // namespace pages
