// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/reasons.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <numeric>
#include <tuple>

#include "ai/evaluation.h"
#include "ai/goal.h"
#include "rules/attack.h"
#include "rules/piece_moves.h"
#include "rules/position_guard.h"
#include "rules/test_moves.h"

namespace ai {

using rules::Bitboard;
using rules::LastMove;
using rules::PieceCode;
using rules::Side;
using rules::Square;
using rules::Standing;
using rules::ThePosition;

namespace {

using Reasons = std::vector<Reason>;

Placed PieceOn(Square square) { return {ThePosition().BoardState.At(square), square}; }

template <typename Take>
void ForEach(Bitboard squares, const Take& take) {
  while (squares != 0) take(rules::SquareAt(rules::TakeLowest(squares)));
}

int SumOf(const Reasons& reasons) {
  return std::accumulate(reasons.begin(), reasons.end(), 0,
                         [](int sum, const Reason& reason) { return sum + reason.points; });
}

/// Collects reasons at the values of a table. What has none there is no reason.
class Collection {
 public:
  explicit Collection(const HeuristicTable& table) : table_(table) {}

  /// No motivation has an index below 0.
  void Add(int kind, Placed doer, Placed target) {
    if (kind >= 0) Add(kind, table_[kind], false, doer, target);
  }
  void Add(int kind, int points, bool ends, Placed doer, Placed target) {
    if (points != 0) found_.push_back({kind, points, ends, doer, target});
  }

 protected:
  const HeuristicTable& table_;
  Reasons found_;
};

/// What counts for one side on the board as it stands, before a move or behind it.
class Sights : Collection {
 public:
  Sights(Side side, LastMove move, const HeuristicTable& table)
      : Collection(table), side_(side), move_(move) {}

  /// In the pass without the move the piece stands on `stand` still, but protects from where it
  /// goes. `rights` is the motivation to keep castling open that the move touches; it counts as
  /// long as nobody is mated, and is a reason only where one pass ends so.
  Reasons Seen(PieceCode mover, Square stand, Standing standing, int rights) {
    const Square enemyKing = rules::FindPiece(rules::OfSide(rules::WhiteKing, enemy_));
    if (standing == Standing::Checkmate) {
      Add(GivesMate, checkmateScore, false, PieceOn(stand), PieceOn(enemyKing));
      return found_;
    }
    if (standing == Standing::Check) Add(GoForCheck, PieceOn(stand), PieceOn(enemyKing));
    AddVulnerable();
    AddProtected(mover, stand);
    AddStand(stand);
    Add(rights, PieceOn(stand), {});
    if (rules::DetectCastling(side_, move_.from, move_.to) != rules::Castling::None) {
      Add(PerformCastling, PieceOn(stand), {rules::NoPiece, move_.to});
    }
    return found_;
  }

 private:
  Bitboard Own() const { return ThePosition().BoardState.OfSide(side_); }

  void AddVulnerable() {
    ForEach(Own(), [this](Square own) {
      const Placed target = PieceOn(own);
      ForEach(rules::AttackersOf(own, enemy_), [&](Square from) {
        Add(MotivationOf(target.piece, Vulnerable), PieceOn(from), target);
      });
    });
  }

  void AddProtected(PieceCode mover, Square stand) {
    ForEach(ProtectedBy(mover), [&](Square own) {
      const Placed doer{mover, own == stand ? stand : move_.to};
      Add(MotivationOf(PieceOn(own).piece, Protect), doer, PieceOn(own));
    });
  }

  /// The own squares that the piece reaches from where it goes. All but knights and pawns reach the
  /// square itself, too, for nothing lies in their way there.
  Bitboard ProtectedBy(PieceCode mover) const {
    const PieceCode kind = rules::KindOf(mover);
    const bool reachesItself = kind != rules::WhiteKnight && kind != rules::WhitePawn;
    Bitboard reached = reachesItself ? Own() & rules::BitOf(move_.to) : 0;
    const Bitboard own = Own();
    const rules::BoardGuard guard;
    ThePosition().BoardState.Put(move_.to, mover);
    ForEach(own & ~rules::BitOf(move_.to), [&](Square square) {
      if ((rules::AttackersOf(square, side_) & rules::BitOf(move_.to)) != 0) {
        reached |= rules::BitOf(square);
      }
    });
    return reached;
  }

