// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/candidates.h"

#include <bit>

#include "rules/attack.h"
#include "rules/piece_moves.h"
#include "rules/test_moves.h"

namespace ai {
namespace {

using rules::Bitboard;
using rules::BoardSquares;
using rules::PieceCode;
using rules::Side;
using rules::Square;
using rules::ThePosition;

/// The squares on which a piece that isn't pinned leaves its king out of check when it gets there:
/// all of them, or those that end the check that there is.
Bitboard Answers(Side side) {
  const Bitboard king = ThePosition().BoardState.Of(rules::OfSide(rules::WhiteKing, side));
  if (king == 0) return ~Bitboard{0};
  const int at = std::countr_zero(king);
  const Bitboard attackers = rules::AttackersOf(rules::SquareAt(at), rules::OtherSide(side));
  if (attackers == 0) return ~Bitboard{0};
  if (!std::has_single_bit(attackers)) return 0;
  return attackers | rules::squaresBetween[std::countr_zero(attackers)][at];
}

/// Gathers the moves of a side's pieces in one position.
class Gatherer {
 public:
  Gatherer(Side side, CandidateList& list, rules::LastMove lastMove, int sideInCheck)
      : side_(side), list_(list), lastMove_(lastMove), sideInCheck_(sideInCheck) {}

  void Gather(PieceCode piece, Square from) {
    piece_ = piece;
    from_ = from;
    switch (rules::KindOf(piece)) {
      case rules::WhiteRook:
        return AddRays(0, rules::firstDiagonalRay);
      case rules::WhiteBishop:
        return AddRays(rules::firstDiagonalRay, rayCount);
      case rules::WhiteQueen:
        return AddRays(0, rayCount);
      case rules::WhiteKnight:
        return AddLeaps(rules::knightSteps, rules::knightReach);
      case rules::WhitePawn:
        return AddPawnMoves();
      case rules::WhiteKing:
        AddLeaps(rules::kingSteps, rules::kingReach);
        return AddCastling();
      default:
        return;
    }
  }

 private:
  const BoardSquares& Board() const { return ThePosition().BoardState; }

  bool IsLegal(Square to) const {
    return rules::TestMoveIsLegal(side_, piece_, from_, to, lastMove_);
  }

  void Add(int to) { list_.push_back({from_, rules::SquareAt(to)}); }

  /// The squares of a set that the piece may go to without leaving its king in check.
  Bitboard Legal(Bitboard targets) const {
    if ((unpinned_ & rules::BitOf(from_)) != 0) return targets & answers_;
    Bitboard legal = 0;
    while (targets != 0) {
      const int to = rules::TakeLowest(targets);
      if (IsLegal(rules::SquareAt(to))) legal |= Bitboard{1} << to;
    }
    return legal;
  }

  void AddRays(std::size_t first, std::size_t last) {
    for (std::size_t ray = first; ray < last; ++ray) {
      AddAlong(ray, rules::ReachOnRay(ray, rules::IndexOf(from_), Board().Occupied()) & targets_);
    }
  }

  /// Adds the legal ones of some squares of a ray, the nearest first.
  void AddAlong(std::size_t ray, Bitboard targets) {
    Bitboard legal = Legal(targets);
    while (legal != 0) {
      const int to = rules::NearestOnRay(legal, ray);
      legal ^= Bitboard{1} << to;
      Add(to);
    }
  }

  void AddLeaps(const std::array<rules::Step, 8>& steps, const rules::tables::SquareTable& reach) {
    const int from = rules::IndexOf(from_);
    const Bitboard legal = Legal(reach[from] & targets_);
    if (legal == 0) return;
    for (const rules::Step step : steps) {
      // A step over the edge would come round to a square that no step reaches.
      const int to = (from + step.dx + 8 * step.dy) & 63;
      if ((legal >> to & 1) != 0) Add(to);
    }
  }

  void AddPawnMoves() {
    const Bitboard empty = Board().Of(rules::NoPiece);
    const auto forward = [this](Bitboard set) {
      return side_ == rules::White ? set << 8 : set >> 8;
    };
    Bitboard steps = forward(rules::BitOf(from_)) & empty;
    const bool atHome = from_.y == rules::HomeRow(side_) + rules::PawnDirection(side_);
    if (atHome) steps |= forward(steps) & empty;
    AddAlong(side_ == rules::White ? rules::upRay : rules::downRay, steps);
    AddEnPassant();
    const Bitboard captures = rules::pawnReach[side_][rules::IndexOf(from_)] & targets_ & ~empty;
    // On a board to which no game leads, one of them may take a pawn in passing as well.
    const Bitboard passing = captures & PassedSquare();
    Bitboard legal = Legal(captures & ~passing);
    if (passing != 0 && IsLegal(rules::SquareAt(std::countr_zero(passing)))) legal |= passing;
    while (legal != 0) Add(rules::TakeLowest(legal));
  }

  /// The square behind the one to which the last move went, if there is one.
  Bitboard PassedSquare() const {
    const Square passed{lastMove_.to.x, lastMove_.to.y + rules::PawnDirection(side_)};
    return rules::IsOnBoard(passed) ? rules::BitOf(passed) : 0;
  }

  // Two pawns leave the row, so this may open a line that no single piece keeps shut.
  void AddEnPassant() {
    if (from_.y != lastMove_.to.y) return;
    const Square to{lastMove_.to.x, from_.y + rules::PawnDirection(side_)};
    if (rules::TakesEnPassant(from_, to, lastMove_, side_) && rules::IsTargetSquare(side_, to) &&
        IsLegal(to)) {
      list_.push_back({from_, to});
    }
  }

  void AddCastling() {
    for (const int dx : {-2, 2}) {
      const Square to{from_.x + dx, from_.y};
      if (rules::IsTargetSquare(side_, to) &&
          !rules::KingMoveRefused(side_, from_, to, false, sideInCheck_, false) && IsLegal(to)) {
        list_.push_back({from_, to});
      }
    }
  }

  static constexpr std::size_t rayCount = rules::rayReach.size();

  const Side side_;
  CandidateList& list_;
  const rules::LastMove lastMove_;
  const int sideInCheck_;
  const Bitboard kings_ = Board().Of(rules::WhiteKing) | Board().Of(rules::BlackKing);
  const Bitboard targets_ = ~(Board().OfSide(side_) | kings_);
  const Bitboard unpinned_ = Board().OfSide(side_) & ~kings_ & ~rules::PinnedPieces(side_);
  const Bitboard answers_ = Answers(side_);
  PieceCode piece_ = rules::NoPiece;
  Square from_;
};

}  // namespace

void GenerateMoves(Side side, PieceCode piece, Square from, CandidateList& list,
                   rules::LastMove lastMove, int sideInCheck) {
  Gatherer(side, list, lastMove, sideInCheck).Gather(piece, from);
}

void GenerateAllMoves(Side side, CandidateList& list, rules::LastMove lastMove, int sideInCheck) {
  Gatherer gatherer(side, list, lastMove, sideInCheck);
  const BoardSquares& board = ThePosition().BoardState;
  Bitboard own = board.OfSide(side);
  while (own != 0) {
    const Square from = rules::SquareAt(rules::TakeLowest(own));
    gatherer.Gather(board.At(from), from);
  }
}

}  // namespace ai
