// SPDX-License-Identifier: GPL-3.0-or-later
// What was played in a game, and what its player tries out beside it, as one tree of moves. The
// game is the trunk; what was tried from a position of it hangs there. When the game goes on by a
// move that was tried, that move becomes part of the trunk and keeps what was tried behind it; what
// was tried instead of it stays as what was thought then.
//
// Each node holds a position of its own. This thread's position, which may be that of a game on the
// board, is what it was when an operation has ended.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "pgn/turn.h"
#include "rules/position.h"

namespace study {

class VariationTree {
 public:
  using Node = std::size_t;
  static constexpr Node start = 0;

  /// The game's start board, with White to move.
  explicit VariationTree(const rules::BoardSquares& startBoard);

  /// The game went on by this move, which the rules needn't know, and which its list of moves
  /// writes so. The cursor goes along.
  void GoOn(const pgn::ChessMove& move, const std::string& written);

  /// The position at which the game is now.
  Node Present() const { return present_; }
  bool WasPlayed(Node node) const { return nodes_[node].played; }

  /// Whether the game has passed the position from which this was tried.
  bool WasThoughtThen(Node node) const;

  Node Cursor() const { return cursor_; }
  void GoTo(Node node) { cursor_ = node; }

  /// Each leaves the cursor where it can't go there, and answers false.
  bool Back();
  bool Forward();  ///< to where it came back from last, else by the first move
  bool First();    ///< to the position at which the game is, from there to its start
  bool Last();
  bool NextSibling() { return ToSibling(1); }
  bool PreviousSibling() { return ToSibling(-1); }

  /// Whether the rules allow the move where the cursor is.
  bool Allows(rules::Square from, rules::Square to) const;

  /// Where the piece on a square may go there.
  rules::Bitboard TargetsFrom(rules::Square from) const;

  /// Tries a move that the rules allow, with the cursor. A move that is there already is entered.
  void Try(const pgn::ChessMove& move);

  /// The tried moves from this one on; the cursor goes back if it stood among them. False for what
  /// was played.
  bool Delete(Node node);

  /// Brings back what was deleted last, with the cursor. False where nothing was.
  bool Undelete();

  /// Puts the line that this move belongs to before its neighbours. False where it is before all
  /// that were tried.
  bool Promote(Node node);

  Node ParentOf(Node node) const { return nodes_[node].parent; }
  const std::vector<Node>& ChildrenOf(Node node) const { return nodes_[node].children; }
  std::vector<Node> TriedAfter(Node node) const;

  /// How many moves lead to it.
  int PlyOf(Node node) const { return nodes_[node].ply; }
  const pgn::ChessMove& MoveTo(Node node) const { return nodes_[node].move; }
  const std::string& Written(Node node) const { return nodes_[node].written; }  ///< as in the list
  const std::string& San(Node node) const { return nodes_[node].san; }

  /// The position there, with its check and mate, and what there is to it beside that.
  const rules::Position& PositionAt(Node node) const { return nodes_[node].position; }
  const pgn::Turn& TurnAt(Node node) const { return nodes_[node].turn; }

  /// The first tried move on the way from the game's present to the cursor; nothing where the
  /// cursor isn't behind it.
  std::optional<pgn::ChessMove> NextMoveOfGame() const;

 private:
  struct MoveNode {
    rules::Position position;
    pgn::Turn turn;
    pgn::ChessMove move;
    std::string written;
    std::string san;
    Node parent = start;
    std::vector<Node> children;
    std::ptrdiff_t cameFrom = 0;  // the place among the children to which Forward leads
    int ply = 0;
    bool played = false;
  };

  bool ToSibling(int step);
  std::optional<Node> ChildBy(Node node, const pgn::ChessMove& move) const;
  MoveNode StoredAfter(Node node, const pgn::ChessMove& move) const;
  MoveNode PlayedAfter(Node node, const pgn::ChessMove& move) const;
  bool IsBehind(Node node, Node ancestor) const;

  struct Deletion {
    Node node;
    std::ptrdiff_t place;  // among its parent's children
  };

  Node PutBack(Node node, std::ptrdiff_t place);

  std::vector<MoveNode> nodes_;  // deleted ones stay, without a parent that knows them
  std::vector<Deletion> deletions_;
  Node cursor_ = start;
  Node present_ = start;
};

/// By which the notes of a position find it wherever it comes up: the board and the side to move.
std::string PositionKey(const rules::BoardSquares& board, rules::Side side);

}  // namespace study
