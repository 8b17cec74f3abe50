// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/game_end.h"

#include <algorithm>

#include "rules/piece_moves.h"
#include "rules/test_moves.h"

namespace rules {
namespace {

/// One piece's question "is there a legal move among these?".
struct Mover {
  Side side;
  PieceCode piece;
  Square from;
  LastMove lastMove;
  int sideInCheck;

  bool MayGo(Square to) const {
    return IsTargetSquare(side, to) && TestMoveIsLegal(side, piece, from, to, lastMove);
  }

  template <std::size_t N>
  bool AlongRays(const std::array<Step, N>& steps) const {
    for (const Step step : steps) {
      for (Square to{from.x + step.dx, from.y + step.dy}; IsTargetSquare(side, to);
           to = {to.x + step.dx, to.y + step.dy}) {
        if (MayGo(to)) return true;
        if (SideOf(to) == OtherSide(side)) break;
      }
    }
    return false;
  }

  bool AsKnight() const {
    return std::any_of(knightSteps.begin(), knightSteps.end(), [this](Step step) {
      return MayGo({from.x + step.dx, from.y + step.dy});
    });
  }

  bool AsKing() const {
    for (int x = from.x - 1; x <= from.x + 1; ++x) {
      for (int y = from.y - 1; y <= from.y + 1; ++y) {
        if (MayGo({x, y})) return true;
      }
    }
    return false;
  }

  // A pawn that may step two may also step one, so the double step isn't tried.
  bool AsPawn() const {
    const int row = from.y + PawnDirection(side);
    const Square forward{from.x, row};
    if (IsOnBoard(forward) && SideOf(forward) == NoSide && MayGo(forward)) return true;
    for (const int dx : {-1, 1}) {
      const Square to{from.x + dx, row};
      if (EnPassantSquare(from, to, lastMove, side) && MayGo(to)) return true;
    }
    for (const int dx : {-1, 1}) {
      const Square to{from.x + dx, row};
      if (IsOnBoard(to) && SideOf(to) == OtherSide(side) &&
          ValidMove(side, piece, from, to, true, sideInCheck, {}, false) && MayGo(to)) {
        return true;
      }
    }
    return false;
  }
};

}  // namespace

bool NoLegalMoves(Side side, LastMove lastMove, int sideInCheck) {
  ClearTestMoves();
  Bitboard own = ThePosition().BoardState.OfSide(side);
  if (own == 0) return false;
  while (own != 0) {
    const Square from = SquareAt(TakeLowest(own));
    const PieceCode piece = ThePosition().BoardState.At(from);
    if (PieceHasLegalMove(side, piece, from, lastMove, sideInCheck)) return false;
  }
  return true;
}

bool PieceHasLegalMove(Side side, PieceCode piece, Square from, LastMove lastMove,
                       int sideInCheck) {
  const Mover mover{side, piece, from, lastMove, sideInCheck};
  switch (KindOf(piece)) {
    case WhiteRook:
      return mover.AlongRays(straightSteps);
    case WhiteBishop:
      return mover.AlongRays(diagonalSteps);
    case WhiteQueen:
      return mover.AlongRays(straightSteps) || mover.AlongRays(diagonalSteps);
    case WhiteKnight:
      return mover.AsKnight();
    case WhitePawn:
      return mover.AsPawn();
    case WhiteKing:
      return mover.AsKing();
    default:
      return false;
  }
}

ForcedDraw ForcedDrawType() {
  const BoardSquares& board = ThePosition().BoardState;
  const auto count = [&](PieceCode piece) { return std::popcount(board.Of(piece)); };
  const int pieces = std::popcount(board.Occupied());
  if (pieces == 2) return ForcedDraw::KingsAlone;
  if (pieces == 3) {
    const bool minorPiece =
        count(WhiteKnight) + count(BlackKnight) + count(WhiteBishop) + count(BlackBishop) > 0;
    if (minorPiece) return ForcedDraw::OneMinorPiece;
  }
  if (pieces == 4 && count(WhiteBishop) == 1 && count(BlackBishop) == 1 &&
      SquareShade(FindPiece(WhiteBishop)) == SquareShade(FindPiece(BlackBishop))) {
    return ForcedDraw::BishopsOfOneColour;
  }
  return ForcedDraw::None;
}

}  // namespace rules
