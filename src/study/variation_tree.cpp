// SPDX-License-Identifier: GPL-3.0-or-later
#include "study/variation_tree.h"

#include <algorithm>

#include "pgn/san.h"
#include "rules/board_text.h"
#include "rules/notation.h"
#include "rules/piece_moves.h"
#include "rules/position_guard.h"
#include "rules/test_moves.h"

namespace study {

using pgn::ChessMove;
using rules::ThePosition;

namespace {

bool IsSame(const ChessMove& one, const ChessMove& other) {
  return one.from == other.from && one.to == other.to && one.becomes == other.becomes;
}

std::ptrdiff_t PlaceAmong(const std::vector<VariationTree::Node>& nodes, VariationTree::Node node) {
  return std::ranges::find(nodes, node) - nodes.begin();
}

}  // namespace

VariationTree::VariationTree(const rules::BoardSquares& startBoard) {
  const rules::PositionGuard guard;
  pgn::BeginFrom(startBoard);
  MoveNode& root = nodes_.emplace_back();
  root.position = ThePosition();
  root.played = true;
}

/// Plays the move, and writes it as the list of moves does.
VariationTree::MoveNode VariationTree::PlayedAfter(Node node, const ChessMove& move) const {
  const MoveNode& before = nodes_[node];
  const rules::PositionGuard guard;
  ThePosition() = before.position;
  const rules::BoardSquares& board = before.position.BoardState;
  const bool capture = board.At(move.to) != rules::NoPiece;
  const bool castling =
      rules::DetectCastling(before.turn.side, move.from, move.to) != rules::Castling::None;
  MoveNode after;
  after.turn = before.turn;
  after.move = move;
  after.parent = node;
  after.ply = before.ply + 1;
  after.san = pgn::PlaySan(after.turn, move);
  const pgn::Ending ending = pgn::EndingAt(after.turn);
  ThePosition().CheckmateFlag = ending == pgn::Ending::Mate;
  const bool drawn = ending == pgn::Ending::Stalemate || ending == pgn::Ending::DeadPosition;
  after.written =
      rules::MoveNotation({move.becomes, move.from, move.to, capture, castling},
                          ThePosition().SideInCheck, board, drawn, before.turn.lastMove);
  after.position = ThePosition();
  return after;
}

std::optional<VariationTree::Node> VariationTree::ChildBy(Node node, const ChessMove& move) const {
  const std::vector<Node>& children = ChildrenOf(node);
  const auto found =
      std::ranges::find_if(children, [&](Node child) { return IsSame(nodes_[child].move, move); });
  return found == children.end() ? std::nullopt : std::optional(*found);
}

void VariationTree::GoOn(const ChessMove& move, const std::string& written) {
  const auto tried = ChildBy(present_, move);
  if (!tried) nodes_.push_back(StoredAfter(present_, move));
  cursor_ = tried.value_or(nodes_.size() - 1);
  nodes_[cursor_].written = written;
  nodes_[cursor_].position.CheckmateFlag = written.ends_with("++");
  nodes_[cursor_].played = true;
  MoveNode& before = nodes_[present_];
  std::erase(before.children, cursor_);
  before.children.insert(before.children.begin(), cursor_);
  before.cameFrom = 0;
  present_ = cursor_;
}

/// What the game file says was played is played, whatever the rules think of it.
VariationTree::MoveNode VariationTree::StoredAfter(Node node, const ChessMove& move) const {
  const rules::PositionGuard guard;
  ThePosition() = PositionAt(node);
  MoveNode after;
  after.turn = TurnAt(node);
  // Where an entry that is no move stood before it, too.
  const rules::Side mover = rules::SideOfPiece(move.becomes);
  if (mover != rules::NoSide) after.turn.side = mover;
  pgn::Play(after.turn, move);
  after.position = ThePosition();
  after.move = move;
  after.parent = node;
  after.ply = PlyOf(node) + 1;
  return after;
}

bool VariationTree::WasThoughtThen(Node node) const {
  while (!WasPlayed(node)) node = ParentOf(node);
  return node != present_;
}

bool VariationTree::Back() {
  if (cursor_ == start) return false;
  MoveNode& parent = nodes_[ParentOf(cursor_)];
  parent.cameFrom = PlaceAmong(parent.children, cursor_);
  cursor_ = ParentOf(cursor_);
  return true;
}

bool VariationTree::Forward() {
  const MoveNode& here = nodes_[cursor_];
  if (here.children.empty()) return false;
  cursor_ = here.children[static_cast<std::size_t>(here.cameFrom)];
  return true;
}

bool VariationTree::First() {
  if (cursor_ == start) return false;
  const Node goal = cursor_ != present_ && IsBehind(cursor_, present_) ? present_ : start;
  while (cursor_ != goal) Back();
  return true;
}

bool VariationTree::Last() {
  const Node before = cursor_;
  while (Forward()) {
  }
  return cursor_ != before;
}

bool VariationTree::ToSibling(int step) {
  if (cursor_ == start) return false;
  const std::vector<Node>& siblings = ChildrenOf(ParentOf(cursor_));
  const auto there = PlaceAmong(siblings, cursor_) + step;
  if (there < 0 || there >= std::ssize(siblings)) return false;
  cursor_ = siblings[static_cast<std::size_t>(there)];
  return true;
}

bool VariationTree::Allows(rules::Square from, rules::Square to) const {
  const rules::PositionGuard guard;
  ThePosition() = PositionAt(cursor_);
  return pgn::IsLegal(TurnAt(cursor_), from, to);
}

rules::Bitboard VariationTree::TargetsFrom(rules::Square from) const {
  const rules::PositionGuard guard;
  ThePosition() = PositionAt(cursor_);
  return rules::LegalTargets(TurnAt(cursor_).side, from, TurnAt(cursor_).lastMove);
}

void VariationTree::Try(const ChessMove& move) {
  auto node = ChildBy(cursor_, move);
  if (!node) {
    nodes_.push_back(PlayedAfter(cursor_, move));
    node = nodes_.size() - 1;
    nodes_[cursor_].children.push_back(*node);
  }
  cursor_ = *node;
}

bool VariationTree::Delete(Node node) {
  if (WasPlayed(node)) return false;
  MoveNode& parent = nodes_[ParentOf(node)];
  if (IsBehind(cursor_, node)) cursor_ = ParentOf(node);
  deletions_.push_back({node, PlaceAmong(parent.children, node)});
  std::erase(parent.children, node);
  parent.cameFrom = 0;
  return true;
}

bool VariationTree::Undelete() {
  if (deletions_.empty()) return false;
  const Deletion last = deletions_.back();
  deletions_.pop_back();
  cursor_ = PutBack(last.node, last.place);
  return true;
}

/// A move that was tried again meanwhile takes what stood behind the old one. Answers the node that
/// is now in the tree.
VariationTree::Node VariationTree::PutBack(Node node, std::ptrdiff_t place) {
  const Node parent = ParentOf(node);
  const auto again = ChildBy(parent, nodes_[node].move);
  if (!again) {
    std::vector<Node>& siblings = nodes_[parent].children;
    siblings.insert(siblings.begin() + std::min(place, std::ssize(siblings)), node);
    return node;
  }
  for (MoveNode& other : nodes_) {
    if (other.parent == node) other.parent = *again;  // of those that are deleted, too
  }
  for (const Node child : std::vector<Node>(ChildrenOf(node))) {
    PutBack(child, std::ssize(ChildrenOf(*again)));
  }
  return *again;
}

bool VariationTree::Promote(Node node) {
  // A move without neighbours belongs to the line of the one before it.
  while (!WasPlayed(node)) {
    std::vector<Node>& children = nodes_[ParentOf(node)].children;
    const auto first = std::ranges::find_if(children, [&](Node n) { return !WasPlayed(n); });
    if (*first != node) {
      const auto here = std::ranges::find(children, node);
      std::rotate(first, here, here + 1);
      nodes_[ParentOf(node)].cameFrom = first - children.begin();
      return true;
    }
    node = ParentOf(node);
  }
  return false;
}

std::vector<VariationTree::Node> VariationTree::TriedAfter(Node node) const {
  std::vector<Node> tried;
  std::ranges::copy_if(ChildrenOf(node), std::back_inserter(tried),
                       [&](Node child) { return !WasPlayed(child); });
  return tried;
}

bool VariationTree::IsBehind(Node node, Node ancestor) const {
  while (node != ancestor && node != start) node = ParentOf(node);
  return node == ancestor;
}

std::optional<ChessMove> VariationTree::NextMoveOfGame() const {
  if (cursor_ == present_ || !IsBehind(cursor_, present_)) return std::nullopt;
  Node node = cursor_;
  while (ParentOf(node) != present_) node = ParentOf(node);
  return MoveTo(node);
}

std::string PositionKey(const rules::BoardSquares& board, rules::Side side) {
  return rules::WriteBoardText(board) + (side == rules::White ? " w" : " b");
}

}  // namespace study
