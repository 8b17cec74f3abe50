// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/notation.h"

#include "rules/piece_moves.h"

namespace rules {
namespace {

constexpr std::string_view letters = " RNBQK ";

char ColumnLetter(Square square) { return static_cast<char>('a' + square.x - 1); }
char RowDigit(Square square) { return static_cast<char>('0' + square.y); }

struct Origin {
  bool column = false;
  bool row = false;
};

/// Which parts of the from-square tell this move from that of another piece of its kind.
Origin Disambiguation(const PlayedMove& move) {
  const BoardGuard guard;
  BoardSquares& board = ThePosition().BoardState;
  Bitboard others = board.Of(move.piece) & ~BitOf(move.to);
  // The moved piece stands on the to-square by now, where it would be in the others' way.
  if (!move.capture) board.Put(move.to, NoPiece);
  Origin origin;
  while (others != 0 && !(origin.column && origin.row)) {
    const Square other = SquareAt(TakeLowest(others));
    if (!ValidMove(ThePosition().SideToMove, move.piece, other, move.to, move.capture, NoSide, {},
                   false)) {
      continue;
    }
    if (other.y == move.from.y) origin.column = true;
    if (other.x == move.from.x) origin.row = true;
  }
  return origin;
}

bool TookEnPassant(const PlayedMove& move, const BoardSquares& boardBefore, LastMove previous) {
  const BoardGuard guard;
  ThePosition().BoardState = boardBefore;
  return EnPassantSquare(move.from, move.to, previous, ThePosition().SideToMove).has_value();
}

std::string PieceMove(const PlayedMove& move, const BoardSquares& boardBefore, LastMove previous) {
  const bool promotion = IsPromotion(boardBefore.At(move.from), move.to.y);
  Origin origin;
  bool enPassant = false;
  std::string text;
  if (promotion) {
    origin.column = move.capture;
  } else {
    origin = Disambiguation(move);
    if (IsPawn(move.piece)) {
      enPassant = TookEnPassant(move, boardBefore, previous);
      origin.column = origin.column || move.capture || enPassant;
    } else {
      text += LetterOf(move.piece);
    }
  }
  if (origin.column) text += ColumnLetter(move.from);
  if (origin.row) text += RowDigit(move.from);
  if (move.capture || enPassant) text += 'x';
  text += ColumnLetter(move.to);
  text += RowDigit(move.to);
  if (enPassant) text += "ep";
  // A pawn may have stayed one: nobody exchanges the computer's.
  if (promotion && !IsPawn(move.piece)) (text += '=') += LetterOf(move.piece);
  return text;
}

}  // namespace

std::string MoveNotation(const PlayedMove& move, int sideInCheck, const BoardSquares& boardBefore,
                         bool gameDrawn, LastMove previous) {
  std::string text;
  if (move.castling) {
    text = move.to.x == 3 ? "0-0-0" : "0-0";
  } else {
    text = PieceMove(move, boardBefore, previous);
  }
  if (sideInCheck != NobodyInCheck) text += '+';
  if (ThePosition().CheckmateFlag) text += '+';
  if (gameDrawn) text += " 1/2-1/2";
  return text;
}

PieceCode PieceOfLetter(char letter) {
  const auto found = letters.find(letter);
  return letter == ' ' || letter == 'K' || found == std::string_view::npos
             ? NoPiece
             : static_cast<PieceCode>(found);
}

char LetterOf(PieceCode piece) { return letters[static_cast<std::size_t>(KindOf(piece))]; }

}  // namespace rules
