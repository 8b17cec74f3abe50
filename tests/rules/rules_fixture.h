// SPDX-License-Identifier: GPL-3.0-or-later
// Words for tests of the rules: positions and moves in the letters of chess, and a look at all that
// an operation must leave as it was.
#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>

#include "platform/text_fields.h"
#include "rules/board_text.h"
#include "rules/position.h"

namespace rules {

/// "e4"; columns and rows beside the board are written "`4", "i4", "e0" and "e9".
inline Square Sq(std::string_view name) { return {name[0] - 'a' + 1, name[1] - '0'}; }

inline std::string NameOf(Square square) {
  return {static_cast<char>('a' + square.x - 1), static_cast<char>('0' + square.y)};
}

/// "K" is White's king, "k" is Black's.
inline PieceCode CodeOf(char letter) {
  return static_cast<PieceCode>(std::string_view(".RNBQKPrnbqkp").find(letter));
}

/// The from-square and the to-square of "e2e4".
inline LastMove Move(std::string_view text) { return {Sq(text), Sq(text.substr(2))}; }

/// The move before, from "e2e4"; "" is none.
inline LastMove After(std::string_view text) { return text.empty() ? LastMove{} : Move(text); }

/// Carries what stands on one square to another and asks no rule.
inline void Carry(Square from, Square to) {
  BoardSquares& board = ThePosition().BoardState;
  board.Put(to, board.At(from));
  board.Put(from, NoPiece);
}

/// Puts up a position from an empty board: "start" is the start position, "Ke1" a piece, "e2e4"
/// carries a piece. Castling rights follow from what then stands at home.
inline void Place(std::string_view words) {
  ThePosition() = {};
  BoardSquares& board = ThePosition().BoardState;
  platform::FieldWalk walk(words, ' ');
  for (std::string_view word = walk.Next(); !word.empty(); word = walk.Next()) {
    if (word == "start") {
      board = ReadBoardText(normalStart);
    } else if (word.size() == 4) {
      Carry(Move(word).from, Move(word).to);
    } else {
      board.Put(Sq(word.substr(1)), CodeOf(word[0]));
    }
  }
  RebuildCastleState();
}

/// What a question must leave as it found it.
struct Untouched {
  BoardSquares board = ThePosition().BoardState;
  CastleFlags castle = ThePosition().CastleState;
  int sideInCheck = ThePosition().SideInCheck;

  bool operator==(const Untouched&) const = default;
  friend std::ostream& operator<<(std::ostream& out, const Untouched& seen) {
    return out << WriteBoardText(seen.board);
  }
};

/// True while the sets of squares say the same as the 64 codes.
inline bool SetsInStep(const BoardSquares& board) {
  for (PieceCode piece = NoPiece; piece <= BlackPawn; ++piece) {
    for (int i = 0; i < 64; ++i) {
      if (((board.Of(piece) >> i & 1) != 0) != (board[i] == piece)) return false;
    }
  }
  return board.Occupied() == (board.OfSide(White) | board.OfSide(Black));
}

}  // namespace rules
