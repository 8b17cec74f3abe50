// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/perft.h"

#include "rules/legal_moves.h"
#include "rules/test_moves.h"

namespace ai {
namespace {

std::int64_t Count(rules::Side side, int depth, rules::LastMove lastMove, int sideInCheck) {
  if (depth == 0) return 1;
  const rules::LegalMoves moves(side, lastMove, sideInCheck);
  if (depth == 1) return moves.Count();
  const rules::BoardSquares& board = rules::ThePosition().BoardState;
  std::int64_t sequences = 0;
  for (rules::Bitboard pieces = board.OfSide(side); pieces != 0;) {
    const rules::Square from = rules::SquareAt(rules::TakeLowest(pieces));
    for (rules::Bitboard targets = moves.From(from); targets != 0;) {
      const rules::Square to = rules::SquareAt(rules::TakeLowest(targets));
      rules::MakeTestMove(side, from, to, board.At(from), lastMove, sideInCheck);
      sequences += Count(rules::OtherSide(side), depth - 1, {from, to}, sideInCheck);
      rules::UndoTestMove(sideInCheck);
    }
  }
  return sequences;
}

}  // namespace

std::int64_t CountMoveSequences(rules::Side side, int depth, rules::LastMove lastMove,
                                int sideInCheck) {
  return Count(side, depth, lastMove, sideInCheck);
}

}  // namespace ai
