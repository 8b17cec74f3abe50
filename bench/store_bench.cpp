// SPDX-License-Identifier: GPL-3.0-or-later
// The store with 10,000 games of 80 entries, about 14 MB, on real files. Aims: the tray menu's
// query 150 ms, one save 300 ms.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>

#include "desktop/posix_files.h"
#include "platform/conversions.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "store/game_file.h"
#include "store/queries.h"
#include "store/saving.h"

namespace {

constexpr int gameCount = 10000;
constexpr int entryCount = 80;

store::GameRecord Game(int id) {
  const std::string date =
      platform::ZeroFilled(1 + id % 28, 2) + "/" + platform::ZeroFilled(1 + id % 12, 2) + "/2026";
  const std::string opponent = "Opponent " + std::to_string(id * 7919 % 300);
  return {id,
          "090320260805",
          id,
          "Game number " + std::to_string(id),
          date,
          "opponent@example.org",
          "Me",
          opponent,
          true,
          opponent,
          static_cast<std::int16_t>(1 + id % 6),
          false,
          {}};
}

// A game file in a folder of its own for as long as one benchmark runs.
class GameFile {
 public:
  GameFile() {
    std::string pattern = std::filesystem::temp_directory_path() / "store_bench_XXXXXX";
    folder_ = mkdtemp(pattern.data());
    platform::Process().DataPath = folder_ + "/";
    platform::TheSeams().files = &files_;
    std::string content;
    for (int id = 1; id <= gameCount; ++id) {
      store::AppendGame(content, Game(id));
      for (int n = 1; n <= entryCount; ++n) {
        store::AppendMove(content, {n, "5254", "Ngf3", n % 20 == 0 ? "What now?" : ""});
      }
      content += "\r\n";
    }
    files_.Write(store::GameFilePath(), content);
  }
  ~GameFile() { std::filesystem::remove_all(folder_); }

 private:
  desktop::PosixFiles files_;
  std::string folder_;
};

void Select(benchmark::State& state, const char* selection, const char* sort) {
  const GameFile file;
  store::GameRecords games;
  for (auto _ : state) {
    if (!store::SelectGames(games, selection, sort)) state.SkipWithError("the query failed");
  }
  state.counters["games"] = static_cast<double>(games.size());
}
BENCHMARK_CAPTURE(Select, TrayMenu, "", "Game_status;A;Game_opponents_name;A;Game_date;D")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Select, ByDate, "", "Game_date;D")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Select, OneGame, "Game_ID;5000", "")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Select, TrayStatus, "Game_status;1", "")->Unit(benchmark::kMillisecond);

void SelectMovesOfLastGame(benchmark::State& state) {
  const GameFile file;
  store::MoveRecords moves;
  for (auto _ : state) {
    if (!store::SelectMoves(moves, gameCount)) state.SkipWithError("the query failed");
  }
}
BENCHMARK(SelectMovesOfLastGame)->Unit(benchmark::kMillisecond);

void SaveGame(benchmark::State& state) {
  const GameFile file;
  int move = entryCount;
  for (auto _ : state) {
    store::GameRecord game = Game(5000);
    if (!store::SaveGame(game, {{++move, "5254", "e4", ""}})) state.SkipWithError("no save");
  }
}
BENCHMARK(SaveGame)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
