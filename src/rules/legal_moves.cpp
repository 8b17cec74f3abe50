// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/legal_moves.h"

#include <bit>
#include <cstdlib>

#include "rules/attack.h"
#include "rules/piece_moves.h"
#include "rules/test_moves.h"

namespace rules {
namespace {

constexpr Bitboard column1 = 0x0101010101010101;
constexpr Bitboard column8 = column1 << 7;

/// Three rows from a side's home: where its pawns stand behind one step.
constexpr Bitboard RowBehindOneStep(Side side) {
  return side == White ? Bitboard{255} << 16 : Bitboard{255} << 40;
}

/// The number of squares of any set, without a branch.
constexpr int CountMany(Bitboard set) {
  set -= set >> 1 & 0x5555555555555555;
  set = (set & 0x3333333333333333) + (set >> 2 & 0x3333333333333333);
  set = (set + (set >> 4)) & 0x0f0f0f0f0f0f0f0f;
  return static_cast<int>(set * 0x0101010101010101 >> 56);
}

/// Of a set that isn't empty.
constexpr bool IsSingle(Bitboard set) { return (set & (set - 1)) == 0; }

Bitboard Reach(PieceCode kind, int from, Bitboard occupied) {
  switch (kind) {
    case WhiteRook:
      return ReachStraight(from, occupied);
    case WhiteBishop:
      return ReachDiagonally(from, occupied);
    case WhiteQueen:
      return ReachStraight(from, occupied) | ReachDiagonally(from, occupied);
    case WhiteKnight:
      return knightReach[from];
    default:
      return 0;
  }
}

}  // namespace

LegalMoves::LegalMoves(Side side, LastMove lastMove, int sideInCheck)
    : board_(ThePosition().BoardState),
      side_(side),
      lastMove_(lastMove),
      sideInCheck_(sideInCheck),
      occupied_(board_.Occupied()),
      targets_(~(board_.OfSide(side) | board_.Of(WhiteKing) | board_.Of(BlackKing))) {
  // Without a king nothing is forbidden; of several the first one counts, as in IsInCheck.
  if (const Bitboard king = Own(WhiteKing)) LookFrom(std::countr_zero(king));
}

/// Finds pins and checks along the lines from the king.
void LegalMoves::LookFrom(int king) {
  Bitboard attackers = (knightReach[king] & Enemy(WhiteKnight)) |
                       (pawnReach[side_][king] & Enemy(WhitePawn)) |
                       (kingReach[king] & Enemy(WhiteKing));
  Bitboard snipers = (straightReach[king] & (Enemy(WhiteRook) | Enemy(WhiteQueen))) |
                     (diagonalReach[king] & (Enemy(WhiteBishop) | Enemy(WhiteQueen)));
  while (snipers != 0) {
    const int sniper = TakeLowest(snipers);
    const Bitboard between = squaresBetween[king][sniper] & occupied_;
    if (between == 0) {
      attackers |= Bitboard{1} << sniper;
    } else if (IsSingle(between) && (between & board_.OfSide(side_)) != 0) {
      pinned_ |= between;
    }
  }
  if (attackers == 0) return;
  answers_ =
      IsSingle(attackers) ? attackers | squaresBetween[king][std::countr_zero(attackers)] : 0;
}

/// Where a piece may go for its king's sake: a pinned one to and fro between the king and what pins
/// it, behind which it can't get.
Bitboard LegalMoves::Line(Bitboard piece) const {
  if ((pinned_ & piece) == 0) return ~Bitboard{0};
  const int king = std::countr_zero(Own(WhiteKing));
  std::size_t ray = 0;
  while ((rayReach[ray][king] & piece) == 0) ++ray;
  return rayReach[ray][king];
}

Bitboard LegalMoves::From(Square from) const {
  const PieceCode kind = KindOf(board_.At(from));
  if (kind == WhitePawn) return FromPawn(from);
  if (kind == WhiteKing) return FromKing(from);
  return Reach(kind, IndexOf(from), occupied_) & targets_ & answers_ & Line(BitOf(from));
}

Bitboard LegalMoves::FromPawn(Square from) const {
  const Bitboard pawn = BitOf(from);
  const Bitboard empty = ~occupied_;
  Bitboard moves = Forward(pawn) & empty;
  moves |= Forward(moves & RowBehindOneStep(side_)) & empty;
  moves |= pawnReach[side_][IndexOf(from)] & targets_ & occupied_;
  moves &= answers_ & Line(pawn);
  // Two pawns leave the row, which may open a line that no single piece keeps shut.
  const Bitboard passed = PassedBy(from);
  if (passed == 0) return moves;
  return IsLegal(from, SquareAt(std::countr_zero(passed))) ? moves | passed : moves & ~passed;
}

/// The square on which a pawn takes in passing, as far as it moves like that.
Bitboard LegalMoves::PassedBy(Square from) const {
  if (from.y != lastMove_.to.y) return 0;
  const Square to{lastMove_.to.x, from.y + PawnDirection(side_)};
  return TakesEnPassant(from, to, lastMove_, side_) && IsTargetSquare(side_, to) ? BitOf(to) : 0;
}

Bitboard LegalMoves::FromKing(Square from) const {
  const bool alone = IsSingle(Own(WhiteKing));
  const Bitboard withoutKing = occupied_ & ~BitOf(from);
  Bitboard legal = 0;
  for (Bitboard left = kingReach[IndexOf(from)] & targets_; left != 0;) {
    const Square to = SquareAt(TakeLowest(left));
    const bool safe =
        alone ? AttackersOf(to, OtherSide(side_), withoutKing) == 0 : IsLegal(from, to);
    if (safe) legal |= BitOf(to);
  }
  return legal | CastlingFrom(from);
}

Bitboard LegalMoves::CastlingFrom(Square from) const {
  if (from.x != 5 || ThePosition().HasMoved(side_, KingItself)) return 0;
  const Bitboard king = BitOf(from);
  Bitboard legal = 0;
  for (const Bitboard way : {king >> 2 | king >> 1, king << 1 | king << 2}) {
    if ((way & occupied_) != 0) continue;
    const Square to{way < king ? 3 : 7, from.y};
    if (!KingMoveRefused(side_, from, to, false, sideInCheck_, false) && IsLegal(from, to)) {
      legal |= BitOf(to);
    }
  }
  return legal;
}

bool LegalMoves::IsLegal(Square from, Square to) const {
  return TestMoveIsLegal(side_, board_.At(from), from, to, lastMove_);
}

int LegalMoves::Count() const {
  int count = CountPawnMoves() + CountPieceMoves();
  for (Bitboard kings = Own(WhiteKing); kings != 0;) {
    count += CountSquares(FromKing(SquareAt(TakeLowest(kings))));
  }
  return count;
}

int LegalMoves::CountPawnMoves() const {
  const Bitboard own = Own(WhitePawn);
  Bitboard special = own & (pinned_ | BesideDoubleStep());
  const Bitboard plain = own & ~special;
  const Bitboard steps = Forward(plain) & ~occupied_;
  const Bitboard farSteps = Forward(steps & RowBehindOneStep(side_)) & ~occupied_;
  const Bitboard prey = targets_ & occupied_ & answers_;
  int count = CountMany(steps & answers_) + CountSquares(farSteps & answers_) +
              CountSquares(Forward((plain & ~column1) >> 1) & prey) +
              CountSquares(Forward((plain & ~column8) << 1) & prey);
  while (special != 0) count += CountSquares(FromPawn(SquareAt(TakeLowest(special))));
  return count;
}

/// The squares beside a pawn that has just gone two rows.
Bitboard LegalMoves::BesideDoubleStep() const {
  const auto [from, to] = lastMove_;
  if (from.x != to.x || std::abs(from.y - to.y) != 2 || !IsOnBoard(to)) return 0;
  if (!IsPawn(board_.At(to))) return 0;
  const Bitboard pawn = BitOf(to);
  return (pawn & ~column1) >> 1 | (pawn & ~column8) << 1;
}

int LegalMoves::CountPieceMoves() const {
  const Bitboard targets = targets_ & answers_;
  int count = 0;
  for (Bitboard knights = Own(WhiteKnight) & ~pinned_; knights != 0;) {
    count += CountMany(knightReach[TakeLowest(knights)] & targets);
  }
  for (Bitboard pieces = Own(WhiteBishop) | Own(WhiteQueen); pieces != 0;) {
    const int from = TakeLowest(pieces);
    count += CountMany(ReachDiagonally(from, occupied_) & targets & Line(Bitboard{1} << from));
  }
  for (Bitboard pieces = Own(WhiteRook) | Own(WhiteQueen); pieces != 0;) {
    const int from = TakeLowest(pieces);
    count += CountMany(ReachStraight(from, occupied_) & targets & Line(Bitboard{1} << from));
  }
  return count;
}

}  // namespace rules
