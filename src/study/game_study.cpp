// SPDX-License-Identifier: GPL-3.0-or-later
#include "study/game_study.h"

#include <algorithm>

#include "rules/notation.h"
#include "study/tried_text.h"

namespace study {

using Node = VariationTree::Node;

namespace {

/// What stands on the to-square behind the move: the text of an entry tells what a pawn became.
rules::PieceCode WhatBecomes(const store::MoveRecord& entry, rules::PieceCode piece) {
  const auto sign = entry.MoveText.find('=');
  if (sign == std::string::npos || sign + 1 == entry.MoveText.size()) return piece;
  const rules::PieceCode kind = rules::PieceOfLetter(entry.MoveText[sign + 1]);
  if (kind == rules::NoPiece || piece == rules::NoPiece) return piece;
  return rules::OfSide(kind, rules::SideOfPiece(piece));
}

/// The positions of the game, the first being its start.
std::vector<Node> Trunk(const VariationTree& tree) {
  std::vector<Node> trunk{tree.Present()};
  while (tree.PlyOf(trunk.back()) > 0) trunk.push_back(tree.ParentOf(trunk.back()));
  std::ranges::reverse(trunk);
  return trunk;
}

std::string KeyOf(const VariationTree& tree, Node node) {
  return PositionKey(tree.PositionAt(node).BoardState, tree.TurnAt(node).side);
}

}  // namespace

bool StudyChanges::IsBlank() const {
  const auto blank = [](const auto& entry) { return entry.second.empty(); };
  return note.value_or("").empty() && std::ranges::all_of(positionNotes, blank) &&
         (!lines || lines->empty());
}

void Apply(const StudyChanges& changes, GameStudy& study) {
  if (changes.note) study.note = *changes.note;
  for (const auto& [position, note] : changes.positionNotes) {
    study.positionNotes[position] = note;
    if (note.empty()) study.positionNotes.erase(position);
  }
  if (changes.lines) study.lines = *changes.lines;
}

VariationTree NewTree(const rules::BoardSquares& startBoard, const store::MoveRecords& entries) {
  VariationTree tree(startBoard);
  for (const store::MoveRecord& entry : entries) {
    const auto move = rules::LastMove::FromText(entry.MoveCoordinates);
    // Offers of a draw and the like are entries, too.
    if (move.from == move.to || !IsOnBoard(move.from) || !IsOnBoard(move.to)) continue;
    const auto piece = tree.PositionAt(tree.Present()).BoardState.At(move.from);
    tree.GoOn({move.from, move.to, WhatBecomes(entry, piece)}, entry.MoveText);
  }
  return tree;
}

std::vector<TriedLines> HangUp(const std::vector<TriedLines>& lines, VariationTree& tree) {
  const std::vector<Node> trunk = Trunk(tree);
  std::vector<TriedLines> others;
  for (const TriedLines& tried : lines) {
    const auto ply = static_cast<std::size_t>(tried.ply);
    if (ply < trunk.size() && KeyOf(tree, trunk[ply]) == tried.position) {
      ReadTried(tried.moves, tree, trunk[ply]);
    } else {
      others.push_back(tried);
    }
  }
  return others;
}

std::vector<TriedLines> TakeDown(const VariationTree& tree) {
  std::vector<TriedLines> lines;
  for (const Node node : Trunk(tree)) {
    std::string moves = WriteTried(tree, node);
    if (!moves.empty()) lines.push_back({tree.PlyOf(node), KeyOf(tree, node), std::move(moves)});
  }
  return lines;
}

}  // namespace study
