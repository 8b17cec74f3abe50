// SPDX-License-Identifier: GPL-3.0-or-later
// The computer opponent as one would write it down: squares walked, ValidMove asked, nothing shared
// and nothing remembered. It is slow, and the measure for the program's own.
#pragma once

#include <cstdint>

#include "ai/candidates.h"
#include "rules/position.h"

namespace ai::literal {

/// Appends the legal moves of the piece on the square, in the order of the contract.
void GenerateMoves(rules::Side side, rules::PieceCode piece, int x, int y, CandidateList& list,
                   rules::LastMove lastMove, int sideInCheck);

/// Appends the legal moves of all pieces of `side`.
void GenerateAllMoves(rules::Side side, CandidateList& list, rules::LastMove lastMove,
                      int sideInCheck);

int CountAttackers(rules::Side side, int x, int y, int sideInCheck);
int PinBonus(rules::Side side, int x, int y);
std::int16_t EvaluateMove(int fromX, int fromY, int toX, int toY, int sideInCheck, bool doMove,
                          rules::LastMove lastMove);

/// The value of a node. `list` is the root's in its final order; `considered` counts up.
int SearchBestMove(int maxDepth, int ply, rules::Side computerSide, rules::Side side,
                   rules::LastMove lastMove, int sideInCheck, std::uint64_t seed,
                   std::uint64_t path, CandidateList& list, std::int64_t& considered);

}  // namespace ai::literal
