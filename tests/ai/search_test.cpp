// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/search.h"

#include <algorithm>
#include <thread>

#include "ai/random_positions.h"

namespace ai {
namespace {

/// One number for all that 60 searches find. Another order of the moves, another score, draw or
/// sorting is another number, and a computer that plays another game.
TEST(SearchTest, FindsWhatItHasAlwaysFoundWithAnyNumberOfThreads) {
  for (const int threads : {1, 3}) {
    RandomPositions source;
    std::uint64_t signature = 0;
    const auto add = [&](std::int64_t number) { signature = signature * 0x100000001b3U + number; };
    for (int n = 0; n < 60; ++n) {
      const Turn turn = source.Next();
      const rules::Untouched before;
      const std::size_t moves = turn.Moves().size();
      const int depth = std::min(n % 4, moves > 40 ? 1 : moves > 15 ? 2 : 3);
      SearchWatch watch;
      const SearchOrder order{
          depth,  turn.side, turn.lastMove, turn.sideInCheck, static_cast<std::uint64_t>(n),
          threads};
      Heuristics.fill(0);  // what becomes of them is nothing to a search that has its order
      const SearchResult result = SearchBestMove(order, watch);
      add(result.value);
      add(watch.MovesConsidered);
      for (const auto& [from, to, score] : result.root) {
        add(NumberOf(from) * 100 + NumberOf(to));
        add(score);
      }
      add(NumberOf(result.best.from) * 100 + NumberOf(result.best.to));
      EXPECT_EQ(rules::Untouched(), before);
    }
    EXPECT_EQ(signature, 15728347737838569256U) << threads << " threads";
  }
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

}  // namespace
}  // namespace ai
