// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/perft.h"

#include <vector>

#include "ai/candidates.h"
#include "rules/test_moves.h"

namespace ai {
namespace {

/// `lists` has one for each ply, kept for its memory.
std::int64_t Count(rules::Side side, int depth, rules::LastMove lastMove, int sideInCheck,
                   std::vector<CandidateList>& lists) {
  if (depth == 0) return 1;
  CandidateList& list = lists[static_cast<std::size_t>(depth) - 1];
  list.clear();
  GenerateAllMoves(side, list, lastMove, sideInCheck);
  if (depth == 1) return static_cast<std::int64_t>(list.size());
  std::int64_t sequences = 0;
  for (const CandidateMove& move : list) {
    const rules::PieceCode piece = rules::ThePosition().BoardState.At(move.from);
    rules::MakeTestMove(side, move.from, move.to, piece, lastMove, sideInCheck);
    sequences += Count(rules::OtherSide(side), depth - 1, {move.from, move.to}, sideInCheck, lists);
    rules::UndoTestMove(sideInCheck);
  }
  return sequences;
}

}  // namespace

std::int64_t CountMoveSequences(rules::Side side, int depth, rules::LastMove lastMove,
                                int sideInCheck) {
  std::vector<CandidateList> lists(static_cast<std::size_t>(depth));
  return Count(side, depth, lastMove, sideInCheck, lists);
}

}  // namespace ai
