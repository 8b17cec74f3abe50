// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/test_moves.h"

#include <optional>
#include <vector>

#include "rules/attack.h"
#include "rules/piece_moves.h"

namespace rules {
namespace {

struct Frame {
  CastleFlags castleFlags{};
  Square from;
  Square to;
  PieceCode movedContent = NoPiece;
  PieceCode targetContent = NoPiece;
  std::optional<Square> enPassant;
  PieceCode enPassantContent = NoPiece;
  Castling castling = Castling::None;
  RookMove rook;
  PieceCode rookFromContent = NoPiece;
  PieceCode rookToContent = NoPiece;
  int previousSideInCheck = NobodyInCheck;
};

constexpr std::size_t usualDepth = 1000;

std::vector<Frame>& TestMoveStack() {
  thread_local std::vector<Frame> stack = [] {
    std::vector<Frame> frames;
    frames.reserve(usualDepth);
    return frames;
  }();
  return stack;
}

void SetMovedFlags(Side side, PieceCode piece, Square from) {
  Position& position = ThePosition();
  if (KindOf(piece) == WhiteRook) {
    // Any rook that stands off column 1 counts as the one of column 8 here.
    position.HasMoved(side, from.x == 1 ? Column1Rook : Column8Rook) = true;
  } else if (KindOf(piece) == WhiteKing) {
    position.HasMoved(side, KingItself) = true;
  }
}

void MoveCastlingRook(Frame& frame, Side side) {
  BoardSquares& board = ThePosition().BoardState;
  frame.rook = CastlingRook(side, frame.castling);
  frame.rookFromContent = board.At(frame.rook.from);
  frame.rookToContent = board.At(frame.rook.to);
  board.Put(frame.rook.from, NoPiece);
  board.Put(frame.rook.to, OfSide(WhiteRook, side));
}

}  // namespace

void MakeTestMove(Side side, Square from, Square to, PieceCode piece, LastMove lastMove,
                  int& sideInCheck) {
  Position& position = ThePosition();
  BoardSquares& board = position.BoardState;
  Frame& frame = TestMoveStack().emplace_back();
  frame.castleFlags = position.CastleState;
  frame.from = from;
  frame.to = to;
  frame.movedContent = board.At(from);
  frame.targetContent = board.At(to);
  // Both look at the board before the move.
  frame.castling = DetectCastling(side, from, to);
  frame.enPassant = EnPassantSquare(from, to, lastMove, side);

  SetMovedFlags(side, piece, from);
  if (frame.enPassant) {
    frame.enPassantContent = board.At(*frame.enPassant);
    board.Put(*frame.enPassant, NoPiece);
  }
  if (frame.castling != Castling::None) MoveCastlingRook(frame, side);
  frame.previousSideInCheck = sideInCheck;
  board.Put(from, NoPiece);
  board.Put(to, piece);
  const Side opponent = OtherSide(side);
  const bool check = GameState(opponent, false, sideInCheck) != Standing::Neither;
  sideInCheck = check ? opponent : NobodyInCheck;
}

void UndoTestMove(int& sideInCheck) {
  Position& position = ThePosition();
  BoardSquares& board = position.BoardState;
  assert(!TestMoveStack().empty());
  const Frame& frame = TestMoveStack().back();
  position.CastleState = frame.castleFlags;
  board.Put(frame.from, frame.movedContent);
  board.Put(frame.to, frame.targetContent);
  if (frame.enPassant) board.Put(*frame.enPassant, frame.enPassantContent);
  if (frame.castling != Castling::None) {
    board.Put(frame.rook.from, frame.rookFromContent);
    board.Put(frame.rook.to, frame.rookToContent);
  }
  sideInCheck = frame.previousSideInCheck;
  TestMoveStack().pop_back();
}

bool TestMoveIsLegal(Side side, PieceCode piece, Square from, Square to, LastMove lastMove,
                     int sideInCheck) {
  MakeTestMove(side, from, to, piece, lastMove, sideInCheck);
  const bool legal = !IsInCheck(side);
  UndoTestMove(sideInCheck);
  return legal;
}

void ClearTestMoves() { TestMoveStack().clear(); }

}  // namespace rules
