// SPDX-License-Identifier: GPL-3.0-or-later
// What a move is worth to the side that makes it: the motivations of the Heuristics table that
// apply to it, added up. A pass scores the live position, before the move or with the move played;
// the difference of the two is the move's static score. Nothing is known here of material or of a
// position's worth by itself.
//
// The values come from a table that is handed in, the program's own where there is none: a search
// goes on with the one that it began with, whatever becomes of the program's.
//
// A score is computed as a whole number and saturates at the ends of 16 bits.
#pragma once

#include <atomic>
#include <cstdint>

#include "ai/candidates.h"
#include "ai/heuristics.h"
#include "rules/position.h"

namespace ai {

/// The first index of each five entries for Rook, Knight, Bishop, Queen and Pawn.
enum HeuristicGroup {
  Vulnerable = 1,
  Protect = 6,
  Take = 11,
  TakeUndefended = 22,
  AllowUndefended = 27,
  PinByBishop = 32,
  PinByRook = 37,
  PinByQueen = 42
};

/// The entries that are in no group of five.
enum HeuristicIndex {
  GoForCheck = 0,
  MoveAPiece = 16,  ///< Rook, Knight, Bishop, Queen, Pawn, King
  CloserToKing = 47,
  CloserToQueen = 48,
  CloserToCentre = 49,
  MoveLastCastlingRook = 50,
  MoveCastlingRook = 51,
  MoveUncastledKing = 52,
  PerformCastling = 53
};

/// What a pass scores where the move gives checkmate, whatever else there is.
inline constexpr int checkmateScore = 1000;

/// The entry's index for the kind of `piece`, of either colour; -1 for an empty square and a king.
int MotivationOf(rules::PieceCode piece, HeuristicGroup group);

/// The entry's index for a move of `piece`.
int MotivationToMove(rules::PieceCode piece);

/// The entry for the kind of `piece`, of either colour; 0 for an empty square and for a king.
int PieceMotivation(rules::PieceCode piece, HeuristicGroup group,
                    const HeuristicTable& table = Heuristics);

/// The pieces of `side` that attack or defend the square, whatever stands there.
int CountAttackers(rules::Side side, rules::Square square);

/// What the piece of `side` on the square earns for pinning enemy pieces to their king.
int PinBonus(rules::Side side, rules::Square square, const HeuristicTable& table = Heuristics);

int PinMotivation(rules::PieceCode pinner, rules::PieceCode pinned,
                  const HeuristicTable& table = Heuristics);

/// Which of the three motivations to keep castling open a move of this piece touches; -1 for none.
int CastlingMotivation(rules::Side side, rules::PieceCode piece, int fromX);

/// Its value, or 0.
int CastlingRightsBonus(rules::Side side, rules::PieceCode piece, int fromX,
                        const HeuristicTable& table = Heuristics);

/// The score of one pass. Leaves the position as it was.
std::int16_t EvaluateMove(rules::Square from, rules::Square to, int sideInCheck, bool doMove,
                          rules::LastMove lastMove, const HeuristicTable& table = Heuristics);

/// Scores the moves of one position: EvaluateMove of each with the move played, less EvaluateMove
/// before it. What the moves have in common is worked out once. Leaves off when `cancelled`, where
/// given, becomes true.
void ScoreCandidates(CandidateList& list, rules::Side side, int sideInCheck,
                     rules::LastMove lastMove, const HeuristicTable& table = Heuristics,
                     const std::atomic<bool>* cancelled = nullptr);

/// A score in 16 bits; what lies beyond them becomes the nearest that doesn't.
std::int16_t Saturate(int score);

}  // namespace ai
