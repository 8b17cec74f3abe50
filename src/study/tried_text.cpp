// SPDX-License-Identifier: GPL-3.0-or-later
#include "study/tried_text.h"

#include <algorithm>
#include <cctype>
#include <optional>

#include "rules/notation.h"

namespace study {

using Node = VariationTree::Node;
using rules::Square;

namespace {

std::string NameOf(Square square) {
  return {static_cast<char>('a' + square.x - 1), static_cast<char>('0' + square.y)};
}

bool Promotes(const VariationTree& tree, Node parent, Square from, Square to) {
  const rules::PieceCode piece = tree.PositionAt(parent).BoardState.At(from);
  return rules::IsPawn(piece) &&
         to.y == rules::HomeRow(rules::OtherSide(rules::SideOfPiece(piece)));
}

std::string MoveText(const VariationTree& tree, Node node) {
  const pgn::ChessMove& move = tree.MoveTo(node);
  std::string text = NameOf(move.from) + NameOf(move.to);
  if (Promotes(tree, tree.ParentOf(node), move.from, move.to)) {
    text += static_cast<char>(std::tolower(rules::LetterOf(move.becomes)));
  }
  return text;
}

/// What follows a position. A line may be as long as a game, so it is followed in a loop: only what
/// branches off nests.
std::string WriteBehind(const VariationTree& tree, Node node) {
  std::string text;
  for (auto next = tree.TriedAfter(node); !next.empty(); next = tree.TriedAfter(next.front())) {
    text += ' ' + MoveText(tree, next.front());
    for (auto other = next.begin() + 1; other != next.end(); ++other) {
      text += " (" + MoveText(tree, *other) + WriteBehind(tree, *other) + ')';
    }
  }
  return text;
}

std::optional<Square> ReadSquare(std::string_view text) {
  const Square square{text[0] - 'a' + 1, text[1] - '0'};
  return rules::IsOnBoard(square) ? std::optional(square) : std::nullopt;
}

/// The move that a word means where the cursor is; nothing where the rules don't allow it.
std::optional<pgn::ChessMove> ReadMove(std::string_view word, const VariationTree& tree) {
  if (word.size() != 4 && word.size() != 5) return std::nullopt;
  const auto from = ReadSquare(word.substr(0, 2));
  const auto to = ReadSquare(word.substr(2, 2));
  if (!from || !to || !tree.Allows(*from, *to)) return std::nullopt;
  const bool promotes = Promotes(tree, tree.Cursor(), *from, *to);
  if (promotes != (word.size() == 5)) return std::nullopt;
  if (!promotes)
    return pgn::ChessMove{*from, *to, tree.PositionAt(tree.Cursor()).BoardState.At(*from)};
  const auto kind = rules::PieceOfLetter(static_cast<char>(std::toupper(word[4])));
  if (kind == rules::NoPiece) return std::nullopt;
  return pgn::ChessMove{*from, *to, rules::OfSide(kind, tree.TurnAt(tree.Cursor()).side)};
}

/// Where a line has got to.
struct Place {
  Node before = 0;  ///< the position that its last move was made from
  Node now = 0;
  int missing = 0;  ///< the moves from one on that isn't a move
};

void TryWord(std::string_view word, VariationTree& tree, Place& place) {
  tree.GoTo(place.now);
  const auto move = place.missing == 0 ? ReadMove(word, tree) : std::nullopt;
  if (move) tree.Try(*move);
  place = {place.now, tree.Cursor(), move ? 0 : place.missing + 1};
}

/// What was tried instead of the last move, which needn't be one itself.
Place InsteadOf(const Place& place) {
  return {place.before, place.before, std::max(0, place.missing - 1)};
}

}  // namespace

std::string WriteTried(const VariationTree& tree, Node from) {
  const std::string text = WriteBehind(tree, from);
  return text.empty() ? text : text.substr(1);
}

void ReadTried(std::string_view text, VariationTree& tree, Node from) {
  const Node cursor = tree.Cursor();
  Place place{from, from};
  std::vector<Place> lines;  // that are interrupted by what was tried instead
  while (!text.empty()) {
    const auto length = std::min(text.find_first_of(" ()"), text.size());
    if (length > 0) {
      TryWord(text.substr(0, length), tree, place);
    } else if (text[0] == '(') {
      lines.push_back(place);
      place = InsteadOf(place);
    } else if (text[0] == ')' && !lines.empty()) {
      place = lines.back();
      lines.pop_back();
    }
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  tree.GoTo(cursor);
}

}  // namespace study
