// SPDX-License-Identifier: GPL-3.0-or-later
// Why a move scores as it does: each thing on the board that a motivation counts, as one reason
// with its points. What holds before and after the move alike is no reason for it, and neither is
// what is worth nothing. The points of all reasons make up the move's static score exactly, which
// a test asserts.
//
// These are the evaluation's own two passes, told slowly. Whatever is changed there has to be
// changed here.
#pragma once

#include <vector>

#include "ai/candidates.h"
#include "ai/heuristics.h"
#include "ai/moment.h"

namespace ai {

/// What counts beside the motivations, numbered on behind them.
enum OtherReason {
  GivesMate = heuristicCount,
  OverruledByMate,  ///< what the rest would have come to
  BeyondLimits      ///< what a score of 16 bits can't hold
};
inline constexpr int reasonKindCount = heuristicCount + 3;

/// A piece on its square, or the square alone.
struct Placed {
  rules::PieceCode piece = rules::NoPiece;
  rules::Square square;
};

struct Reason {
  int kind = 0;  ///< the motivation's index in Heuristics, or one of OtherReason
  int points = 0;
  bool ends = false;  ///< the move puts an end to it; of a distance: it grows
  Placed doer;        ///< where it stands while the reason holds
  Placed target;      ///< what it attacks, protects, takes, pins, nears; it may be the doer itself
};

struct MoveReasons {
  std::vector<Reason> reasons;  ///< the strongest first, for or against
  int score = 0;                ///< as ScoreCandidates has it
};

/// The reasons for and against a legal move. The live position is left as it was. A pawn on the
/// last row stays one, as the evaluation has it, but where it is told what it `becomes`: then the
/// reasons are those of the new piece, and the score is theirs alone.
MoveReasons ReasonsFor(const Moment& moment, rules::LastMove move,
                       const HeuristicTable& table = Heuristics,
                       rules::PieceCode becomes = rules::NoPiece);

/// The legal moves of the moment. The live position is left as it was.
CandidateList MovesOf(const Moment& moment);

}  // namespace ai
