// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/evaluation.h"

#include <gtest/gtest.h>

#include "ai/literal_opponent.h"
#include "ai/random_positions.h"

namespace ai {
namespace {

#ifdef TARVOLENIX_SANITIZED
constexpr int positions = 2000;
#else
constexpr int positions = 100000;
#endif

TEST(EvaluationTest, AgreesWithTheLiteralOpponentScoreForScore) {
  RandomPositions source;
  SortsMet sorts;
  std::size_t moves = 0, mates = 0, saturated = 0;
  for (int n = 0; n < positions; ++n) {
    const auto turn = source.Next();
    CandidateList list;
    GenerateAllMoves(turn.side, list, turn.lastMove, turn.sideInCheck);
    sorts.Note(turn, list);
    const rules::Untouched before;
    ScoreCandidates(list, turn.side, turn.sideInCheck, turn.lastMove);
    for (const CandidateMove& move : list) {
      const auto literal = [&](bool doMove) {
        return literal::EvaluateMove(move.from.x, move.from.y, move.to.x, move.to.y,
                                     turn.sideInCheck, doMove, turn.lastMove);
      };
      const std::int16_t with = literal(true), without = literal(false);
      ASSERT_EQ(move.Score, Saturate(with - without))
          << "position " << n << " " << rules::WriteBoardText(ThePosition().BoardState) << " "
          << rules::NameOf(move.from) << rules::NameOf(move.to) << " " << with << " " << without;
      mates += with == 1000 && without != 1000;
      saturated += with == 32767 || with == -32768;
    }
    ASSERT_EQ(rules::Untouched(), before);
    moves += list.size();
    const CandidateMove* one = list.empty() ? nullptr : &list[moves % list.size()];
    for (const bool doMove : {false, true}) {
      if (!one) break;
      ASSERT_EQ(EvaluateMove(one->from, one->to, turn.sideInCheck, doMove, turn.lastMove),
                literal::EvaluateMove(one->from.x, one->from.y, one->to.x, one->to.y,
                                      turn.sideInCheck, doMove, turn.lastMove));
    }
  }
  // The positions have to be worth the comparison.
  sorts.ExpectEnough(positions);
  EXPECT_GT(moves, static_cast<std::size_t>(positions) * 10);
  EXPECT_GT(mates, 10U);
  EXPECT_GT(saturated, 10U);
}

}  // namespace
}  // namespace ai
