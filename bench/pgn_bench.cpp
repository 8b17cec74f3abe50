// SPDX-License-Identifier: GPL-3.0-or-later
// Exchanging games with other programs: 80 plies a game, played at random. Aims: 50,000 games a
// second checked on two cores, 3,000 stored, 10,000 written in 2 s.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "ai/candidates.h"
#include "desktop/posix_files.h"
#include "other_program.h"
#include "pgn/entries.h"
#include "pgn/export.h"
#include "pgn/import.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "store/queries.h"

namespace {

constexpr int pliesOfGame = 80;
constexpr int differentGames = 1000;

std::string Digits(const ai::CandidateMove& move) {
  return std::to_string(NumberOf(move.from)) + std::to_string(NumberOf(move.to));
}

/// Fewer moves where the game ended.
store::MoveRecords RandomGame(std::mt19937& random) {
  pgn::BeginGame({});
  pgn::Turn turn;
  store::MoveRecords moves;
  for (int ply = 1; ply <= pliesOfGame && pgn::EndingAt(turn) == pgn::Ending::None; ++ply) {
    ai::CandidateList list;
    ai::GenerateAllMoves(turn.side, list, turn.lastMove, rules::ThePosition().SideInCheck);
    const ai::CandidateMove& move = list[random() % list.size()];
    rules::ThePosition().SideToMove = turn.side;
    const bool promotion =
        rules::IsPromotion(rules::ThePosition().BoardState.At(move.from), move.to.y);
    moves.push_back({ply, Digits(move), promotion ? "=Q" : "-", {}});
    pgn::Replay(turn, moves.back(), moves.size());
  }
  return moves;
}

std::string SomeGames() {
  std::string text;
  std::mt19937 random(20261126);
  store::GameRecord game;
  game.GAME_NAME = "Correspondence";
  game.GAME_DATE = "26/11/2026";
  game.GAME_WHITE_NAME = "Anna";
  game.GAME_BLACK_NAME = "Bob";
  for (int n = 0; n < differentGames;) {
    const store::MoveRecords moves = RandomGame(random);
    if (moves.size() < pliesOfGame) continue;
    text += pgn::PgnOfGame(game, moves);
    ++n;
  }
  return text;
}

std::string TextOf(int games) {
  static const std::string some = SomeGames();
  std::string text;
  for (int n = 0; n < games; n += differentGames) text += some;
  return text;
}

void Check(benchmark::State& state) {
  std::istringstream text(TextOf(50000));
  for (auto _ : state) {
    text.clear();
    text.seekg(0);
    const pgn::ImportedGames games = pgn::CheckGames(text);
    if (!games.refused.empty()) state.SkipWithError("a game was refused");
    state.SetItemsProcessed(state.items_processed() + games.count);
  }
}
BENCHMARK(Check)->MeasureProcessCPUTime()->Unit(benchmark::kMillisecond)->UseRealTime();

void CheckOfPgnExtract(benchmark::State& state) {
  const std::string file = std::filesystem::temp_directory_path() / "pgn_bench.pgn";
  std::ofstream(file, std::ios::binary) << TextOf(50000);
  bench::RunOther(state, "/usr/games/pgn-extract -s -r " + file + " 2>/dev/null");
  state.SetItemsProcessed(50000 * static_cast<std::int64_t>(state.iterations()));
  std::filesystem::remove(file);
}
BENCHMARK(CheckOfPgnExtract)->UseManualTime()->Unit(benchmark::kMillisecond);

/// A data folder of its own for as long as one benchmark runs.
class DataFolder {
 public:
  DataFolder() {
    std::string pattern = std::filesystem::temp_directory_path() / "pgn_bench_XXXXXX";
    folder_ = mkdtemp(pattern.data());
    platform::Process().DataPath = folder_ + "/";
    platform::TheSeams().files = &files_;
  }
  ~DataFolder() { std::filesystem::remove_all(folder_); }

 private:
  desktop::PosixFiles files_;
  std::string folder_;
};

const pgn::ImportOptions options{
    "Anna", "anna@example.org", "bob@example.org", {2026, 11, 26, 8, 5}};

constexpr int storedGames = 10000;

void Import(benchmark::State& state) {
  const std::string games = TextOf(storedGames);
  for (auto _ : state) {
    const DataFolder folder;
    std::istringstream text(games);
    if (!store::AddGames(pgn::ReadGames(text, options).taken)) state.SkipWithError("no save");
    state.SetItemsProcessed(state.items_processed() + storedGames);
  }
}
BENCHMARK(Import)->Unit(benchmark::kMillisecond)->UseRealTime();

void Export(benchmark::State& state) {
  const DataFolder folder;
  std::istringstream text(TextOf(storedGames));
  if (!store::AddGames(pgn::ReadGames(text, options).taken)) state.SkipWithError("no save");
  for (auto _ : state) benchmark::DoNotOptimize(pgn::PgnOfStoredGames({}));
}
BENCHMARK(Export)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
