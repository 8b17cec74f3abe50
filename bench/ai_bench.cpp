// SPDX-License-Identifier: GPL-3.0-or-later
// How fast the computer opponent thinks, beside the same opponent written down plainly.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

#include "ai/evaluation.h"
#include "ai/literal_opponent.h"
#include "ai/search.h"
#include "rules/board_text.h"
#include "rules/test_moves.h"

namespace {

using rules::ThePosition;

/// A position of a game, with what a search has to be told.
struct Turn {
  rules::Position position;
  rules::Side side = rules::White;
  rules::LastMove lastMove;
  int sideInCheck = rules::NobodyInCheck;
};

Turn StartOfAGame() {
  ThePosition() = {};
  ThePosition().BoardState = rules::ReadBoardText(rules::normalStart);
  rules::RebuildCastleState();
  Turn turn;
  turn.position = ThePosition();
  return turn;
}

/// Thirty positions of thirty games that the computer plays against itself, two half-moves deep,
/// eleven to twenty moves after the start.
const std::vector<Turn>& MiddleGames() {
  static const std::vector<Turn> turns = [] {
    ai::LoadDefaultHeuristics();
    std::vector<Turn> found;
    for (std::uint64_t game = 0; found.size() < 30; ++game) {
      Turn turn = StartOfAGame();
      const int length = 21 + static_cast<int>(game % 10) * 2;
      bool over = false;
      for (int n = 0; n < length && !over; ++n) {
        ThePosition() = turn.position;
        ai::SearchWatch watch;
        const ai::SearchResult result = ai::SearchBestMove(
            {n < 6 ? 0 : 1, turn.side, turn.lastMove, turn.sideInCheck, game * 1000 + n}, watch);
        over = result.root.empty();
        if (over) break;
        // The openings differ where the computer would always choose the same.
        const auto& move =
            n < 6 ? result.root[(game + n) % std::min<std::size_t>(result.root.size(), 8)]
                  : result.best;
        rules::MakeTestMove(turn.side, move.from, move.to, ThePosition().BoardState.At(move.from),
                            turn.lastMove, turn.sideInCheck);
        rules::ClearTestMoves();
        turn.position = ThePosition();
        turn.side = rules::OtherSide(turn.side);
        turn.lastMove = {move.from, move.to};
      }
      if (!over) found.push_back(turn);
    }
    return found;
  }();
  return turns;
}

ai::CandidateList Candidates(const Turn& turn) {
  ai::CandidateList list;
  ThePosition() = turn.position;
  ai::GenerateAllMoves(turn.side, list, turn.lastMove, turn.sideInCheck);
  return list;
}

template <typename ScoreAll>
void ScoreMiddleGames(benchmark::State& state, ScoreAll scoreAll) {
  std::int64_t scored = 0;
  for (auto _ : state) {
    for (const Turn& turn : MiddleGames()) {
      ai::CandidateList list = Candidates(turn);
      scoreAll(list, turn);
      scored += static_cast<std::int64_t>(list.size());
    }
  }
  state.SetItemsProcessed(scored);
}

void ScoreLiterally(benchmark::State& state) {
  ScoreMiddleGames(state, [](ai::CandidateList& list, const Turn& turn) {
    for (ai::CandidateMove& move : list) {
      const auto pass = [&](bool doMove) {
        return ai::literal::EvaluateMove(move.from.x, move.from.y, move.to.x, move.to.y,
                                         turn.sideInCheck, doMove, turn.lastMove);
      };
      move.Score = ai::Saturate(pass(true) - pass(false));
    }
  });
}
BENCHMARK(ScoreLiterally)->Unit(benchmark::kMillisecond);

void Score(benchmark::State& state) {
  ScoreMiddleGames(state, [](ai::CandidateList& list, const Turn& turn) {
    ai::ScoreCandidates(list, turn.side, turn.sideInCheck, turn.lastMove);
  });
}
BENCHMARK(Score)->Unit(benchmark::kMillisecond);

/// Whole searches of all thirty positions; the counters tell the one in the middle and the longest.
void Search(benchmark::State& state) {
  std::vector<double> seconds;
  for (auto _ : state) {
    for (const Turn& turn : MiddleGames()) {
      ThePosition() = turn.position;
      ai::SearchWatch watch;
      const auto begin = std::chrono::steady_clock::now();
      benchmark::DoNotOptimize(
          ai::SearchBestMove({static_cast<int>(state.range(0)), turn.side, turn.lastMove,
                              turn.sideInCheck, 1, static_cast<int>(state.range(1))},
                             watch));
      const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
      seconds.push_back(took.count());
    }
  }
  std::sort(seconds.begin(), seconds.end());
  state.counters["median_s"] = seconds[seconds.size() / 2];
  state.counters["worst_s"] = seconds.back();
}
BENCHMARK(Search)
    ->Args({3, 2})
    ->Args({4, 1})
    ->Args({4, 2})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