  void AddStand(Square stand) {
    const bool defended = rules::AttackersOf(stand, side_) != 0;
    const Bitboard theirs = rules::AttackersOf(stand, enemy_);
    if (theirs == 0 || defended) return AddPins(PieceOn(stand));
    const Square attacker = rules::SquareAt(std::countr_zero(theirs));
    Add(MotivationOf(PieceOn(stand).piece, AllowUndefended), PieceOn(attacker), PieceOn(stand));
  }

  void AddPins(Placed pinner) {
    const PieceCode kind = rules::KindOf(pinner.piece);
    const bool straight = kind == rules::WhiteRook || kind == rules::WhiteQueen;
    const bool diagonal = kind == rules::WhiteBishop || kind == rules::WhiteQueen;
    for (std::size_t ray = 0; ray < rules::rayReach.size(); ++ray) {
      if (ray < rules::firstDiagonalRay ? straight : diagonal) AddPinOn(ray, pinner);
    }
  }

  void AddPinOn(std::size_t ray, Placed pinner) {
    Bitboard met =
        rules::rayReach[ray][rules::IndexOf(pinner.square)] & ThePosition().BoardState.Occupied();
    Placed first;
    while (met != 0) {
      const Placed here = PieceOn(rules::SquareAt(rules::NearestOnRay(met, ray)));
      met ^= rules::BitOf(here.square);
      if (rules::SideOfPiece(here.piece) == side_) return;
      const bool isKing = rules::KindOf(here.piece) == rules::WhiteKing;
      if (isKing && first.piece != rules::NoPiece) {
        return Add(MotivationOf(first.piece, PinGroupOf(pinner.piece)), pinner, first);
      }
      if (!isKing && first.piece == rules::NoPiece) first = here;
    }
  }

  static HeuristicGroup PinGroupOf(PieceCode pinner) {
    const PieceCode kind = rules::KindOf(pinner);
    if (kind == rules::WhiteRook) return PinByRook;
    return kind == rules::WhiteBishop ? PinByBishop : PinByQueen;
  }

  const Side side_;
  const Side enemy_ = rules::OtherSide(side_);
  const LastMove move_;
};

/// Two sights are the same where the pieces are: the one that moves is so on both of its squares.
class SameSight {
 public:
  explicit SameSight(LastMove move) : move_(move) {}

  bool operator()(const Reason& a, const Reason& b) const { return KeyOf(a) < KeyOf(b); }

 private:
  int PlaceOf(const Placed& placed) const {
    return NumberOf(placed.square == move_.from ? move_.to : placed.square);
  }
  std::tuple<int, int, int> KeyOf(const Reason& reason) const {
    return {reason.kind, PlaceOf(reason.doer), PlaceOf(reason.target)};
  }

  LastMove move_;
};

/// What the move brings, and what it ends.
Reasons Changes(Reasons before, Reasons after, LastMove move) {
  const SameSight order(move);
  std::sort(before.begin(), before.end(), order);
  std::sort(after.begin(), after.end(), order);
  Reasons brought, ended;
  std::set_difference(after.begin(), after.end(), before.begin(), before.end(),
                      std::back_inserter(brought), order);
  std::set_difference(before.begin(), before.end(), after.begin(), after.end(),
                      std::back_inserter(ended), order);
  for (Reason& reason : ended) {
    reason.ends = true;
    reason.points = -reason.points;
  }
  brought.insert(brought.end(), ended.begin(), ended.end());
  return brought;
}

/// Mate counts alone: what there was before becomes one reason.
Reasons ChangesByMate(const Reasons& before, const Reasons& after) {
  Reasons changes = after;
  if (const int rest = SumOf(before); rest != 0) {
    changes.push_back({OverruledByMate, -rest, false, {}, {}});
  }
  return changes;
}

/// What counts for the move itself, on the board before it.
class OwnReasons : Collection {
 public:
  OwnReasons(Side side, LastMove move, const HeuristicTable& table, PieceCode arrives)
      : Collection(table),
        enemy_(rules::OtherSide(side)),
        move_(move),
        mover_(PieceOn(move.from)),
        arrives_(arrives) {}

  Reasons All() {
    const Placed king = EnemyPiece(rules::WhiteKing), queen = EnemyPiece(rules::WhiteQueen);
    AddNearing(CloserToKing, lengthsCut[king.square.x][king.square.y], king);
    if (IsOnBoard(queen.square)) {
      AddNearing(CloserToQueen, lengthsCut[queen.square.x][queen.square.y], queen);
    }
    AddNearing(CloserToCentre, lengthsToCentre, {rules::NoPiece, {4, 4}});
    AddTaking(PieceOn(move_.to));
    Add(MotivationToMove(mover_.piece), mover_, {rules::NoPiece, move_.to});
    return found_;
  }

