// SPDX-License-Identifier: GPL-3.0-or-later
// All legal moves of a side at once: what its pins and the check that it stands in leave over of
// what its pieces reach. Only moves that nothing of this can tell about (castling, captures in
// passing, kings where a side has several) are tried one by one. The answers are those of ValidMove
// and TestMoveIsLegal, found faster.
#pragma once

#include "rules/position.h"

namespace rules {

/// Of the live position as it was when this was made; what plays moves must take them back before
/// it asks on.
class LegalMoves {
 public:
  LegalMoves(Side side, LastMove lastMove, int sideInCheck);

  /// The squares that the side's piece on a square may go to.
  Bitboard From(Square from) const;

  /// The number of all moves. A pawn that reaches the last row makes one of them.
  int Count() const;

 private:
  void LookFrom(int king);
  Bitboard Line(Bitboard piece) const;
  Bitboard FromPawn(Square from) const;
  Bitboard FromKing(Square from) const;
  Bitboard CastlingFrom(Square from) const;
  Bitboard PassedBy(Square from) const;
  Bitboard BesideDoubleStep() const;
  bool IsLegal(Square from, Square to) const;
  Bitboard Own(PieceCode whitePiece) const { return board_.Of(OfSide(whitePiece, side_)); }
  Bitboard Enemy(PieceCode whitePiece) const {
    return board_.Of(OfSide(whitePiece, OtherSide(side_)));
  }
  Bitboard Forward(Bitboard set) const { return side_ == White ? set << 8 : set >> 8; }
  int CountPawnMoves() const;
  int CountPieceMoves() const;

  const BoardSquares& board_;
  const Side side_;
  const LastMove lastMove_;
  const int sideInCheck_;
  const Bitboard occupied_;
  const Bitboard targets_;           // neither own pieces nor kings
  Bitboard answers_ = ~Bitboard{0};  // where another piece than the king ends the check
  Bitboard pinned_ = 0;              // what keeps a line to its king shut
};

}  // namespace rules
