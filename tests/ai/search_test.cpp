// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <thread>

#include "ai/literal_opponent.h"
#include "ai/random_positions.h"

namespace ai {
namespace {

#ifdef TARVOLENIX_SANITIZED
constexpr int searches = 20;
#else
constexpr int searches = 400;
#endif

bool SameList(const CandidateList& a, const CandidateList& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const CandidateMove& one, const CandidateMove& other) {
                      return one.from == other.from && one.to == other.to &&
                             one.Score == other.Score;
                    });
}

/// Of position `n`, which is up: any depth with any sort of position and any number of threads, but
/// no deeper than the plain version comes to an end.
int DepthFor(int n) {
  CandidateList list;
  GenerateAllMoves(rules::White, list, {}, rules::NobodyInCheck);
  GenerateAllMoves(rules::Black, list, {}, rules::NobodyInCheck);
  constexpr std::size_t manyMoves = 120, fewMoves = 60;
  const int deepest = list.size() > manyMoves ? 1 : list.size() > fewMoves ? 2 : 3;
  return std::min(deepest, n % 4);
}

TEST(SearchTest, AgreesWithTheLiteralOpponentWithAnyNumberOfThreads) {
  RandomPositions source;
  for (int n = 0; n < searches; ++n) {
    const auto turn = source.Next();
    SearchOrder order{DepthFor(n),
                      turn.side,
                      turn.lastMove,
                      turn.sideInCheck,
                      static_cast<std::uint64_t>(n) * 77,
                      1 + n / 7 % 3};
    const rules::Untouched before;
    SearchWatch watch;
    const SearchResult result = SearchBestMove(order, watch);
    ASSERT_EQ(rules::Untouched(), before);
    CandidateList list;
    std::int64_t considered = 0;
    const int value =
        literal::SearchBestMove(order.maxDepth, 0, turn.side, turn.side, turn.lastMove,
                                turn.sideInCheck, order.seed, 0, list, considered);
    ASSERT_EQ(result.value, value) << n;
    ASSERT_TRUE(SameList(result.root, list)) << n;
    ASSERT_EQ(watch.MovesConsidered, considered) << n;
  }
}

struct ReduceCase {
  int candidates;
  std::size_t kept;
};

const ReduceCase reduceCases[] = {{1, 1}, {4, 4}, {5, 4}, {14, 4}, {15, 5}, {30, 10}, {121, 40}};

TEST(SearchTest, AListBelowTheRootIsThinnedToItsBestAndSomeOthers) {
  for (const ReduceCase& row : reduceCases) {
    CandidateList list;
    for (int i = 0; i < row.candidates; ++i) {
      list.push_back({rules::SquareAt(i % 64), rules::SquareAt(i / 64),
                      static_cast<std::int16_t>(i % 7 == 3 ? 100 - i % 3 : -i)});
    }
    CandidateList best = list;
    SortMoves(best);
    ReduceMoves(list, 5, 6);
    EXPECT_EQ(list.size(), row.kept) << row.candidates;
    std::set<int> distinct;
    for (const CandidateMove& move : list) {
      distinct.insert(IndexOf(move.from) + 64 * IndexOf(move.to));
    }
    EXPECT_EQ(distinct.size(), list.size());
    for (std::size_t i = 0; i < 4 && i < best.size() && row.candidates > 4; ++i) {
      EXPECT_EQ(list[i].from, best[i].from);
    }
  }
}

TEST(SearchTest, TheBestOfEqualMovesAreAllTakenOverTime) {
  rules::Place("Ka1 kh8 ph7 pg7 pf7");
  Heuristics.fill(0);
  Heuristics[20] = 10;
  std::set<int> taken;
  for (std::uint64_t seed = 0; seed < 100; ++seed) {
    SearchWatch watch;
    const SearchResult result = SearchBestMove({0, rules::Black, {}, -1, seed, 1}, watch);
    EXPECT_EQ(result.value, 10);
    taken.insert(NumberOf(result.best.from) * 100 + NumberOf(result.best.to));
  }
  EXPECT_EQ(taken, (std::set<int>{6766, 6765, 7776, 7775, 8786, 8785}));
}

TEST(SearchTest, WhoCantMoveGetsNoMove) {
  rules::Place("Kf6 Qf7 kh8");
  SearchWatch watch;
  const SearchResult result = SearchBestMove({2, rules::Black, {}, -1, 1, 2}, watch);
  EXPECT_EQ(result.value, 0);
  EXPECT_EQ(NumberOf(result.best.from) + NumberOf(result.best.to), 0);
}

TEST(SearchTest, ACancelledSearchEndsWithTheNodesAtWhichItIs) {
  rules::Place("start e2e4");
  LoadDefaultHeuristics();
  const rules::Untouched before;
  for (const int threads : {0, 1, 2}) {
    SearchWatch watch;
    std::int64_t considered = 0;
    std::jthread user([&] {
      while (threads > 0 && watch.MovesConsidered == 0) std::this_thread::yield();
      watch.SearchCancelled = true;
      considered = watch.MovesConsidered;
    });
    if (threads == 0) user.join();  // he was quicker than the search
    const SearchResult result = SearchBestMove({4, rules::Black, {}, -1, 1, threads}, watch);
    if (user.joinable()) user.join();
    EXPECT_TRUE(result.root.empty());
    EXPECT_LE(watch.MovesConsidered - considered, threads * 218) << "one node of each thread";
    EXPECT_EQ(rules::Untouched(), before);
  }
}

TEST(SearchTest, ProgressEndsWithTheSearch) {
  rules::Place("start e2e4");
  LoadDefaultHeuristics();
  for (int depth = 0; depth <= 3; ++depth) {
    SearchWatch watch;
    SearchBestMove({depth, rules::Black, {}, -1, 1, 2}, watch);
    EXPECT_NEAR(watch.progress, fullSpan, 0.01) << depth;
  }
}

}  // namespace
}  // namespace ai
