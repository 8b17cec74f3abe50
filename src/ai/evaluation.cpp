// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/evaluation.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdlib>
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

/// The place of a kind in a group of five; -1 for an empty square and a king.
constexpr std::array<int, 7> placeInGroup{-1, 0, 1, 2, 3, -1, 4};

/// The place of a kind among those that move.
constexpr std::array<int, 7> placeInMoves{-1, 0, 1, 2, 3, 5, 4};

/// Lengths by the difference of columns and of rows.
using Lengths = std::array<std::array<int, 9>, 9>;

constexpr int RootCut(int square) {
  int root = 0;
  while ((root + 1) * (root + 1) <= square) ++root;
  return root;
}

constexpr int RootRounded(int square) { return (RootCut(4 * square) + 1) / 2; }

constexpr Lengths LengthsBy(int (*root)(int)) {
  Lengths lengths{};
  for (int dx = 0; dx <= 8; ++dx) {
    for (int dy = 0; dy <= 8; ++dy) lengths[dx][dy] = root(dx * dx + dy * dy);
  }
  return lengths;
}

constexpr Lengths lengthsCut = LengthsBy(RootCut);
constexpr Lengths lengthsRounded = LengthsBy(RootRounded);

/// A square that moves are rewarded for coming closer to.
class Goal {
 public:
  Goal(Square square, const Lengths& lengths, int reward)
      : square_(square), lengths_(lengths), rewards_{-FloorOfHalf(reward), 0, reward} {}

  int RewardOf(Square from, Square to) const {
    const int before = LengthFrom(from), after = LengthFrom(to);
    return rewards_[1 + (after < before) - (after > before)];
  }

 private:
  static int FloorOfHalf(int value) { return value >> 1; }

  int LengthFrom(Square square) const {
    return lengths_[std::abs(square.x - square_.x)][std::abs(square.y - square_.y)];
  }

  Square square_;
  const Lengths& lengths_;
  std::array<int, 3> rewards_;  // for leaving it, for neither, for nearing it
};

/// What each piece is worth in a group, by code.
using Worths = std::array<int, 13>;

Worths WorthsIn(HeuristicGroup group, const HeuristicTable& table) {
  Worths worths{};
  for (std::size_t piece = 0; piece < worths.size(); ++piece) {
    worths[piece] = PieceMotivation(static_cast<PieceCode>(piece), group, table);
  }
  return worths;
}

int SumOver(Bitboard pieces, const Worths& worths) {
  const BoardSquares& board = ThePosition().BoardState;
  int sum = 0;
  while (pieces != 0) sum += worths[board[rules::TakeLowest(pieces)]];
  return sum;
}

/// The squares that each piece reaches on an empty board, by code and index.
constexpr std::array<rules::tables::SquareTable, 13> emptyReach = [] {
  std::array<rules::tables::SquareTable, 13> reach{};
  for (const Side side : {rules::White, rules::Black}) {
    const auto of = [&](PieceCode kind) -> auto& { return reach[rules::OfSide(kind, side)]; };
    of(rules::WhiteRook) = rules::straightReach;
    of(rules::WhiteKnight) = rules::knightReach;
    of(rules::WhiteBishop) = rules::diagonalReach;
    for (int i = 0; i < 64; ++i) {
      of(rules::WhiteQueen)[i] = rules::straightReach[i] | rules::diagonalReach[i];
    }
    of(rules::WhiteKing) = rules::kingReach;
    of(rules::WhitePawn) = rules::pawnReach[side];
  }
  return reach;
}();

/// What a piece on `from` attacks, or defends. The lines are looked along for every kind: kings and
/// pawns take the first step of them, and to ask which kind it is costs more than to do without.
Bitboard ReachOf(PieceCode piece, int from) {
  const Bitboard occupied = ThePosition().BoardState.Occupied();
  return emptyReach[piece][from] &
         (rules::ReachStraight(from, occupied) | rules::ReachDiagonally(from, occupied) |
          rules::knightReach[from]);
}

/// What the place where the moving piece stands in a pass is worth, under attack by `theirs`.
int StandSum(Side side, Square square, Bitboard theirs, const HeuristicTable& table) {
  const bool defended = rules::AttackersOf(square, side) != 0;
  int sum = 0;
  if (theirs != 0 && !defended) {
    sum += PieceMotivation(ThePosition().BoardState.At(square), AllowUndefended, table);
  }
  if (theirs == 0 || defended) sum += PinBonus(side, square, table);
  return sum;
}

