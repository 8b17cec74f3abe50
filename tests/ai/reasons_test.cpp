// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/reasons.h"

#include "ai/evaluation.h"
#include "ai/random_positions.h"
#include "ai/reason_words.h"

namespace ai {
namespace {

TEST(ReasonsTest, MakeUpTheScoreOfEveryMove) {
  RandomPositions source;
  int mates = 0, cut = 0;
  for (int n = 0; n < 2000; ++n) {
    const Turn turn = source.Next();
    ThePosition().SideInCheck = turn.sideInCheck;
    CandidateList list = turn.Moves();
    ScoreCandidates(list, turn.side, turn.sideInCheck, turn.lastMove);
    const Moment moment{ThePosition(), turn.side, turn.lastMove};
    const rules::Untouched before;
    for (const auto& [from, to, score] : list) {
      const MoveReasons why = ReasonsFor(moment, {from, to});
      int sum = 0;
      for (const Reason& reason : why.reasons) {
        sum += reason.points;
        mates += reason.kind == GivesMate;
        cut += reason.kind == BeyondLimits;
        ASSERT_NE(SentenceFor(reason), "");
      }
      ASSERT_EQ(sum, score) << n << " " << before << " " << rules::NameOf(from)
                            << rules::NameOf(to);
      ASSERT_EQ(why.score, score);
    }
    ASSERT_EQ(rules::Untouched(), before);
  }
  EXPECT_GT(mates, 10) << "too few for a comparison";
  EXPECT_GT(cut, 10);
}

TEST(ReasonsTest, AreToldInWords) {
  LoadDefaultHeuristics();
  struct Case {
    const char* position;
    const char* move;
    const char* strongest;
    int points;
    rules::PieceCode becomes = rules::NoPiece;
  };
  static constexpr Case cases[] = {
      {"Ke1 Nf3 qe5 kh8", "f3e5", "Black's queen on e5 is taken, and nothing protected it.", 200},
      {"Kg1 Rd1 pf7 pg7 ph7 kg8", "d1d8", "It is checkmate.", 1000},
      {"Ke1 Rh1 ka8 pa7", "e1g1", "White castles now, and can't do so later.", -148},
      {"Ka1 Rd1 rd8 bb4 kh8", "d1d2",
       "White's rook on d2 can be taken by Black's bishop on b4, and nothing protects it.", -200},
      {"Ka8 Nd5 ph7 kh8 bb7", "d5f4",
       "White's knight on d5 was unprotected and could be taken by Black's bishop on b7; it gets "
       "away.",
       200},
      {"Kg1 Pa7 pf7 pg7 ph7 kg8", "a7a8", "It is checkmate.", 1000, rules::WhiteQueen},
  };
  for (const auto& [position, move, strongest, points, becomes] : cases) {
    rules::Place(position);
    const MoveReasons why =
        ReasonsFor({ThePosition(), rules::White, {}}, rules::Move(move), Heuristics, becomes);
    EXPECT_EQ(SentenceFor(why.reasons.front()), strongest);
    EXPECT_EQ(why.reasons.front().points, points);
  }
}

}  // namespace
}  // namespace ai
