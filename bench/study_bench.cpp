// SPDX-License-Identifier: GPL-3.0-or-later
// What a player thinks for himself: "Why this move?", the best moves that it shows, and the notes
// of one game among 10,000 that have notes and lines of 80 moves.
#include <QApplication>
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <filesystem>
#include <memory>
#include <string>

#include "ai/advice.h"
#include "ai/heuristics.h"
#include "desktop/posix_files.h"
#include "fakes/fake_desktop.h"
#include "pgn/entries.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "platform/text_fields.h"
#include "real_games.h"
#include "rules/position_guard.h"
#include "store/game_file.h"
#include "study/study_file.h"
#include "ui/board/board_window.h"
#include "ui/board/why_form.h"
#include "ui/study/study_desk.h"

namespace {

/// In front of the last move of a famous game.
board::AskedMove Asked(std::size_t number) {
  const rules::PositionGuard guard;
  const std::string_view game = bench::realGames.at(number % bench::realGames.size());
  const int count = platform::CountFields(game, ' ');
  pgn::BeginGame({});
  pgn::Turn turn;
  for (int n = 1; n < count; ++n) {
    const std::string move(platform::GetField(game, n, ' '));
    pgn::Replay(turn, {n, move, "", ""}, static_cast<std::size_t>(n));
  }
  const std::string last(platform::GetField(game, count, ' '));
  rules::ThePosition().SideToMove = turn.side;
  return {{rules::ThePosition(), turn.side, turn.lastMove}, rules::LastMove::FromText(last), last};
}

/// Until the reasons are painted; the computer looks further then.
void OpenWhy(benchmark::State& state) {
  const fakes::FakeDesktop desktop;
  platform::Settings().SimpleUI = true;
  std::size_t number = 0;
  for (auto _ : state) {
    auto form = std::make_unique<ui::WhyForm>(
        ui::QuestionOn(Asked(number++)), [](const ui::WhyPicture&) {}, nullptr);
    form->show();
    form->repaint();
    QApplication::processEvents();
    state.PauseTiming();
    form.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(OpenWhy)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();

/// With scores as in a game at that depth, of the ten positions one after the other.
void BestMoves(benchmark::State& state) {
  std::size_t number = 0;
  for (auto _ : state) {
    ai::SearchWatch watch;
    int depths = 0;
    ai::Advise({Asked(number++).moment, static_cast<int>(state.range(0)), 2}, watch,
               [&](int, const ai::CandidateList& moves) { depths += moves.empty() ? 0 : 1; });
    if (depths <= state.range(0)) state.SkipWithError("no advice");
  }
}
BENCHMARK(BestMoves)
    ->Arg(1)
    ->Arg(4)
    ->Iterations(bench::realGames.size())
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Repetitions(5)
    ->ReportAggregatesOnly();

constexpr int gameCount = 10000;
constexpr const char* stamp = "090320260805";

/// Games and notes on the disk for as long as one benchmark runs.
class StudiedGames {
 public:
  StudiedGames() {
    std::string pattern = std::filesystem::temp_directory_path() / "study_bench_XXXXXX";
    folder_ = mkdtemp(pattern.data());
    platform::Process().DataPath = folder_ + "/";
    platform::TheSeams().files = &files_;
    WriteGames();
    WriteNotes();
  }
  ~StudiedGames() { std::filesystem::remove_all(folder_); }

  bool AreThere() const { return areThere_; }

 private:
  void WriteGames() {
    const std::string_view entries = bench::realGames.front();
    std::string content;
    for (int id = 1; id <= gameCount; ++id) {
      store::GameRecord game;
      game.GAME_ID = id;
      game.GAME_DATESTAMP = stamp;
      game.GAME_OPPONENTS_NAME = "Opponent";
      game.GAME_HOST = true;
      game.GAME_STATUS = store::MoveWaiting;
      store::AppendGame(content, game);
      for (int n = 1; n <= platform::CountFields(entries, ' '); ++n) {
        store::AppendMove(content, {n, std::string(platform::GetField(entries, n, ' ')), "", ""});
      }
      content += "\r\n";
    }
    files_.Write(store::GameFilePath(), content);
  }

  /// The file's own layout, and the same of each game.
  void WriteNotes() {
    std::string line;
    for (int move = 0; move < 80; ++move) line += "e1e2 ";
    study::StudyFile().KeepNote({0, stamp}, "the first one");
    const std::string each =
        " FROM (WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n"
        " WHERE i < " +
        std::to_string(gameCount) + ") SELECT i FROM n);";
    const std::string values = "SELECT i, '" + std::string(stamp) + "', ";
    sqlite3* file = nullptr;
    sqlite3_open(study::NotesPath().c_str(), &file);
    const std::string all = "BEGIN; INSERT INTO game_note " + values + "'A plan'" + each +
                            "INSERT INTO position_note " + values + "'somewhere', 'An idea'" +
                            each + "INSERT INTO tried_lines " + values + "0, 'start', '" + line +
                            "'" + each + "COMMIT;";
    areThere_ = sqlite3_exec(file, all.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(file);
  }

  desktop::PosixFiles files_;
  std::string folder_;
  bool areThere_ = false;
};

/// From the user's wish, in a program that has looked at no notes before, until they are painted.
void OpenNotes(benchmark::State& state) {
  const fakes::FakeDesktop desktop;
  platform::Settings().SimpleUI = true;
  const StudiedGames games;
  if (!games.AreThere()) return state.SkipWithError("no notes");
  platform::Process().CurrentGameID = gameCount;
  const boards::ChessGraphics graphics;
  ui::BoardWindow window(graphics);
  window.show();
  for (auto _ : state) {
    auto desk = std::make_unique<ui::StudyDesk>(graphics);
    desk->ShowNotes(window.Logic(), window);
    QApplication::processEvents();
    state.PauseTiming();
    auto* notes = window.findChild<QDialog*>(QStringLiteral("NotesForm"));
    if (!notes || !notes->isVisible()) state.SkipWithError("no notes came");
    delete notes;
    desk.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(OpenNotes)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly();

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  ai::LoadDefaultHeuristics();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
