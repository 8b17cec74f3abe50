// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/evaluation.h"

#include "ai/literal_evaluation.h"
#include "ai/random_positions.h"

namespace ai {
namespace {

TEST(EvaluationTest, AgreesWithTheLiteralOneScoreForScore) {
  RandomPositions source;
  int mates = 0, saturated = 0;
  for (int n = 0; n < 5000; ++n) {
    const Turn turn = source.Next();
    CandidateList list = turn.Moves();
    const rules::Untouched before;
    ScoreCandidates(list, turn.side, turn.sideInCheck, turn.lastMove);
    for (const CandidateMove& move : list) {
      const auto [from, to, score] = move;
      const auto literal = [&turn, from = from, to = to](bool doMove) {
        return literal::EvaluateMove(from.x, from.y, to.x, to.y, turn.sideInCheck, doMove,
                                     turn.lastMove);
      };
      const std::int16_t with = literal(true), without = literal(false);
      ASSERT_EQ(score, Saturate(with - without))
          << n << " " << before << " " << rules::NameOf(from) << rules::NameOf(to);
      mates += with == 1000 && without != 1000;
      saturated += with == 32767 || with == -32768;
      // The passes alone, of a few.
      if (NumberOf(to) % 16 != n % 16) continue;
      ASSERT_EQ(EvaluateMove(from, to, turn.sideInCheck, true, turn.lastMove), with);
      ASSERT_EQ(EvaluateMove(from, to, turn.sideInCheck, false, turn.lastMove), without);
    }
    ASSERT_EQ(rules::Untouched(), before);
  }
  EXPECT_GT(mates, 10) << "too few for a comparison";
  EXPECT_GT(saturated, 10);
}

}  // namespace
}  // namespace ai
