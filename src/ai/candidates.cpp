// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/candidates.h"

#include <cstdlib>

#include "rules/attack.h"
#include "rules/piece_moves.h"
#include "rules/test_moves.h"

namespace ai {
namespace {

using rules::Side;
using rules::Square;
using rules::Step;

/// The pieces of a side whose moves need no test: without check, and off the lines that keep check
/// away, a piece may go where it can. Kings are never among them.
rules::Bitboard FreePieces(Side side) {
  const rules::BoardSquares& board = rules::ThePosition().BoardState;
  if (rules::IsInCheck(side)) return 0;
  return board.OfSide(side) & ~board.Of(rules::OfSide(rules::WhiteKing, side)) &
         ~rules::PinnedPieces(side);
}

/// One piece whose moves are being gathered.
struct Gatherer {
  bool free;  ///< its moves need no test, but for en passant
  Side side;
  rules::PieceCode piece;
  Square from;
  CandidateList& list;
  rules::LastMove lastMove;
  int sideInCheck;

  void Add(Square to) {
    if (free) {
      list.push_back({from, to});
    } else {
      AddIfLegal(side, piece, from, to, list, lastMove, sideInCheck);
    }
  }

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
    const bool doubleStep = std::abs(lastMove.from.y - lastMove.to.y) == 2;
    for (const Square to : targets) {
      if (!doubleStep) break;
      // Two pawns leave the row, so this may open a line that no single piece keeps shut.
      if (rules::EnPassantSquare(from, to, lastMove, side) && rules::IsTargetSquare(side, to)) {
        AddIfLegal(side, piece, from, to, list, lastMove, sideInCheck);
      }
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

namespace {

void Gather(Gatherer gatherer) {
  switch (rules::KindOf(gatherer.piece)) {
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

}  // namespace

void GenerateMoves(Side side, rules::PieceCode piece, Square from, CandidateList& list,
                   rules::LastMove lastMove, int sideInCheck) {
  const bool free = (FreePieces(side) & rules::BitOf(from)) != 0;
  Gather({free, side, piece, from, list, lastMove, sideInCheck});
}

void GenerateAllMoves(Side side, CandidateList& list, rules::LastMove lastMove, int sideInCheck) {
  const rules::BoardSquares& board = rules::ThePosition().BoardState;
  const rules::Bitboard freePieces = FreePieces(side);
  rules::Bitboard own = board.OfSide(side);
  while (own != 0) {
    const Square from = rules::SquareAt(rules::TakeLowest(own));
    const bool free = (freePieces & rules::BitOf(from)) != 0;
    Gather({free, side, board.At(from), from, list, lastMove, sideInCheck});
  }
}

}  // namespace ai