int PinsOnRay(Side side, PieceCode pinner, int from, std::size_t ray, const HeuristicTable& table) {
  const BoardSquares& board = ThePosition().BoardState;
  const PieceCode enemyKing = rules::OfSide(rules::WhiteKing, rules::OtherSide(side));
  PieceCode first = rules::NoPiece;
  Bitboard met = rules::rayReach[ray][from] & board.Occupied();
  while (met != 0) {
    const int at = rules::NearestOnRay(met, ray);
    met ^= Bitboard{1} << at;
    const PieceCode piece = board[at];
    if (rules::SideOfPiece(piece) == side) return 0;
    if (piece == enemyKing && first != rules::NoPiece) return PinMotivation(pinner, first, table);
    if (piece != enemyKing && first == rules::NoPiece) first = piece;
  }
  return 0;
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

/// Both passes of the moves of one position. What the moves have in common is worked out once, and
/// what those of one piece have in common when the piece changes.
class Passes {
 public:
  Passes(Side side, int sideInCheck, rules::LastMove lastMove, const HeuristicTable& table)
      : table_(table),
        side_(side),
        sideInCheck_(sideInCheck),
        lastMove_(lastMove),
        standing_(rules::GameState(enemy_, true, sideInCheck)) {
    Bitboard attackers = ThePosition().BoardState.OfSide(enemy_);
    while (attackers != 0) {
      const int from = rules::TakeLowest(attackers);
      harm_[from] = HarmFrom(from);
      vulnerable_ += harm_[from];
    }
  }

  /// The pass without the move.
  int Before(Square from, Square to) {
    if (standing_ == Standing::Checkmate) return checkmateScore;
    TurnTo(from);
    int sum = vulnerable_ + stand_ + rights_ + ProtectSum(to);
    if (standing_ == Standing::Check) sum += Motivation(GoForCheck);
    if (rules::DetectCastling(side_, from, to) != rules::Castling::None) {
      sum += Motivation(PerformCastling);
    }
    return sum;
  }

  /// The pass with the move played.
  int Played(Square from, Square to) {
    TurnTo(from);
    const auto standing = WhilePlayed(from, to);
    return standing ? *standing + MoveSum(from, to) + rights_ : checkmateScore;
  }

 private:
  int Motivation(int index) const { return table_[index]; }

  Square FindEnemy(PieceCode kind) const { return rules::FindPiece(rules::OfSide(kind, enemy_)); }

  void TurnTo(Square from) {
    if (from == from_) return;
    from_ = from;
    piece_ = ThePosition().BoardState.At(from);
    attackers_ = rules::AttackersOf(from, enemy_);
    stand_ = StandSum(side_, from, attackers_, table_);
    rights_ = CastlingRightsBonus(side_, piece_, from.x, table_);
  }

  /// How much the own pieces suffer from the attacker on a square.
  int HarmFrom(int attacker) const {
    const BoardSquares& board = ThePosition().BoardState;
    return SumOver(ReachOf(board[attacker], attacker) & board.OfSide(side_), vulnerableWorths_);
  }

  /// What the own pieces are worth that the moving one protects from a square. All but a knight and
  /// a pawn reach their own square too, for nothing lies in their way there.
  int ProtectSum(Square square) const {
    const PieceCode kind = rules::KindOf(piece_);
    Bitboard reach = ReachOf(piece_, rules::IndexOf(square));
    if (kind != rules::WhiteKnight && kind != rules::WhitePawn) reach |= rules::BitOf(square);
    return SumOver(reach & ThePosition().BoardState.OfSide(side_), protectWorths_);
  }

  /// What is scored while the move stands on the board; nothing for checkmate.
  std::optional<int> WhilePlayed(Square from, Square to) const {
    const BoardSquares& board = ThePosition().BoardState;
    const Bitboard ownBefore = board.OfSide(side_);
    const Bitboard enemyBefore = board.OfSide(enemy_);
    const TestMove played(side_, from, to, lastMove_, sideInCheck_);
    int sum = 0;
    // The test move has seen already whether it gives check at all.
    if (played.SideInCheck() == enemy_) {
      const auto standing = rules::GameState(enemy_, true, played.SideInCheck(), {from, to});
      if (standing == Standing::Checkmate) return std::nullopt;
      sum += Motivation(GoForCheck);
    }
    const Bitboard taken = enemyBefore & ~board.OfSide(enemy_);
    const Bitboard changed = taken | (ownBefore ^ board.OfSide(side_));
    const Bitboard theirs = rules::AttackersOf(to, enemy_);
    Bitboard reaching = attackers_ | theirs;
    Bitboard others = changed & ~(rules::BitOf(from) | rules::BitOf(to));
    while (others != 0) {
      reaching |= rules::AttackersOf(rules::SquareAt(rules::TakeLowest(others)), enemy_);
    }
    return sum + VulnerableSum(taken, reaching & ~taken) + ProtectSum(to) +
           StandSum(side_, to, theirs, table_);
  }

  /// How far the own pieces are attacked now that the enemy's on `taken` are gone. No attackers do
  /// anything else than before but those `reaching` a square that the move has changed. It makes
  /// no difference whether they are sought before the move or after it: as far as the first such
  /// square their lines are the same.
  int VulnerableSum(Bitboard taken, Bitboard reaching) const {
    int sum = vulnerable_;
    while (taken != 0) sum -= harm_[rules::TakeLowest(taken)];
    while (reaching != 0) {
      const int attacker = rules::TakeLowest(reaching);
      sum += HarmFrom(attacker) - harm_[attacker];
    }
    return sum;
  }

  /// What counts only for a move that is played, on the board before it.
  int MoveSum(Square from, Square to) const {
    const PieceCode taken = ThePosition().BoardState.At(to);
    int sum = king_.RewardOf(from, to) + queen_.RewardOf(from, to) + centre_.RewardOf(from, to);
    sum += PieceMotivation(taken, Take, table_);
    if (rules::SideOfPiece(taken) == enemy_ && CountAttackers(enemy_, to) == 0) {
      sum += PieceMotivation(taken, TakeUndefended, table_);
    }
    return sum + Motivation(MoveAPiece + placeInMoves[rules::KindOf(piece_)]);
  }

  const HeuristicTable& table_;
  const Side side_;
  const Side enemy_ = rules::OtherSide(side_);
  const int sideInCheck_;
  const rules::LastMove lastMove_;
  const Standing standing_;
  const Goal king_{FindEnemy(rules::WhiteKing), lengthsCut, Motivation(CloserToKing)};
  const Goal queen_{FindEnemy(rules::WhiteQueen), lengthsCut,
                    rules::IsOnBoard(FindEnemy(rules::WhiteQueen)) ? Motivation(CloserToQueen) : 0};
  const Goal centre_{{4, 4}, lengthsRounded, Motivation(CloserToCentre)};
  const Worths vulnerableWorths_ = WorthsIn(Vulnerable, table_);
  const Worths protectWorths_ = WorthsIn(Protect, table_);
  std::array<int, 64> harm_;  // by the square of the attacker; elsewhere without a meaning
  int vulnerable_ = 0;
  // The piece whose moves are being scored.
  Square from_;
  PieceCode piece_ = rules::NoPiece;
  Bitboard attackers_ = 0;
  int stand_ = 0;
  int rights_ = 0;
};

}  // namespace

