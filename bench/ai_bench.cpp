// SPDX-License-Identifier: GPL-3.0-or-later
// How fast the computer opponent thinks, beside the same scores written down plainly.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <string_view>
#include <thread>
#include <vector>

#include "ai/evaluation.h"
#include "ai/literal_evaluation.h"
#include "ai/search.h"
#include "platform/text_fields.h"
#include "real_games.h"
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

void Play(Turn& turn, rules::LastMove move) {
  ThePosition() = turn.position;
  rules::MakeTestMove(turn.side, move.from, move.to, ThePosition().BoardState.At(move.from),
                      turn.lastMove, turn.sideInCheck);
  rules::ClearTestMoves();
  turn.position = ThePosition();
  turn.side = rules::OtherSide(turn.side);
  turn.lastMove = move;
}

/// Thirty positions in which Black is to move: three of each game.
const std::vector<Turn>& MiddleGames() {
  static const std::vector<Turn> turns = [] {
    ai::LoadDefaultHeuristics();
    std::vector<Turn> found;
    for (const std::string_view moves : bench::realGames) {
      Turn turn = StartOfAGame();
      for (int n = 1; n <= platform::CountFields(moves, ' '); ++n) {
        Play(turn, rules::LastMove::FromText(platform::GetField(moves, n, ' ')));
        if (n == 23 || n == 27 || n == 31) found.push_back(turn);
      }
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

ai::SearchOrder OrderFor(const Turn& turn, int depth, int threads) {
  return {depth, turn.side, turn.lastMove, turn.sideInCheck, 1, threads};
}

void TellMiddleAndLongest(benchmark::State& state, std::vector<double> seconds) {
  std::sort(seconds.begin(), seconds.end());
  state.counters["median_s"] = seconds[seconds.size() / 2];
  state.counters["worst_s"] = seconds.back();
}

/// Whole searches of all thirty positions; the counters tell the one in the middle and the longest.
void Search(benchmark::State& state) {
  std::vector<double> seconds;
  for (auto _ : state) {
    for (const Turn& turn : MiddleGames()) {
      ThePosition() = turn.position;
      ai::SearchWatch watch;
      const auto begin = std::chrono::steady_clock::now();
      benchmark::DoNotOptimize(ai::SearchBestMove(
          OrderFor(turn, static_cast<int>(state.range(0)), static_cast<int>(state.range(1))),
          watch));
      const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
      seconds.push_back(took.count());
    }
  }
  TellMiddleAndLongest(state, std::move(seconds));
}
BENCHMARK(Search)
    ->Args({3, 2})
    ->Args({4, 1})
    ->Args({4, 2})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

/// From the moment at which a search with two threads is cancelled, in its midst, to its end.
void Cancel(benchmark::State& state) {
  std::vector<double> seconds;
  for (auto _ : state) {
    for (const Turn& turn : MiddleGames()) {
      ai::SearchWatch watch;
      std::atomic<bool> begun = false;
      std::jthread search([&] {
        ThePosition() = turn.position;
        begun = true;
        begun.notify_one();
        ai::SearchBestMove(OrderFor(turn, static_cast<int>(state.range(0)), 2), watch);
      });
      begun.wait(false);
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
      const auto begin = std::chrono::steady_clock::now();
      watch.SearchCancelled = true;
      search.join();
      const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
      seconds.push_back(took.count());
    }
  }
  TellMiddleAndLongest(state, std::move(seconds));
}
BENCHMARK(Cancel)->DenseRange(0, ai::deepestSearch)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
