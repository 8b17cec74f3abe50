// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/candidates.h"

#include "rules/piece_moves.h"
#include "rules/test_moves.h"

namespace ai {
namespace {

using rules::Side;
using rules::Square;
using rules::Step;

/// One piece whose moves are being gathered.
struct Gatherer {
  Side side;
  rules::PieceCode piece;
  Square from;
  CandidateList& list;
  rules::LastMove lastMove;
  int sideInCheck;

  void Add(Square to) { AddIfLegal(side, piece, from, to, list, lastMove, sideInCheck); }

  void AddIfTarget(Square to) {
    if (rules::IsTargetSquare(side, to)) Add(to);
  }

  template <std::size_t N>
  void AddRays(const std::array<Step, N>& steps) {
    for (const Step step : steps) {
      for (Square to{from.x + step.dx, from.y + step.dy}; rules::IsTargetSquare(side, to);
           to = {to.x + step.dx, to.y + step.dy}) {
        Add(to);
        if (rules::SideOf(to) == rules::OtherSide(side)) break;
      }
    }
  }

  void AddKnightMoves() {
    for (const Step step : rules::knightSteps) AddIfTarget({from.x + step.dx, from.y + step.dy});
  }

  void AddPawnSteps() {
    const int forward = rules::PawnDirection(side);
    const auto isFree = [this](Square to) {
      return rules::IsTargetSquare(side, to) && rules::SideOf(to) == rules::NoSide;
    };
    const Square one{from.x, from.y + forward};
    if (!isFree(one)) return;
    Add(one);
    const Square two{from.x, from.y + 2 * forward};
    if (from.y == rules::HomeRow(side) + forward && isFree(two)) Add(two);
  }

  void AddPawnCaptures() {
    const Square targets[] = {{from.x - 1, from.y + rules::PawnDirection(side)},
                              {from.x + 1, from.y + rules::PawnDirection(side)}};
    for (const Square to : targets) {
      if (rules::EnPassantSquare(from, to, lastMove, side)) AddIfTarget(to);
    }
    for (const Square to : targets) {
      if (rules::IsTargetSquare(side, to) && rules::SideOf(to) == rules::OtherSide(side) &&
          rules::ValidMove(side, piece, from, to, true, sideInCheck, {}, false)) {
        Add(to);
      }
    }
  }

  void AddKingMoves() {
    for (int x = from.x - 1; x <= from.x + 1; ++x) {
      for (int y = from.y - 1; y <= from.y + 1; ++y) AddIfTarget({x, y});
    }
    for (const int dx : {-2, 2}) {
      const Square to{from.x + dx, from.y};
      if (rules::IsTargetSquare(side, to) &&
          !rules::KingMoveRefused(side, from, to, false, sideInCheck, false)) {
        Add(to);
      }
    }
  }
};

}  // namespace

void AddIfLegal(Side side, rules::PieceCode piece, Square from, Square to, CandidateList& list,
                rules::LastMove lastMove, int sideInCheck) {
  if (rules::TestMoveIsLegal(side, piece, from, to, lastMove, sideInCheck)) {
    list.push_back({from, to});
  }
}

void GenerateMoves(Side side, rules::PieceCode piece, Square from, CandidateList& list,
                   rules::LastMove lastMove, int sideInCheck) {
  Gatherer gatherer{side, piece, from, list, lastMove, sideInCheck};
  switch (rules::KindOf(piece)) {
    case rules::WhiteRook:
      gatherer.AddRays(rules::straightSteps);
      break;
    case rules::WhiteBishop:
      gatherer.AddRays(rules::diagonalSteps);
      break;
    case rules::WhiteQueen:
      gatherer.AddRays(rules::straightSteps);
      gatherer.AddRays(rules::diagonalSteps);
      break;
    case rules::WhiteKnight:
      gatherer.AddKnightMoves();
      break;
    case rules::WhitePawn:
      gatherer.AddPawnSteps();
      gatherer.AddPawnCaptures();
      break;
    case rules::WhiteKing:
      gatherer.AddKingMoves();
      break;
    default:
      break;
  }
}

void GenerateAllMoves(Side side, CandidateList& list, rules::LastMove lastMove, int sideInCheck) {
  rules::Bitboard own = rules::ThePosition().BoardState.OfSide(side);
  while (own != 0) {
    const Square from = rules::SquareAt(rules::TakeLowest(own));
    GenerateMoves(side, rules::ThePosition().BoardState.At(from), from, list, lastMove,
                  sideInCheck);
  }
}

}  // namespace ai
