// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/candidates.h"

#include <array>

#include "rules/legal_moves.h"
#include "rules/piece_moves.h"

namespace ai {
namespace {

using rules::Bitboard;
using rules::BoardSquares;
using rules::PieceCode;
using rules::Side;
using rules::Square;
using rules::ThePosition;

/// Puts the moves of a side's pieces in one position into their order.
class Gatherer {
 public:
  Gatherer(Side side, CandidateList& list, rules::LastMove lastMove, int sideInCheck)
      : side_(side), list_(list), lastMove_(lastMove), moves_(side, lastMove, sideInCheck) {}

  void Gather(PieceCode piece, Square from) {
    from_ = from;
    legal_ = moves_.From(from);
    if (legal_ == 0) return;
    switch (rules::KindOf(piece)) {
      case rules::WhiteRook:
        return AddRays(0, rules::firstDiagonalRay);
      case rules::WhiteBishop:
        return AddRays(rules::firstDiagonalRay, rayCount);
      case rules::WhiteQueen:
        return AddRays(0, rayCount);
      case rules::WhiteKnight:
        return AddLeaps(rules::knightSteps);
      case rules::WhitePawn:
        return AddPawnMoves();
      case rules::WhiteKing:
        AddLeaps(rules::kingSteps);
        return AddRow(legal_ & ~rules::kingReach[rules::IndexOf(from_)]);
      default:
        return;
    }
  }

 private:
  void Add(int to) { list_.push_back({from_, rules::SquareAt(to)}); }

  void AddRow(Bitboard targets) {
    while (targets != 0) Add(rules::TakeLowest(targets));
  }

  void AddRays(std::size_t first, std::size_t last) {
    for (std::size_t ray = first; ray < last; ++ray) AddRay(ray);
  }

  /// Adds the moves along a ray, the nearest first.
  void AddRay(std::size_t ray) {
    Bitboard targets = legal_ & rules::rayReach[ray][rules::IndexOf(from_)];
    while (targets != 0) {
      const int to = rules::NearestOnRay(targets, ray);
      targets ^= Bitboard{1} << to;
      Add(to);
    }
  }

  void AddLeaps(const std::array<rules::Step, 8>& steps) {
    const int from = rules::IndexOf(from_);
    for (const rules::Step step : steps) {
      // A step over the edge would come round to a square that no step reaches.
      const int to = (from + step.dx + 8 * step.dy) & 63;
      if ((legal_ >> to & 1) != 0) Add(to);
    }
  }

  void AddPawnMoves() {
    AddRay(side_ == rules::White ? rules::upRay : rules::downRay);
    const Bitboard captures = legal_ & rules::pawnReach[side_][rules::IndexOf(from_)];
    if (captures == 0) return;
    AddEnPassant();
    AddRow(captures & ThePosition().BoardState.Occupied());
  }

  void AddEnPassant() {
    const Square to{lastMove_.to.x, from_.y + rules::PawnDirection(side_)};
    if (rules::TakesEnPassant(from_, to, lastMove_, side_) && (legal_ & rules::BitOf(to)) != 0) {
      list_.push_back({from_, to});
    }
  }

  static constexpr std::size_t rayCount = rules::rayReach.size();

  const Side side_;
  CandidateList& list_;
  const rules::LastMove lastMove_;
  const rules::LegalMoves moves_;
  Square from_;
  Bitboard legal_ = 0;
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