 private:
  Placed EnemyPiece(PieceCode kind) const {
    const PieceCode piece = rules::OfSide(kind, enemy_);
    return {piece, rules::FindPiece(piece)};
  }

  void AddNearing(int kind, const Lengths& lengths, Placed target) {
    const int points = Goal(lengths, table_[kind]).RewardOf(move_.from, move_.to);
    const bool grows = lengths[rules::IndexOf(move_.to)] > lengths[rules::IndexOf(move_.from)];
    Add(kind, points, grows, {arrives_, move_.to}, target);
  }

  void AddTaking(Placed taken) {
    Add(MotivationOf(taken.piece, Take), mover_, taken);
    const bool isEnemy = rules::SideOfPiece(taken.piece) == enemy_;
    if (isEnemy && CountAttackers(enemy_, taken.square) == 0) {
      Add(MotivationOf(taken.piece, TakeUndefended), mover_, taken);
    }
  }

  const Side enemy_;
  const LastMove move_;
  const Placed mover_;
  const PieceCode arrives_;
};

/// As the evaluation cuts both passes, and what is between them.
int ScoreOfPasses(int before, int after) { return Saturate(Saturate(after) - Saturate(before)); }

/// Both passes on the live position.
struct BothPasses {
  Reasons before;
  Reasons after;
};

BothPasses SeeBoth(const Moment& moment, LastMove move, const HeuristicTable& table,
                   PieceCode arrives) {
  const PieceCode mover = ThePosition().BoardState.At(move.from);
  const Side enemy = rules::OtherSide(moment.side);
  const int rights = CastlingMotivation(moment.side, mover, move.from.x);
  const auto see = [&](PieceCode piece, Square stand, Standing standing) {
    return Sights(moment.side, move, table).Seen(piece, stand, standing, rights);
  };
  int sideInCheck = ThePosition().SideInCheck;
  BothPasses seen;
  seen.before = see(mover, move.from, rules::GameState(enemy, true, sideInCheck));
  rules::MakeTestMove(moment.side, move.from, move.to, mover, moment.lastMove, sideInCheck);
  {
    const rules::BoardGuard pawn;
    if (arrives != mover) {
      ThePosition().BoardState.Put(move.to, arrives);
      sideInCheck = rules::IsInCheck(enemy) ? enemy : rules::NobodyInCheck;
    }
    seen.after = see(arrives, move.to, rules::GameState(enemy, true, sideInCheck, move));
  }
  rules::UndoTestMove(sideInCheck);
  return seen;
}

bool IsMate(const Reasons& seen) { return seen.size() == 1 && seen.front().kind == GivesMate; }

}  // namespace

MoveReasons ReasonsFor(const Moment& moment, LastMove move, const HeuristicTable& table,
                       PieceCode becomes) {
  const rules::PositionGuard guard;
  ThePosition() = moment.position;
  const PieceCode arrives =
      becomes == rules::NoPiece ? ThePosition().BoardState.At(move.from) : becomes;
  const auto [before, after] = SeeBoth(moment, move, table, arrives);
  MoveReasons result;
  if (IsMate(after)) {
    result.reasons = ChangesByMate(before, after);
  } else {
    const Reasons own = OwnReasons(moment.side, move, table, arrives).All();
    result.reasons = Changes(before, after, move);
    result.reasons.insert(result.reasons.end(), own.begin(), own.end());
  }
  const int sum = SumOf(result.reasons), sumBefore = SumOf(before);
  result.score = ScoreOfPasses(sumBefore, sumBefore + sum);
  if (result.score != sum) {
    result.reasons.push_back({BeyondLimits, result.score - sum, false, {}, {}});
  }
  std::stable_sort(
      result.reasons.begin(), result.reasons.end(),
      [](const Reason& a, const Reason& b) { return std::abs(a.points) > std::abs(b.points); });
  return result;
}

CandidateList MovesOf(const Moment& moment) {
  const rules::PositionGuard guard;
  ThePosition() = moment.position;
  CandidateList moves;
  GenerateAllMoves(moment.side, moves, moment.lastMove, moment.position.SideInCheck);
  return moves;
}

}  // namespace ai
