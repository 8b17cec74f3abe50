// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/position.h"

#include <algorithm>

namespace rules {

LastMove LastMove::FromText(std::string_view moveCoordinates) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (moveCoordinates.size() != 4 ||
      !std::all_of(moveCoordinates.begin(), moveCoordinates.end(), isDigit)) {
    return {};
  }
  const auto digit = [&](std::size_t i) { return moveCoordinates[i] - '0'; };
  return {{digit(0), digit(1)}, {digit(2), digit(3)}};
}

Side SideOf(Square square) { return SideOfPiece(ThePosition().BoardState.At(square)); }

bool IsTargetSquare(Side side, Square square) {
  if (!IsOnBoard(square)) return false;
  const PieceCode piece = ThePosition().BoardState.At(square);
  return SideOfPiece(piece) != side && piece != WhiteKing && piece != BlackKing;
}

bool IsPawn(PieceCode piece) { return piece == WhitePawn || piece == BlackPawn; }

bool IsWhitePiece(PieceCode value) { return value >= WhiteRook && value <= WhitePawn; }

bool IsBlackPiece(PieceCode value) { return value >= BlackRook && value <= BlackPawn; }

Square FindPiece(PieceCode piece) {
  const Bitboard set = ThePosition().BoardState.Of(piece);
  return set == 0 ? Square{} : SquareAt(std::countr_zero(set));
}

int SquareShade(Square square) { return 8 * (((square.y + 1) % 2 + square.x) % 2); }

bool IsPromotion(PieceCode piece, int toY) {
  return IsPawn(piece) && toY == HomeRow(OtherSide(ThePosition().SideToMove));
}

GameStateSnapshot SaveGameState(bool surrendered) {
  const Position& position = ThePosition();
  return {position.BoardState, position.CastleState, position.SideInCheck, position.CheckmateFlag,
          surrendered};
}

void RestoreGameState(const GameStateSnapshot& snapshot, bool& surrendered, bool allowMove) {
  Position& position = ThePosition();
  position.BoardState = snapshot.boardCopy;
  position.CastleState = snapshot.castleCopy;
  position.SideInCheck = snapshot.sideInCheck;
  position.CheckmateFlag = snapshot.checkmate;
  surrendered = snapshot.surrendered;
  if (allowMove) position.MoveAllowed = true;
}

void LogCastleState(PieceCode piece, int x) {
  Position& position = ThePosition();
  if (piece == WhiteRook || piece == BlackRook) {
    const Side side = SideOfPiece(piece);
    if (x == 1) position.HasMoved(side, Column1Rook) = true;
    if (x == 8) position.HasMoved(side, Column8Rook) = true;
  } else if (piece == OfSide(WhiteKing, position.SideToMove)) {
    position.HasMoved(position.SideToMove, KingItself) = true;
  }
}

void RebuildCastleState() {
  struct Home {
    CastleKind kind;
    int column;
    PieceCode whitePiece;
  };
  constexpr Home homes[] = {
      {Column1Rook, 1, WhiteRook}, {KingItself, 5, WhiteKing}, {Column8Rook, 8, WhiteRook}};
  Position& position = ThePosition();
  for (const Side side : {White, Black}) {
    for (const Home& home : homes) {
      position.HasMoved(side, home.kind) =
          position.BoardState.At(home.column, HomeRow(side)) != OfSide(home.whitePiece, side);
    }
  }
}

}  // namespace rules
