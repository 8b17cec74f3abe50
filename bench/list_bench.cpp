// SPDX-License-Identifier: GPL-3.0-or-later
// How long the game list takes from the user's wish to the painted window.
#include <QApplication>
#include <benchmark/benchmark.h>

#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "store/game_file.h"
#include "ui/games/game_interface.h"

namespace {

std::string GameFile(int games) {
  std::string file;
  for (int id = 1; id <= games; ++id) {
    store::GameRecord game;
    game.GAME_ID = id;
    game.GAME_DATESTAMP = "090320260805";
    game.GAME_NAME = "Game " + std::to_string(id * 7919 % games);
    game.GAME_DATE = std::to_string(10 + id % 18) + "/03/2026";
    game.GAME_OPPONENTS_NAME = "Opponent " + std::to_string(id * 104729 % games);
    game.GAME_STATUS = static_cast<std::int16_t>(id % 6 + 1);
    store::AppendGame(file, game);
    for (int move = 1; move <= 80; ++move) store::AppendMove(file, {move, "5254", "e4", ""});
    file += "\r\n";
  }
  return file;
}

void OpenGameList(benchmark::State& state) {
  fakes::FakeDesktop desktop;
  platform::Process().Offline = false;
  platform::Settings().SimpleUI = true;
  desktop.files.content["/program/Data/Tvgdb.dat"] = GameFile(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    auto* window = new ui::GameInterface({});
    window->show();
    window->repaint();
    QApplication::processEvents();
    state.PauseTiming();
    delete window;
    state.ResumeTiming();
  }
}
BENCHMARK(OpenGameList)->Arg(10)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
