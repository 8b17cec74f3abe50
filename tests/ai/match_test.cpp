// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/match.h"

#include <gtest/gtest.h>

#include <string>

namespace ai {
namespace {

/// What is told of 40 games at most, up to the one that stops the match.
std::string Told(int threads, int stopAfter) {
  MatchOrder order{{DefaultHeuristics(), DefaultHeuristics()}, 40, 0, 5, threads};
  order.tables[1].fill(0);
  std::string told;
  std::atomic<bool> stopped = false;
  const auto report = [&](const PlayedGame& game) {
    for (const int number : {game.number, game.white, game.winner, game.moves,
                             static_cast<int>(game.end), game.figures[0][Captures]}) {
      told += std::to_string(number) + ' ';
    }
    told += '\n';
    stopped = stopped || game.number == stopAfter;
  };
  PlayMatch(order, report, stopped);
  return told;
}

TEST(MatchTest, TheSameGamesAreToldInOrderWithAnyNumberOfThreads) {
  const std::string all = Told(1, 0);
  EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 40);
  EXPECT_EQ(Told(3, 0), all);
  const std::string stopped = Told(1, 7);
  EXPECT_EQ(std::count(stopped.begin(), stopped.end(), '\n'), 7);
  EXPECT_TRUE(all.starts_with(stopped));
}

TEST(MatchTest, ScoresAreRatingDifferences) {
  const auto even = RatingDifferenceOf(5, 10, 5);
  EXPECT_NEAR(even->elo, 0, 1e-9);
  EXPECT_NEAR(even->error, 111.33, 0.01);
  EXPECT_NEAR(RatingDifferenceOf(150, 0, 50)->elo, 190.85, 0.01);
  EXPECT_NEAR(RatingDifferenceOf(0, 200, 200)->elo, -190.85, 0.01);
  EXPECT_FALSE(RatingDifferenceOf(19, 1, 0));
  EXPECT_FALSE(RatingDifferenceOf(0, 20, 0));
  EXPECT_FALSE(RatingDifferenceOf(0, 0, 0));
}

}  // namespace
}  // namespace ai
