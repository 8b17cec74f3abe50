// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/evaluation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "rules/attack.h"
#include "rules/piece_moves.h"
#include "rules/test_moves.h"

namespace ai {

using rules::Bitboard;
using rules::BoardSquares;
using rules::PieceCode;
using rules::Side;
using rules::Square;
using rules::Standing;
using rules::ThePosition;

namespace {

constexpr int checkmateScore = 1000;

enum HeuristicIndex {
  GoForCheck = 0,
  MoveAPiece = 16,  // Rook, Knight, Bishop, Queen, Pawn, King
  CloserToKing = 47,
  CloserToQueen = 48,
  CloserToCentre = 49,
  MoveLastCastlingRook = 50,
  MoveCastlingRook = 51,
  MoveUncastledKing = 52,
  PerformCastling = 53
};

int Motivation(int index) { return Heuristics[static_cast<std::size_t>(index)]; }

/// The place of a kind in a group of five; -1 for an empty square and a king.
constexpr std::array<int, 7> placeInGroup{-1, 0, 1, 2, 3, -1, 4};

/// The place of a kind among those that move.
constexpr std::array<int, 7> placeInMoves{-1, 0, 1, 2, 3, 5, 4};

/// Distances of two squares by the difference of their columns and rows.
struct Distances {
  std::array<std::array<int, 9>, 9> cut{};      // rounded down
  std::array<std::array<int, 9>, 9> nearest{};  // no distance lies halfway
};

const Distances& TheDistances() {
  static const Distances distances = [] {
    Distances all;
    for (int dx = 0; dx <= 8; ++dx) {
      for (int dy = 0; dy <= 8; ++dy) {
        const double length = std::sqrt(dx * dx + dy * dy);
        all.cut[dx][dy] = static_cast<int>(length);
        all.nearest[dx][dy] = static_cast<int>(std::lround(length));
      }
    }
    return all;
  }();
  return distances;
}

int FloorOfHalf(int value) { return value >= 0 ? value / 2 : -((1 - value) / 2); }

/// What a move earns that changes its distance to a goal from `before` to `after`.
int NearingBonus(int index, int before, int after) {
  if (after < before) return Motivation(index);
  return after > before ? -FloorOfHalf(Motivation(index)) : 0;
}

int NearingBonus(int index, const std::array<std::array<int, 9>, 9>& distance, Square goal,
                 Square from, Square to) {
  const auto length = [&](Square square) {
    return distance[std::abs(square.x - goal.x)][std::abs(square.y - goal.y)];
  };
  return NearingBonus(index, length(from), length(to));
}

/// Adds up a group's motivation over a set of pieces.
int MotivationOver(Bitboard pieces, HeuristicGroup group) {
  const BoardSquares& board = ThePosition().BoardState;
  int sum = 0;
  while (pieces != 0) sum += PieceMotivation(board[rules::TakeLowest(pieces)], group);
  return sum;
}

/// The first and last rays of a kind among the eight, as [first, last).
struct RaySpan {
  std::size_t first;
  std::size_t last;
};
constexpr RaySpan straightRays{0, 4};
constexpr RaySpan diagonalRays{4, 8};

/// The pieces of `targets` that a piece on `from` meets first along its rays.
Bitboard MetOnRays(int from, RaySpan rays, Bitboard targets) {
  const Bitboard occupied = ThePosition().BoardState.Occupied();
  Bitboard met = 0;
  for (std::size_t ray = rays.first; ray < rays.last; ++ray) {
    const Bitboard onRay = rules::rayReach[ray][from];
    if ((onRay & targets) == 0) continue;
    met |= targets & Bitboard{1} << rules::NearestOnRay(onRay & occupied, ray);
  }
  return met;
}

/// How far the pieces of a side are attacked, each by its kind: the attackers are asked whom they
/// attack, for they are fewer.
int VulnerableSum(Side side) {
  const BoardSquares& board = ThePosition().BoardState;
  const Bitboard own = board.OfSide(side) & ~board.Of(rules::OfSide(rules::WhiteKing, side));
  const Side enemy = rules::OtherSide(side);
  int sum = 0;
  const auto add = [&](Bitboard attackers, const auto& attackedFrom) {
    while (attackers != 0) {
      sum += MotivationOver(attackedFrom(rules::TakeLowest(attackers)), Vulnerable);
    }
  };
  const auto of = [&](PieceCode kind) { return board.Of(rules::OfSide(kind, enemy)); };
  const Bitboard queens = of(rules::WhiteQueen);
  add(of(rules::WhitePawn), [&](int from) { return rules::pawnReach[enemy][from] & own; });
  add(of(rules::WhiteKnight), [&](int from) { return rules::knightReach[from] & own; });
  add(of(rules::WhiteKing), [&](int from) { return rules::kingReach[from] & own; });
  add(of(rules::WhiteRook) | queens, [&](int from) { return MetOnRays(from, straightRays, own); });
  add(of(rules::WhiteBishop) | queens,
      [&](int from) { return MetOnRays(from, diagonalRays, own); });
  return sum;
}

/// The own pieces that `piece`, standing on `square`, could capture if they were the enemy's. A
/// piece that moves along lines reaches its own square too, for nothing lies in its way there.
Bitboard ProtectedFrom(Side side, PieceCode piece, Square square) {
  const int from = rules::IndexOf(square);
  const Bitboard own = ThePosition().BoardState.OfSide(side);
  const Bitboard itself = rules::BitOf(square) & own;
  switch (rules::KindOf(piece)) {
    case rules::WhiteKnight:
      return rules::knightReach[from] & own;
    case rules::WhiteKing:
      return (rules::kingReach[from] & own) | itself;
    case rules::WhitePawn:
      return rules::pawnReach[side][from] & own;
    case rules::WhiteRook:
      return MetOnRays(from, straightRays, own) | itself;
    case rules::WhiteBishop:
      return MetOnRays(from, diagonalRays, own) | itself;
    default:
      return MetOnRays(from, {straightRays.first, diagonalRays.last}, own) | itself;
  }
}

/// What the own pieces are worth that `piece`, standing on `square`, protects.
int ProtectSum(Side side, PieceCode piece, Square square) {
  return MotivationOver(ProtectedFrom(side, piece, square), Protect);
}

/// What the place where the moving piece stands in a pass is worth.
int StandSum(Side side, Square square) {
  const int mine = CountAttackers(side, square);
  const int theirs = CountAttackers(rules::OtherSide(side), square);
  int sum = 0;
  if (theirs > 0 && mine == 0) {
    sum += PieceMotivation(ThePosition().BoardState.At(square), AllowUndefended);
  }
  if (mine > 0 || theirs == 0) sum += PinBonus(side, square);
  return sum;
}

int PinsOnRay(Side side, PieceCode pinner, Square square, rules::Step step) {
  const BoardSquares& board = ThePosition().BoardState;
  const PieceCode enemyKing = rules::OfSide(rules::WhiteKing, rules::OtherSide(side));
  PieceCode first = rules::NoPiece;
  for (Square to{square.x + step.dx, square.y + step.dy}; rules::IsOnBoard(to);
       to = {to.x + step.dx, to.y + step.dy}) {
    const PieceCode piece = board.At(to);
    if (piece == rules::NoPiece) continue;
    if (rules::SideOfPiece(piece) == side) return 0;
    if (piece == enemyKing && first != rules::NoPiece) return PinMotivation(pinner, first);
    if (piece != enemyKing && first == rules::NoPiece) first = piece;
  }
  return 0;
}

/// What counts only for a move that is played, on the board before it.
int MoveSum(Side side, Square from, Square to) {
  const BoardSquares& board = ThePosition().BoardState;
  const Side enemy = rules::OtherSide(side);
  const Distances& distances = TheDistances();
  const Square king = rules::FindPiece(rules::OfSide(rules::WhiteKing, enemy));
  const Square queen = rules::FindPiece(rules::OfSide(rules::WhiteQueen, enemy));
  int sum = NearingBonus(CloserToKing, distances.cut, king, from, to);
  if (rules::IsOnBoard(queen)) sum += NearingBonus(CloserToQueen, distances.cut, queen, from, to);
  sum += NearingBonus(CloserToCentre, distances.nearest, {4, 4}, from, to);
  const PieceCode taken = board.At(to);
  sum += PieceMotivation(taken, Take);
  if (rules::SideOfPiece(taken) == enemy && CountAttackers(enemy, to) == 0) {
    sum += PieceMotivation(taken, TakeUndefended);
  }
  const int place = placeInMoves[static_cast<std::size_t>(rules::KindOf(board.At(from)))];
  return sum + Motivation(MoveAPiece + place);
}

/// Takes a test move back at the latest when the scope ends.
class TestMove {
 public:
  TestMove(Side side, Square from, Square to, rules::LastMove lastMove, int sideInCheck)
      : sideInCheck_(sideInCheck) {
    rules::MakeTestMove(side, from, to, ThePosition().BoardState.At(from), lastMove, sideInCheck_);
  }
  ~TestMove() { rules::UndoTestMove(sideInCheck_); }
  TestMove(const TestMove&) = delete;
  TestMove& operator=(const TestMove&) = delete;

