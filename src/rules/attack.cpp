// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/attack.h"

#include <bit>
#include <optional>

#include "rules/piece_moves.h"

namespace rules {

Bitboard AttackersOf(Square target, Side attacker) {
  return AttackersOf(target, attacker, ThePosition().BoardState.Occupied());
}

// ValidMove's tests turned round, from the target outward.
Bitboard AttackersOf(Square target, Side attacker, Bitboard occupied) {
  const BoardSquares& board = ThePosition().BoardState;
  const int index = IndexOf(target);
  const auto pieces = [&](PieceCode whitePiece) { return board.Of(OfSide(whitePiece, attacker)); };
  Bitboard attackers = (knightReach[index] & pieces(WhiteKnight)) |
                       (kingReach[index] & pieces(WhiteKing)) |
                       (pawnReach[OtherSide(attacker)][index] & pieces(WhitePawn));
  Bitboard aligned = (straightReach[index] & (pieces(WhiteRook) | pieces(WhiteQueen))) |
                     (diagonalReach[index] & (pieces(WhiteBishop) | pieces(WhiteQueen)));
  while (aligned != 0) {
    const int from = TakeLowest(aligned);
    if ((squaresBetween[from][index] & occupied) == 0) attackers |= Bitboard{1} << from;
  }
  return attackers;
}

namespace {

/// Plays a move on the bare board and tells whether it leaves `side` out of check.
bool EscapesCheck(Side side, Square from, Square to, std::optional<Square> alsoTaken = {}) {
  const BoardGuard guard;
  BoardSquares& board = ThePosition().BoardState;
  board.Put(to, board.At(from));
  board.Put(from, NoPiece);
  if (alsoTaken) board.Put(*alsoTaken, NoPiece);
  return !IsInCheck(side);
}

bool KingCanStepAway(Side side, Square king, int sideInCheck) {
  const PieceCode kingCode = OfSide(WhiteKing, side);
  for (int y = king.y - 1; y <= king.y + 1; ++y) {
    for (int x = king.x - 1; x <= king.x + 1; ++x) {
      const Square to{x, y};
      if (!IsOnBoard(to)) continue;
      const PieceCode occupant = ThePosition().BoardState.At(to);
      const bool capture = occupant != NoPiece;
      const auto taken = capture ? std::optional(occupant) : std::nullopt;
      if (ValidMove(side, kingCode, king, to, capture, sideInCheck, taken, false) &&
          EscapesCheck(side, king, to)) {
        return true;
      }
    }
  }
  return false;
}

/// Whether a piece of `side` other than a king can go to `target` and end the check there.
bool PieceCanSave(Side side, Square target, bool capture, int sideInCheck) {
  const BoardSquares& board = ThePosition().BoardState;
  Bitboard own = board.OfSide(side) & ~board.Of(OfSide(WhiteKing, side));
  while (own != 0) {
    const Square from = SquareAt(TakeLowest(own));
    if (ValidMove(side, board.At(from), from, target, capture, sideInCheck, {}, false) &&
        EscapesCheck(side, from, target)) {
      return true;
    }
  }
  return false;
}

bool EnPassantSaves(Side side, LastMove lastMove) {
  if (!lastMove || !IsOnBoard(lastMove.to)) return false;
  const Square to{lastMove.to.x, lastMove.to.y + PawnDirection(side)};
  for (const int dx : {-1, 1}) {
    const Square from{lastMove.to.x + dx, lastMove.to.y};
    if (!IsOnBoard(from) || !IsOnBoard(to)) continue;
    if (ThePosition().BoardState.At(from) != OfSide(WhitePawn, side)) continue;
    const auto taken = EnPassantSquare(from, to, lastMove, side);
    if (taken && EscapesCheck(side, from, to, taken)) return true;
  }
  return false;
}

Bitboard TargetMap(Side side) {
  const BoardSquares& board = ThePosition().BoardState;
  Bitboard own = board.OfSide(side);
  Bitboard map = own;
  while (own != 0) {
    const Square from = SquareAt(TakeLowest(own));
    map |= MarkTargetSquares(side, board.At(from), from);
  }
  return map;
}

Bitboard StraightTargets(Side side, Square from) {
  const BoardSquares& board = ThePosition().BoardState;
  Bitboard map = 0;
  for (const Step step : straightSteps) {
    for (Square to{from.x + step.dx, from.y + step.dy}; IsOnBoard(to);
         to = {to.x + step.dx, to.y + step.dy}) {
      if (IsTargetSquare(side, to)) map |= BitOf(to);
      if (board.At(to) != NoPiece) break;
    }
  }
  return map;
}

Bitboard DiagonalTargets(Square from) {
  const BoardSquares& board = ThePosition().BoardState;
  Bitboard map = 0;
  for (const Step step : diagonalSteps) {
    for (Square to{from.x + step.dx, from.y + step.dy}; IsOnBoard(to);
         to = {to.x + step.dx, to.y + step.dy}) {
      map |= BitOf(to);
      if (board.At(to) != NoPiece) break;
    }
  }
  return map;
}

Bitboard KnightTargets(Side side, PieceCode piece, Square from) {
  Bitboard map = 0;
  for (const Step step : knightSteps) {
    const Square to{from.x + step.dx, from.y + step.dy};
    if (ValidMove(side, piece, from, to, false, NoSide, {}, false)) map |= BitOf(to);
  }
  return map;
}

Bitboard PawnTargets(Side side, PieceCode piece, Square from) {
  const int forward = PawnDirection(side);
  Bitboard map = 0;
  for (int steps = 1; steps <= 2; ++steps) {
    const Square to{from.x, from.y + steps * forward};
    if (!IsTargetSquare(side, to) || SideOf(to) != NoSide) break;
    if (!ValidMove(side, piece, from, to, false, NoSide, {}, false)) break;
    map |= BitOf(to);
  }
  for (const int dx : {-1, 1}) {
    const Square to{from.x + dx, from.y + forward};
    if (IsOnBoard(to) && SideOf(to) == OtherSide(side) &&
        ValidMove(side, piece, from, to, true, NoSide, {}, false)) {
      map |= BitOf(to);
    }
  }
  return map;
}

}  // namespace

bool IsInCheck(Side side) {
  const Bitboard king = ThePosition().BoardState.Of(OfSide(WhiteKing, side));
  if (king == 0) return false;
  return AttackersOf(SquareAt(std::countr_zero(king)), OtherSide(side)) != 0;
}

Standing GameState(Side side, bool lookForMate, int sideInCheck, LastMove lastMove) {
  const Square king = FindPiece(OfSide(WhiteKing, side));
  if (!IsOnBoard(king)) return Standing::Neither;
  const Bitboard attackers = AttackersOf(king, OtherSide(side));
  if (attackers == 0) return Standing::Neither;
  if (!lookForMate) return Standing::Check;

  if (KingCanStepAway(side, king, sideInCheck)) return Standing::Check;
  if (EnPassantSaves(side, lastMove)) return Standing::Check;
  if (std::popcount(attackers) > 1) return Standing::Checkmate;

  const Square attacker = SquareAt(std::countr_zero(attackers));
  const Bitboard map = TargetMap(side);
  if ((map & BitOf(attacker)) != 0 && PieceCanSave(side, attacker, true, sideInCheck)) {
    return Standing::Check;
  }
  // A knight jumps: nothing can move between.
  if (KindOf(ThePosition().BoardState.At(attacker)) == WhiteKnight) return Standing::Checkmate;
  Bitboard between = squaresBetween[IndexOf(attacker)][IndexOf(king)] & map;
  while (between != 0) {
    if (PieceCanSave(side, SquareAt(TakeLowest(between)), false, sideInCheck)) {
      return Standing::Check;
    }
  }
  return Standing::Checkmate;
}

Bitboard MarkTargetSquares(Side side, PieceCode piece, Square from) {
  switch (KindOf(piece)) {
    case WhiteRook:
      return StraightTargets(side, from);
    case WhiteBishop:
      return DiagonalTargets(from);
    case WhiteQueen:
      return StraightTargets(side, from) | DiagonalTargets(from);
    case WhiteKnight:
      return KnightTargets(side, piece, from);
    case WhitePawn:
      return PawnTargets(side, piece, from);
    default:
      return 0;
  }
}

}  // namespace rules
