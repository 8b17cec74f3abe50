// SPDX-License-Identifier: GPL-3.0-or-later
// How long a skinned window takes to stand on the screen, with the program's own pictures, once the
// first one has been open. Aim: 150 ms each.
#include <QApplication>
#include <benchmark/benchmark.h>

#include <memory>

#include "boards/chess_graphics.h"
#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "skin/skin.h"
#include "store/saving.h"
#include "ui/board/board_window.h"
#include "ui/board/exchange_pawn.h"
#include "ui/program/msg_form.h"
#include "ui/program/status_window.h"

namespace {

using Window = std::unique_ptr<QWidget>;
using boards::ChessGraphics;

/// 40 moves there and back.
void StoreGame() {
  store::GameRecord game;
  game.GAME_ID = 1;
  game.GAME_DATESTAMP = "090320260805";
  game.GAME_NAME = "Spring tournament";
  game.GAME_DATE = "09/03/2026";
  game.GAME_OPPONENTS_NAME = game.GAME_BLACK_NAME = "Eva Lindqvist";
  game.GAME_HOST = true;
  game.GAME_STATUS = store::MoveWaiting;
  const char* knights[][2] = {{"7163", "Nf3"}, {"7866", "Nf6"}, {"6371", "Ng1"}, {"6678", "Ng8"}};
  store::MoveRecords moves;
  for (int i = 0; i < 80; ++i) moves.push_back({i + 1, knights[i % 4][0], knights[i % 4][1], ""});
  store::SaveGame(game, moves);
}

Window NewBoard(const ChessGraphics& graphics) {
  return std::make_unique<ui::BoardWindow>(graphics);
}

Window NewMessage(const ChessGraphics&) {
  return std::make_unique<ui::MsgForm>(platform::Message{
      1, "Delete game.", "Are you sure you wish to delete the game titled Spring tournament?",
      "Yes", "No", false});
}

Window NewPromotion(const ChessGraphics& graphics) {
  return std::make_unique<ui::ExchangePawn>(graphics, rules::White);
}

Window NewStatus(const ChessGraphics&) {
  auto window = std::make_unique<ui::StatusWindow>();
  window->Display(QStringLiteral("Retrieving games..."));
  return window;
}

/// Until it is painted.
void Open(benchmark::State& state, Window (*newWindow)(const ChessGraphics&), const char* skin) {
  platform::Settings().SimpleUI = false;
  platform::Settings().Skin = skin;
  ChessGraphics graphics;
  if (!boards::LoadChessGraphics("Classic Wood", "Plain", graphics) ||
      !ui::ApplySkinToSystemTray()) {
    return state.SkipWithError("no pictures");
  }
  newWindow(graphics)->show();
  for (auto _ : state) {
    const Window window = newWindow(graphics);
    window->show();
    QApplication::processEvents();
    state.PauseTiming();
    if (!window->isVisible()) state.SkipWithError("the window didn't open");
    state.ResumeTiming();
  }
}

constexpr const char* classic = "Tarvolenix Classic";
constexpr const char* night = "Tarvolenix Night";
BENCHMARK_CAPTURE(Open, Board, NewBoard, classic)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Open, BoardNight, NewBoard, night)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Open, MsgForm, NewMessage, classic)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Open, ExchangePawn, NewPromotion, classic)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Open, StatusWindow, NewStatus, classic)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int count, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(count, arguments);
  const fakes::FakeDesktop desktop;
  platform::Process().ProgramFolder = PROGRAM_FOLDER "/";
  platform::Process().Offline = false;
  platform::Process().CurrentGameID = 1;
  StoreGame();
  benchmark::Initialize(&count, arguments);
  benchmark::RunSpecifiedBenchmarks();
}