  int SideInCheck() const { return sideInCheck_; }

 private:
  int sideInCheck_;
};

/// The part of the pass with the move played that is scored while it stands on the board; nothing
/// for checkmate.
std::optional<int> PlayedSum(Side side, Square from, Square to, int sideInCheck,
                             rules::LastMove lastMove) {
  const PieceCode piece = ThePosition().BoardState.At(from);
  const TestMove played(side, from, to, lastMove, sideInCheck);
  int sum = 0;
  const Standing standing =
      rules::GameState(rules::OtherSide(side), true, played.SideInCheck(), {from, to});
  if (standing == Standing::Checkmate) return std::nullopt;
  if (standing == Standing::Check) sum += Motivation(GoForCheck);
  sum += VulnerableSum(side) + ProtectSum(side, piece, to) + StandSum(side, to);
  // The king has moved by now, but another king may stand where he came from.
  if (rules::DetectCastling(side, from, to) != rules::Castling::None) {
    sum += Motivation(PerformCastling);
  }
  return sum;
}

int PlayedPass(Side side, Square from, Square to, int sideInCheck, rules::LastMove lastMove) {
  const auto played = PlayedSum(side, from, to, sideInCheck, lastMove);
  if (!played) return checkmateScore;
  return *played + MoveSum(side, from, to) +
         CastlingRightsBonus(side, ThePosition().BoardState.At(from), from.x);
}

/// The pass before the move, for all moves of a position: what depends on the position, on the
/// from-square and on the move is worked out when it changes.
class PassBefore {
 public:
  PassBefore(Side side, int sideInCheck)
      : side_(side),
        standing_(rules::GameState(rules::OtherSide(side), true, sideInCheck)),
        vulnerable_(standing_ == Standing::Checkmate ? 0 : VulnerableSum(side)) {}

