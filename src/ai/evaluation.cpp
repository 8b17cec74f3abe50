// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/evaluation.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdlib>
#include <limits>
#include <optional>

#include "ai/goal.h"
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

/// The place of a kind in a group of five; -1 for an empty square and a king.
constexpr std::array<int, 7> placeInGroup{-1, 0, 1, 2, 3, -1, 4};

/// The place of a kind among those that move.
constexpr std::array<int, 7> placeInMoves{-1, 0, 1, 2, 3, 5, 4};

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
Bitboard ReachOf(PieceCode piece, int from, Bitboard occupied) {
  return emptyReach[piece][from] &
         (rules::ReachStraight(from, occupied) | rules::ReachDiagonally(from, occupied) |
          rules::knightReach[from]);
}

int PinsOnRay(Side side, PieceCode pinner, int from, std::size_t ray, Bitboard occupied,
              const HeuristicTable& table) {
  const BoardSquares& board = ThePosition().BoardState;
  const PieceCode enemyKing = rules::OfSide(rules::WhiteKing, rules::OtherSide(side));
  PieceCode first = rules::NoPiece;
  Bitboard met = rules::rayReach[ray][from] & occupied;
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

/// PinBonus of a piece, wherever it is, that would stand on a square, where rays meet what stands
/// on `occupied`.
int PinsFrom(Side side, PieceCode pinner, Square square, Bitboard occupied,
             const HeuristicTable& table) {
  const BoardSquares& board = ThePosition().BoardState;
  const int from = rules::IndexOf(square);
  const Bitboard kings = board.Of(rules::OfSide(rules::WhiteKing, rules::OtherSide(side)));
  const Bitboard aimedAt = emptyReach[pinner][from] & kings;
  if (aimedAt == 0) return 0;
  int bonus = 0;
  for (std::size_t ray = 0; ray < rules::rayReach.size(); ++ray) {
    if ((rules::rayReach[ray][from] & aimedAt) != 0) {
      bonus += PinsOnRay(side, pinner, from, ray, occupied, table);
    }
  }
  return bonus;
}

/// The ray on which a square lies, seen from another on a line with it.
std::size_t RayBetween(Square from, Square to) {
  constexpr std::size_t rays[3][3] = {{4, 0, 5}, {2, 8, 3}, {6, 1, 7}};  // by step of x and of y
  const auto step = [](int a, int b) { return 1 + (b > a) - (b < a); };
  return rays[step(from.x, to.x)][step(from.y, to.y)];
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
///
/// Played and Before are the passes as they are told. Nearly all moves change no squares but their
/// own two and give no check: the difference that these make is worked out from the position as it
/// stands, of which little changes, without playing them.
class Passes {
 public:
  Passes(Side side, int sideInCheck, rules::LastMove lastMove, const HeuristicTable& table)
      : table_(table),
        side_(side),
        sideInCheck_(sideInCheck),
        lastMove_(lastMove),
        standing_(rules::GameState(enemy_, true, sideInCheck)) {
    Bitboard attackers = Board().OfSide(enemy_);
    while (attackers != 0) {
      const int from = rules::TakeLowest(attackers);
      Bitboard reach = ReachOf(Board()[from], from, Board().Occupied());
      harm_[from] = SumOver(reach & Board().OfSide(side_), vulnerableWorths_);
      vulnerable_ += harm_[from];
      while (reach != 0) attackersOn_[rules::TakeLowest(reach)] |= Bitboard{1} << from;
    }
  }

  /// The move's static score.
  std::int16_t ScoreOf(Square from, Square to) {
    TurnTo(from);
    if (const auto score = QuietScore(from, to)) return *score;
    return Saturate(Saturate(Played(from, to)) - Saturate(Before(from, to)));
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

  const BoardSquares& Board() const { return ThePosition().BoardState; }

  void TurnTo(Square from) {
    if (from == from_) return;
    from_ = from;
    piece_ = Board().At(from);
    attackers_ = attackersOn_[rules::IndexOf(from)];
    stand_ = StandSum(from, attackers_, Board().Occupied());
    rights_ = CastlingRightsBonus(side_, piece_, from.x, table_);
    const PieceCode kind = rules::KindOf(piece_);
    isSlider_ = kind == rules::WhiteRook || kind == rules::WhiteBishop || kind == rules::WhiteQueen;
    mayOpenLine_ = (kingLines_ & rules::BitOf(from)) != 0;
  }

  /// What the place is worth on which the moving piece stands in a pass, under attack by `theirs`.
  int StandSum(Square square, Bitboard theirs, Bitboard occupied) const {
    // Where the move isn't played, the piece doesn't defend itself from where it comes.
    const bool defended =
        theirs == 0 || (rules::AttackersOf(square, side_, occupied) & occupied) != 0;
    return defended ? PinsFrom(side_, piece_, square, occupied, table_)
                    : allowUndefendedWorths_[piece_];
  }

  /// How far the own pieces are attacked.
  int VulnerableSum() const {
    int sum = 0;
    Bitboard attackers = Board().OfSide(enemy_);
    while (attackers != 0) {
      const int from = rules::TakeLowest(attackers);
      const Bitboard reach = ReachOf(Board()[from], from, Board().Occupied());
      sum += SumOver(reach & Board().OfSide(side_), vulnerableWorths_);
    }
    return sum;
  }

  /// What the own pieces are worth that the moving one protects from a square. All but a knight and
  /// a pawn reach their own square too, for nothing lies in their way there.
  int ProtectSum(Square square) const {
    Bitboard reach = ReachOf(piece_, rules::IndexOf(square), Board().Occupied());
    if (ReachesItself()) reach |= rules::BitOf(square);
    return SumOver(reach & Board().OfSide(side_), protectWorths_);
  }

  bool ReachesItself() const { return isSlider_ || rules::KindOf(piece_) == rules::WhiteKing; }

  /// Whether the move changes more squares than its own two.
  bool MovesTwoPieces(Square from, Square to) const {
    const PieceCode kind = rules::KindOf(piece_);
    if (kind == rules::WhiteKing) return std::abs(from.x - to.x) > 1;
    return kind == rules::WhitePawn && rules::TakesEnPassant(from, to, lastMove_, side_);
  }

  /// Whether the piece that leaves its square lets another one attack the enemy's king.
  bool OpensLine(Bitboard occupied) const {
    return mayOpenLine_ && (rules::AttackersOf(enemyKing_, side_, occupied) & occupied) != 0;
  }

  /// The static score of a move that changes no squares but its own two and gives no check; nothing
  /// for others.
  std::optional<std::int16_t> QuietScore(Square from, Square to) const {
    if (standing_ != Standing::Neither || MovesTwoPieces(from, to)) return std::nullopt;
    const int at = rules::IndexOf(to);
    const Bitboard occupied = (Board().Occupied() ^ rules::BitOf(from)) | rules::BitOf(to);
    const Bitboard reach = isSlider_ ? ReachOf(piece_, at, occupied) : emptyReach[piece_][at];
    if ((reach & enemyKingBit_) != 0 || OpensLine(occupied)) return std::nullopt;

    // An attacker of the square that is left may see beyond it now.
    const Bitboard theirs =
        attackers_ == 0 ? attackersOn_[at] : rules::AttackersOf(to, enemy_, occupied);
    const Bitboard others = Board().OfSide(side_) ^ rules::BitOf(from);
    const int protect = SumOver(reach & others, protectWorths_) + rights_;
    const int before = vulnerable_ + stand_ + protect + ProtectedBefore(from, to);
    const int played = VulnerableAfter(to, attackers_ | theirs, occupied, others) +
                       StandSum(to, theirs, occupied) + protect +
                       (ReachesItself() ? protectWorths_[piece_] : 0) + MoveSum(from, to);
    return Saturate(Saturate(played) - Saturate(before));
  }

  /// How far the own pieces, the moved one and the `others`, are attacked after such a move. Of the
  /// attackers none but those of its two squares do anything else than before, and the one that it
  /// takes does nothing.
  int VulnerableAfter(Square to, Bitboard attackers, Bitboard occupied, Bitboard others) const {
    const Bitboard toBit = rules::BitOf(to);
    int sum = vulnerable_ - harm_[rules::IndexOf(to)];
    attackers &= ~toBit;
    while (attackers != 0) {
      const int from = rules::TakeLowest(attackers);
      const Bitboard reach = ReachOf(Board()[from], from, occupied);
      sum += SumOver(reach & others, vulnerableWorths_) - harm_[from];
      if ((reach & toBit) != 0) sum += vulnerableWorths_[piece_];
    }
    return sum;
  }

  /// What the piece protects from a square while it still stands on `from`, beyond the others that
  /// it protects from there afterwards: itself, where it sees that square, less what it hides.
  int ProtectedBefore(Square from, Square to) const {
    if (rules::KindOf(piece_) == rules::WhitePawn) return 0;
    int sum = protectWorths_[piece_];
    if (!isSlider_) return sum;
    const std::size_t ray = RayBetween(to, from);
    const Bitboard hidden = rules::rayReach[ray][rules::IndexOf(from)] & Board().Occupied();
    if (hidden == 0) return sum;
    const PieceCode first = Board()[rules::NearestOnRay(hidden, ray)];
    return rules::SideOfPiece(first) == side_ ? sum - protectWorths_[first] : sum;
  }

  /// What is scored while the move stands on the board; nothing for checkmate.
  std::optional<int> WhilePlayed(Square from, Square to) const {
    const TestMove played(side_, from, to, lastMove_, sideInCheck_);
    int sum = 0;
    // The test move has seen already whether it gives check at all.
    if (played.SideInCheck() == enemy_) {
      const auto standing = rules::GameState(enemy_, true, played.SideInCheck(), {from, to});
      if (standing == Standing::Checkmate) return std::nullopt;
      sum += Motivation(GoForCheck);
    }
    return sum + VulnerableSum() + ProtectSum(to) +
           StandSum(to, rules::AttackersOf(to, enemy_), Board().Occupied());
  }

  /// What counts only for a move that is played, on the board before it.
  int MoveSum(Square from, Square to) const {
    const PieceCode taken = Board().At(to);
    int sum = king_.RewardOf(from, to) + queen_.RewardOf(from, to) + centre_.RewardOf(from, to);
    sum += PieceMotivation(taken, Take, table_);
    if (rules::SideOfPiece(taken) == enemy_ && attackersOn_[rules::IndexOf(to)] == 0) {
      sum += PieceMotivation(taken, TakeUndefended, table_);
    }
    return sum + Motivation(MotivationToMove(piece_));
  }

  const HeuristicTable& table_;
  const Side side_;
  const Side enemy_ = rules::OtherSide(side_);
  const int sideInCheck_;
  const rules::LastMove lastMove_;
  const Standing standing_;
  const Square enemyKing_ = FindEnemy(rules::WhiteKing);
  const Square enemyQueen_ = FindEnemy(rules::WhiteQueen);
  const Bitboard enemyKingBit_ = rules::IsOnBoard(enemyKing_) ? rules::BitOf(enemyKing_) : 0;
  /// Where a piece may stand in another's way to the enemy's king.
  const Bitboard kingLines_ =
      enemyKingBit_ == 0 ? 0 : emptyReach[rules::WhiteQueen][rules::IndexOf(enemyKing_)];
  const Goal king_{lengthsCut[enemyKing_.x][enemyKing_.y], Motivation(CloserToKing)};
  const Goal queen_{lengthsCut[enemyQueen_.x][enemyQueen_.y],
                    rules::IsOnBoard(enemyQueen_) ? Motivation(CloserToQueen) : 0};
  const Goal centre_{lengthsToCentre, Motivation(CloserToCentre)};
  const Worths vulnerableWorths_ = WorthsIn(Vulnerable, table_);
  const Worths protectWorths_ = WorthsIn(Protect, table_);
  const Worths allowUndefendedWorths_ = WorthsIn(AllowUndefended, table_);
  std::array<Bitboard, 64> attackersOn_{};  // the enemy's, by square
  std::array<int, 64> harm_{};              // to the own pieces, by the square of the attacker
  int vulnerable_ = 0;
  // The piece whose moves are being scored.
  Square from_;
  PieceCode piece_ = rules::NoPiece;
  Bitboard attackers_ = 0;
  bool isSlider_ = false;
  bool mayOpenLine_ = false;
  int stand_ = 0;
  int rights_ = 0;
};

}  // namespace

std::int16_t Saturate(int score) {
  using Limits = std::numeric_limits<std::int16_t>;
  return static_cast<std::int16_t>(std::clamp<int>(score, Limits::min(), Limits::max()));
}

int MotivationOf(PieceCode piece, HeuristicGroup group) {
  const int place = placeInGroup[static_cast<std::size_t>(rules::KindOf(piece))];
  return place < 0 ? place : group + place;
}

int MotivationToMove(PieceCode piece) { return MoveAPiece + placeInMoves[rules::KindOf(piece)]; }

int PieceMotivation(PieceCode piece, HeuristicGroup group, const HeuristicTable& table) {
  const int index = MotivationOf(piece, group);
  return index < 0 ? 0 : table[index];
}

int CountAttackers(Side side, Square square) {
  return rules::CountSquares(rules::AttackersOf(square, side));
}

int PinBonus(Side side, Square square, const HeuristicTable& table) {
  const BoardSquares& board = ThePosition().BoardState;
  return PinsFrom(side, board.At(square), square, board.Occupied(), table);
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

int CastlingMotivation(Side side, PieceCode piece, int fromX) {
  rules::Position& position = ThePosition();
  const bool kingMoved = position.HasMoved(side, rules::KingItself);
  const PieceCode kind = rules::KindOf(piece);
  if (kind == rules::WhiteKing) return kingMoved ? -1 : MoveUncastledKing;
  if (kind != rules::WhiteRook || (fromX != 1 && fromX != 8)) return -1;
  const auto own = fromX == 1 ? rules::Column1Rook : rules::Column8Rook;
  const auto other = fromX == 1 ? rules::Column8Rook : rules::Column1Rook;
  if (kingMoved || position.HasMoved(side, own)) return -1;
  return position.HasMoved(side, other) ? MoveLastCastlingRook : MoveCastlingRook;
}

int CastlingRightsBonus(Side side, PieceCode piece, int fromX, const HeuristicTable& table) {
  const int index = CastlingMotivation(side, piece, fromX);
  return index < 0 ? 0 : table[index];
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
    move.Score = passes.ScoreOf(move.from, move.to);
  }
}

}  // namespace ai
