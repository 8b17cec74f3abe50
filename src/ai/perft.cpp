// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/perft.h"

#include "ai/candidates.h"
#include "rules/test_moves.h"

namespace ai {

std::int64_t CountMoveSequences(rules::Side side, int depth, rules::LastMove lastMove,
                                int sideInCheck) {
  if (depth == 0) return 1;
  CandidateList list;
  GenerateAllMoves(side, list, lastMove, sideInCheck);
  if (depth == 1) return static_cast<std::int64_t>(list.size());
  std::int64_t sequences = 0;
  for (const CandidateMove& move : list) {
    const rules::PieceCode piece = rules::ThePosition().BoardState.At(move.from);
    rules::MakeTestMove(side, move.from, move.to, piece, lastMove, sideInCheck);
    sequences +=
        CountMoveSequences(rules::OtherSide(side), depth - 1, {move.from, move.to}, sideInCheck);
    rules::UndoTestMove(sideInCheck);
  }
  return sequences;
}

}  // namespace ai