  int Of(Square from, Square to) {
    if (standing_ == Standing::Checkmate) return checkmateScore;
    const PieceCode piece = ThePosition().BoardState.At(from);
    if (from != from_) {
      from_ = from;
      ofFrom_ = StandSum(side_, from) + CastlingRightsBonus(side_, piece, from.x);
    }
    int sum = vulnerable_ + ofFrom_ + ProtectSum(side_, piece, to);
    if (standing_ == Standing::Check) sum += Motivation(GoForCheck);
    if (rules::DetectCastling(side_, from, to) != rules::Castling::None) {
      sum += Motivation(PerformCastling);
    }
    return sum;
  }

 private:
  Side side_;
  Standing standing_;
  int vulnerable_;
  Square from_;
  int ofFrom_ = 0;
};

}  // namespace

std::int16_t Saturate(int score) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<int>(score, Limits::min(), Limits::max()));
}

int PieceMotivation(PieceCode piece, HeuristicGroup group) {
  const int place = placeInGroup[static_cast<std::size_t>(rules::KindOf(piece))];
  return place < 0 ? 0 : Motivation(group + place);
}

int CountAttackers(Side side, Square square) {
  return rules::CountSquares(rules::AttackersOf(square, side));
}

int PinBonus(Side side, Square square) {
  const PieceCode piece = ThePosition().BoardState.At(square);
  const PieceCode kind = rules::KindOf(piece);
  const int from = rules::IndexOf(square);
  const Bitboard kings =
      ThePosition().BoardState.Of(rules::OfSide(rules::WhiteKing, rules::OtherSide(side)));
  if (((rules::straightReach[from] | rules::diagonalReach[from]) & kings) == 0) return 0;
  int bonus = 0;
  if (kind == rules::WhiteRook || kind == rules::WhiteQueen) {
    for (const rules::Step step : rules::straightSteps) {
      bonus += PinsOnRay(side, piece, square, step);
    }
  }
  if (kind == rules::WhiteBishop || kind == rules::WhiteQueen) {
    for (const rules::Step step : rules::diagonalSteps) {
      bonus += PinsOnRay(side, piece, square, step);
    }
  }
  return bonus;
}

int PinMotivation(PieceCode pinner, PieceCode pinned) {
  switch (rules::KindOf(pinner)) {
    case rules::WhiteRook:
      return PieceMotivation(pinned, PinByRook);
    case rules::WhiteBishop:
      return PieceMotivation(pinned, PinByBishop);
    case rules::WhiteQueen:
      return PieceMotivation(pinned, PinByQueen);
    default:
      return 0;
  }
}

int CastlingRightsBonus(Side side, PieceCode piece, int fromX) {
  rules::Position& position = ThePosition();
  const bool kingMoved = position.HasMoved(side, rules::KingItself);
  const PieceCode kind = rules::KindOf(piece);
  if (kind == rules::WhiteKing) return kingMoved ? 0 : Motivation(MoveUncastledKing);
  if (kind != rules::WhiteRook || (fromX != 1 && fromX != 8)) return 0;
  const auto own = fromX == 1 ? rules::Column1Rook : rules::Column8Rook;
  const auto other = fromX == 1 ? rules::Column8Rook : rules::Column1Rook;
  if (kingMoved || position.HasMoved(side, own)) return 0;
  return Motivation(position.HasMoved(side, other) ? MoveLastCastlingRook : MoveCastlingRook);
}

std::int16_t EvaluateMove(Square from, Square to, int sideInCheck, bool doMove,
                          rules::LastMove lastMove) {
  const Side side = rules::SideOf(from);
  return Saturate(doMove ? PlayedPass(side, from, to, sideInCheck, lastMove)
                         : PassBefore(side, sideInCheck).Of(from, to));
}

void ScoreCandidates(CandidateList& list, Side side, int sideInCheck, rules::LastMove lastMove) {
  PassBefore before(side, sideInCheck);
  for (CandidateMove& move : list) {
    move.Score = Saturate(Saturate(PlayedPass(side, move.from, move.to, sideInCheck, lastMove)) -
                          Saturate(before.Of(move.from, move.to)));
  }
}

}  // namespace ai
