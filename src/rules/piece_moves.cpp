// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/piece_moves.h"

#include <cstdlib>

#include "platform/messages.h"
#include "rules/attack.h"

namespace rules {
namespace {

constexpr const char* illegalMove = "Illegal move";

/// Explains a refusal where the user is the one who asks. Always false, the answer of ValidMove.
bool Refuse(bool verbose, const char* text, const char* title = illegalMove,
            int sound = platform::FailureSound) {
  if (verbose) platform::VerboseMessage(text, title, sound);
  return false;
}

bool MayTake(PieceCode piece, PieceCode takenPiece, bool verbose) {
  if (IsBlackPiece(piece) && IsBlackPiece(takenPiece)) {
    return Refuse(verbose, "You cannot take your own pieces.");
  }
  if (!IsBlackPiece(piece) && IsWhitePiece(takenPiece)) {
    return Refuse(verbose, "You cant take your own pieces.");
  }
  if (takenPiece == WhiteKing || takenPiece == BlackKing) {
    return Refuse(verbose, "You cannot take your opponents King.  That would be too easy!");
  }
  return true;
}

/// The king's crossing of the square beside it. The king really stands there for the question.
bool IsCrossedSquareAttacked(Side side, Square from, Castling castling) {
  const BoardGuard guard;
  BoardSquares& board = ThePosition().BoardState;
  board.Put(from, NoPiece);
  const int step = castling == Castling::TowardsColumn1 ? -1 : 1;
  board.Put({from.x + step, from.y}, OfSide(WhiteKing, side));
  return IsInCheck(side);
}

}  // namespace

bool ValidMove(Side side, PieceCode piece, Square from, Square to, bool capture, int sideInCheck,
               std::optional<PieceCode> takenPiece, bool verbose, LastMove lastMove) {
  if (!IsOnBoard(to)) {
    return Refuse(verbose, "Dropping a piece of the board won't help.", "Tarvolenix information",
                  platform::AttentionSound);
  }
  if (takenPiece && capture && !MayTake(piece, *takenPiece, verbose)) return false;
  switch (KindOf(piece)) {
    case WhiteRook:
      return PathIsClear(from, to, PathMode::Straight, capture) ||
             Refuse(verbose, "The Rook can only move in unobstructed stright lines.");
    case WhiteBishop:
      return PathIsClear(from, to, PathMode::Diagonal, capture) ||
             Refuse(verbose, "The Bishop can only move in unobstructed diagonal lines.");
    case WhiteQueen:
      return PathIsClear(from, to, PathMode::Either, capture) ||
             Refuse(verbose, "The Queen can only move in unobstructed straight or diagonal lines.");
    case WhiteKnight:
      return !KnightMoveRefused(from, to, capture, verbose);
    case WhiteKing:
      return !KingMoveRefused(side, from, to, capture, sideInCheck, verbose);
    case WhitePawn:
      return !PawnMoveRefused(side, from, to, capture, verbose, lastMove);
    default:
      return true;
  }
}

bool PathIsClear(Square from, Square to, PathMode mode, bool capture) {
  const bool straight = from.x == to.x || from.y == to.y;
  const bool diagonal = std::abs(from.x - to.x) == std::abs(from.y - to.y);
  if (mode == PathMode::Straight && !straight) return false;
  if (mode == PathMode::Diagonal && !diagonal) return false;
  if (!straight && !diagonal) return false;
  Bitboard way = squaresBetween[IndexOf(from)][IndexOf(to)];
  if (!capture) way |= BitOf(to);
  return (way & ThePosition().BoardState.Occupied()) == 0;
}

bool KnightMoveRefused(Square from, Square to, bool /*capture*/, bool verbose) {
  const int columns = std::abs(from.x - to.x);
  const int rows = std::abs(from.y - to.y);
  if ((columns == 2 && rows == 1) || (columns == 1 && rows == 2)) return false;
  return !Refuse(verbose,
                 "Although the Knights path does not have to be unobstructed, it can only move in "
                 "L shaped moves; two along and one to the side.");
}

bool KingMoveRefused(Side side, Square from, Square to, bool capture, int sideInCheck,
                     bool verbose) {
  if (!PathIsClear(from, to, PathMode::Either, capture)) {
    return !Refuse(verbose, "The King can only move in straight or diagonal directions.",
                   "Move validation");
  }
  if (std::abs(from.y - to.y) > 1) {
    return !Refuse(verbose,
                   "The only time the King can move more than one space is when it's Castling and "
                   "that is a horizontal move.");
  }
  if (std::abs(from.x - to.x) <= 1) return false;
  if (capture) {
    return !Refuse(verbose, "If you are trying to Castle, you cannot take a piece as you do it.");
  }
  const Castling castling = DetectCastling(side, from, to);
  if (castling == Castling::None) {
    return !Refuse(verbose,
                   "If you are trying to Castle, you must move the king two space left or right.");
  }
  if (sideInCheck == side) {
    return !Refuse(verbose, "If you are trying to Castle, you cannot because you are in check.");
  }
  if (IsCrossedSquareAttacked(side, from, castling)) {
    return !Refuse(verbose, "Moving the King to that position would leave you in check.");
  }
  return false;
}

Castling DetectCastling(Side side, Square from, Square to) {
  Position& position = ThePosition();
  const PieceCode piece = position.BoardState.At(from);
  if (piece != WhiteKing && piece != BlackKing) return Castling::None;
  if (position.HasMoved(side, KingItself)) return Castling::None;
  const int back = HomeRow(side);
  if (from != Square{5, back} || to.y != back) return Castling::None;
  if (to.x == 3 && !position.HasMoved(side, Column1Rook)) {
    const bool clear = PathIsClear({1, back}, {4, back}, PathMode::Straight, false);
    return clear ? Castling::TowardsColumn1 : Castling::None;
  }
  if (to.x == 7 && !position.HasMoved(side, Column8Rook)) {
    const bool clear = PathIsClear({8, back}, {6, back}, PathMode::Straight, false);
    return clear ? Castling::TowardsColumn8 : Castling::None;
  }
  return Castling::None;
}

RookMove CastlingRook(Side side, Castling castling) {
  const int back = HomeRow(side);
  if (castling == Castling::TowardsColumn1) return {{1, back}, {4, back}};
  return {{8, back}, {6, back}};
}

bool PawnMoveRefused(Side side, Square from, Square to, bool capture, bool verbose,
                     LastMove lastMove) {
  const int back = HomeRow(side);
  const int columns = std::abs(from.x - to.x);
  const int rows = std::abs(from.y - to.y);
  if (std::abs(back - to.y) < std::abs(back - from.y)) {
    return !Refuse(verbose, "Pawns can only move forwards.");
  }
  if (capture) {
    if (columns == 0 || rows == 0) {
      return !Refuse(verbose, "The Pawn can only take in a diagonal line.");
    }
    if (columns > 1 || rows > 1) {
      return !Refuse(verbose, "The Pawn can only take adjasent pieces.");
    }
    return false;
  }
  if (columns != 0) {
    return !EnPassantSquare(from, to, lastMove, side) &&
           !Refuse(verbose,
                   "You can only move a Pawn diagonally when performing an En Passon manouver.");
  }
  if (rows > 2) {
    return !Refuse(verbose, "The Pawn can only move one space at a time or two as its first move.");
  }
  if (rows == 2) {
    if (std::abs(back - from.y) != 1) {
      return !Refuse(verbose,
                     "The Pawn has already moved so it can now only move one space at a time.");
    }
    if (SideOf({from.x, from.y + PawnDirection(side)}) != NoSide) {
      return !Refuse(verbose,
                     "Although it's the pawns first move and it can move two spaces, it can never "
                     "jump over another piece.");
    }
  }
  return false;
}

bool TakesEnPassant(Square from, Square to, LastMove lastMove, Side side) {
  // Most moves end in another column than the last one.
  if (to.x != lastMove.to.x || !lastMove) return false;
  const BoardSquares& board = ThePosition().BoardState;
  return IsPawn(board.At(from)) && std::abs(from.y - to.y) == 1 && std::abs(from.x - to.x) == 1 &&
         IsOnBoard(lastMove.to) && IsPawn(board.At(lastMove.to)) &&
         std::abs(lastMove.from.y - lastMove.to.y) == 2 && lastMove.from.x == lastMove.to.x &&
         lastMove.to.y - to.y == -PawnDirection(side);
}

std::optional<Square> EnPassantSquare(Square from, Square to, LastMove lastMove, Side side) {
  if (!TakesEnPassant(from, to, lastMove, side)) return std::nullopt;
  return lastMove.to;
}

void CarryCastlingRook(Side side, Castling castling) {
  if (castling == Castling::None) return;
  const RookMove move = CastlingRook(side, castling);
  const PieceCode rook = OfSide(WhiteRook, side);
  ThePosition().BoardState.Put(move.from, NoPiece);
  ThePosition().BoardState.Put(move.to, rook);
  LogCastleState(rook, move.from.x);
}

Castling CarryOut(Side side, PieceCode piece, Square from, Square to, LastMove lastMove) {
  BoardSquares& board = ThePosition().BoardState;
  // Both look at the board before the move.
  const Castling castling = DetectCastling(side, from, to);
  const auto enPassant = EnPassantSquare(from, to, lastMove, side);
  LogCastleState(board.At(to), to.x);
  board.Put(to, piece);
  board.Put(from, NoPiece);
  LogCastleState(piece, from.x);
  if (enPassant) board.Put(*enPassant, NoPiece);
  CarryCastlingRook(side, castling);
  return castling;
}

}  // namespace rules
