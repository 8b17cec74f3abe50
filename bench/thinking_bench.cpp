// SPDX-License-Identifier: GPL-3.0-or-later
// The board's window while the computer thinks with all cores: how long it is deaf at most, and how
// long it takes from a click on Cancel until the user can go on. Aim: 50 ms each.
#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <optional>

#include "ai/heuristics.h"
#include "desktop/qt_events.h"
#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "platform/text_fields.h"
#include "real_games.h"
#include "store/saving.h"
#include "ui/board/board_window.h"

namespace {

using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point begin) {
  return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

/// A game of 31 entries in which the computer is to move.
void StoreGame(std::string_view coordinates) {
  store::GameRecord game;
  game.GAME_ID = game.GAME_OPPONENTS_ID = 1;
  game.GAME_BLACK_NAME = game.GAME_OPPONENTS_NAME = "The Computer";
  game.GAME_HOST = game.GAME_VS_COMPUTER = true;
  game.GAME_STATUS = store::MoveWaiting;
  store::MoveRecords moves;
  for (int n = 1; n <= platform::CountFields(coordinates, ' '); ++n) {
    moves.push_back({n, std::string(platform::GetField(coordinates, n, ' ')), "", ""});
  }
  store::SaveGame(game, moves);
}

/// What happens each millisecond while the computer thinks, and after its turn.
struct Witness {
  std::function<void(QWidget& window)> tick;
  std::function<void()> after;
};

/// Lets the computer move in each game.
void LetThink(int depth, const Witness& witness) {
  fakes::FakeDesktop desktop;
  desktop::QtEvents events;
  platform::TheSeams().events = &events;
  platform::Settings().SimpleUI = true;
  platform::Settings().SearchDepth = static_cast<std::int16_t>(depth);
  ai::LoadDefaultHeuristics();
  const boards::ChessGraphics graphics;
  for (const std::string_view game : bench::realGames) {
    desktop.files.content.clear();
    StoreGame(game);
    platform::Process().CurrentGameID = 1;
    ui::BoardWindow window(graphics);
    window.show();
    QApplication::processEvents();
    QTimer clock;
    clock.setTimerType(Qt::PreciseTimer);
    QObject::connect(&clock, &QTimer::timeout, [&] {
      if (window.Logic().ComputerThinking) witness.tick(window);
    });
    clock.start(1);
    window.findChild<QPushButton*>(QStringLiteral("Toolbar1S_5"))->click();
    witness.after();
  }
}

void LongestDeafness(benchmark::State& state) {
  double longest = 0;
  std::optional<Clock::time_point> heard;
  const Witness witness{[&](QWidget&) {
                          if (heard) longest = std::max(longest, MillisecondsSince(*heard));
                          heard = Clock::now();
                        },
                        [&] { heard.reset(); }};
  for (auto _ : state) LetThink(static_cast<int>(state.range(0)), witness);
  state.counters["longest_ms"] = longest;
}
BENCHMARK(LongestDeafness)->DenseRange(2, 4)->Iterations(3)->Unit(benchmark::kMillisecond);

void FromCancelToTheUser(benchmark::State& state) {
  constexpr int patience = 5;
  double longest = 0;
  int ticks = 0;
  std::optional<Clock::time_point> cancelled;
  const Witness witness{[&](QWidget& window) {
                          if (++ticks != patience) return;
                          cancelled = Clock::now();
                          window.findChild<QPushButton*>(QStringLiteral("CancelSearchS"))->click();
                        },
                        [&] {
                          if (cancelled) longest = std::max(longest, MillisecondsSince(*cancelled));
                          cancelled.reset();
                          ticks = 0;
                        }};
  for (auto _ : state) LetThink(static_cast<int>(state.range(0)), witness);
  state.counters["longest_ms"] = longest;
}
BENCHMARK(FromCancelToTheUser)->DenseRange(3, 4)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