std::int16_t Saturate(int score) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<int>(score, Limits::min(), Limits::max()));
}

int PieceMotivation(PieceCode piece, HeuristicGroup group, const HeuristicTable& table) {
  const int place = placeInGroup[static_cast<std::size_t>(rules::KindOf(piece))];
  return place < 0 ? 0 : table[group + place];
}

int CountAttackers(Side side, Square square) {
  return rules::CountSquares(rules::AttackersOf(square, side));
}

int PinBonus(Side side, Square square, const HeuristicTable& table) {
  const BoardSquares& board = ThePosition().BoardState;
  const PieceCode pinner = board.At(square);
  const int from = rules::IndexOf(square);
  const Bitboard kings = board.Of(rules::OfSide(rules::WhiteKing, rules::OtherSide(side)));
  const Bitboard aimedAt = emptyReach[pinner][from] & kings;
  if (aimedAt == 0) return 0;
  int bonus = 0;
  for (std::size_t ray = 0; ray < rules::rayReach.size(); ++ray) {
    if ((rules::rayReach[ray][from] & aimedAt) != 0)
      bonus += PinsOnRay(side, pinner, from, ray, table);
  }
  return bonus;
}

int PinMotivation(PieceCode pinner, PieceCode pinned, const HeuristicTable& table) {
  switch (rules::KindOf(pinner)) {
    case rules::WhiteRook:
      return PieceMotivation(pinned, PinByRook, table);
    case rules::WhiteBishop:
      return PieceMotivation(pinned, PinByBishop, table);
    case rules::WhiteQueen:
      return PieceMotivation(pinned, PinByQueen, table);
    default:
      return 0;
  }
}

int CastlingRightsBonus(Side side, PieceCode piece, int fromX, const HeuristicTable& table) {
  rules::Position& position = ThePosition();
  const bool kingMoved = position.HasMoved(side, rules::KingItself);
  const PieceCode kind = rules::KindOf(piece);
  if (kind == rules::WhiteKing) return kingMoved ? 0 : table[MoveUncastledKing];
  if (kind != rules::WhiteRook || (fromX != 1 && fromX != 8)) return 0;
  const auto own = fromX == 1 ? rules::Column1Rook : rules::Column8Rook;
  const auto other = fromX == 1 ? rules::Column8Rook : rules::Column1Rook;
  if (kingMoved || position.HasMoved(side, own)) return 0;
  return table[position.HasMoved(side, other) ? MoveLastCastlingRook : MoveCastlingRook];
}

std::int16_t EvaluateMove(Square from, Square to, int sideInCheck, bool doMove,
                          rules::LastMove lastMove, const HeuristicTable& table) {
  const Side side = rules::SideOf(from);
  assert(side != rules::NoSide);
  Passes passes(side, sideInCheck, lastMove, table);
  return Saturate(doMove ? passes.Played(from, to) : passes.Before(from, to));
}

void ScoreCandidates(CandidateList& list, Side side, int sideInCheck, rules::LastMove lastMove,
                     const HeuristicTable& table, const std::atomic<bool>* cancelled) {
  Passes passes(side, sideInCheck, lastMove, table);
  for (CandidateMove& move : list) {
    if (cancelled && cancelled->load(std::memory_order_relaxed)) return;
    move.Score = Saturate(Saturate(passes.Played(move.from, move.to)) -
                          Saturate(passes.Before(move.from, move.to)));
  }
}

}  // namespace ai
