// SPDX-License-Identifier: GPL-3.0-or-later
// The legal moves of one piece. Their order is part of the contract: it decides which of several
// moves of equal score comes first.
#pragma once

#include <cstdint>
#include <vector>

#include "rules/position.h"

namespace ai {

struct CandidateMove {
  rules::Square from;
  rules::Square to;
  std::int16_t Score = 0;  ///< written by the search
};

using CandidateList = std::vector<CandidateMove>;

/// Appends the legal moves of the piece on `from`. A pawn's step onto the last row is one move.
void GenerateMoves(rules::Side side, rules::PieceCode piece, rules::Square from,
                   CandidateList& list, rules::LastMove lastMove, int sideInCheck);

/// Appends the legal moves of all pieces of `side`, row 1 first and column 1 first in each row.
void GenerateAllMoves(rules::Side side, CandidateList& list, rules::LastMove lastMove,
                      int sideInCheck);

}  // namespace ai
