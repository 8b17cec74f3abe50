// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/test_moves.h"

#include <optional>
#include <vector>

#include "rules/attack.h"
#include "rules/piece_moves.h"

namespace rules {
namespace {

/// The squares that a move changes, with what stood there.
class Changes {
 public:
  void Put(Square square, PieceCode piece) {
    BoardSquares& board = ThePosition().BoardState;
    changed_[count_++] = {square, board.At(square)};
    board.Put(square, piece);
  }

  void TakeBack() {
    while (count_ > 0) {
      const Change& change = changed_[--count_];
      ThePosition().BoardState.Put(change.square, change.content);
    }
  }

 private:
  struct Change {
    Square square;
    PieceCode content = NoPiece;
  };

  std::array<Change, 4> changed_;  // castling changes the most
  std::size_t count_ = 0;
};

struct Frame {
  Changes changes;
  CastleFlags castleFlags;
  int sideInCheck;
};

thread_local std::vector<Frame> testMoves;

void SetMovedFlags(Side side, PieceCode piece, Square from) {
  Position& position = ThePosition();
  if (KindOf(piece) == WhiteRook) {
    // Any rook that stands off column 1 counts as the one of column 8 here.
    position.HasMoved(side, from.x == 1 ? Column1Rook : Column8Rook) = true;
  } else if (KindOf(piece) == WhiteKing) {
    position.HasMoved(side, KingItself) = true;
  }
}

/// Carries out a move on the board, with all that goes with it.
void Play(Side side, Square from, Square to, PieceCode piece, LastMove lastMove, Changes& changes) {
  // Both look at the board before the move.
  const Castling castling = DetectCastling(side, from, to);
  const bool enPassant = TakesEnPassant(from, to, lastMove, side);

  if (enPassant) changes.Put(lastMove.to, NoPiece);
  if (castling != Castling::None) {
    const RookMove rook = CastlingRook(side, castling);
    changes.Put(rook.from, NoPiece);
    changes.Put(rook.to, OfSide(WhiteRook, side));
  }
  changes.Put(from, NoPiece);
  changes.Put(to, piece);
}

}  // namespace

void MakeTestMove(Side side, Square from, Square to, PieceCode piece, LastMove lastMove,
                  int& sideInCheck) {
  Frame& frame = testMoves.emplace_back();
  Play(side, from, to, piece, lastMove, frame.changes);
  frame.castleFlags = ThePosition().CastleState;
  frame.sideInCheck = sideInCheck;
  SetMovedFlags(side, piece, from);
  const Side opponent = OtherSide(side);
  const bool check = GameState(opponent, false, sideInCheck) != Standing::Neither;
  sideInCheck = check ? opponent : NobodyInCheck;
}

void UndoTestMove(int& sideInCheck) {
  assert(!testMoves.empty());
  Frame& frame = testMoves.back();
  frame.changes.TakeBack();
  ThePosition().CastleState = frame.castleFlags;
  sideInCheck = frame.sideInCheck;
  testMoves.pop_back();
}

bool TestMoveIsLegal(Side side, PieceCode piece, Square from, Square to, LastMove lastMove) {
  Changes changes;
  Play(side, from, to, piece, lastMove, changes);
  const bool legal = !IsInCheck(side);
  changes.TakeBack();
  return legal;
}

Bitboard LegalTargets(Side side, Square from, LastMove lastMove) {
  const Position& position = ThePosition();
  const PieceCode piece = position.BoardState.At(from);
  const auto mayGo = [&](Square to) {
    const bool capture = SideOf(to) != NoSide;
    const auto taken = capture ? std::optional(position.BoardState.At(to)) : std::nullopt;
    return ValidMove(side, piece, from, to, capture, position.SideInCheck, taken, false,
                     lastMove) &&
           TestMoveIsLegal(side, piece, from, to, lastMove);
  };
  Bitboard targets = 0;
  for (int i = 0; i < 64; ++i) {
    if (mayGo(SquareAt(i))) targets |= Bitboard{1} << i;
  }
  return targets;
}

void ClearTestMoves() { testMoves.clear(); }

}  // namespace rules
