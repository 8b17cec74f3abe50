// SPDX-License-Identifier: GPL-3.0-or-later
// How fast the rules are: counting move sequences, and the replay that every shown position comes
// from.
#include <benchmark/benchmark.h>

#include <random>

#include "ai/candidates.h"
#include "ai/perft.h"
#include "board/history.h"
#include "other_program.h"
#include "rules/board_text.h"
#include "rules/test_moves.h"

namespace {

using rules::ThePosition;

void StartPosition() {
  ThePosition() = {};
  ThePosition().BoardState = rules::ReadBoardText(rules::normalStart);
  rules::RebuildCastleState();
}

void Perft(benchmark::State& state) {
  StartPosition();
  std::int64_t counted = 0;
  for (auto _ : state) {
    const std::int64_t sequences = ai::CountMoveSequences(
        rules::White, static_cast<int>(state.range(0)), {}, rules::NobodyInCheck);
    state.counters["sequences"] = static_cast<double>(sequences);
    counted += sequences;
  }
  state.SetItemsProcessed(counted);
}
BENCHMARK(Perft)->DenseRange(4, 6)->Unit(benchmark::kMillisecond);

void PerftOfStockfish(benchmark::State& state) {
  bench::RunOther(state, "printf 'go perft 6\\nquit\\n' | /usr/games/stockfish >/dev/null");
}
BENCHMARK(PerftOfStockfish)->UseManualTime()->Unit(benchmark::kMillisecond);

class NoView : public board::BoardView {
 public:
  void ConstructBoard() override {}
  void PaintSquare(rules::Square, int) override {}
  void Refresh() override {}
  rules::PieceCode ExchangePawn(rules::Side) override { return rules::NoPiece; }
  bool AcceptSetupWarnings(const std::string&) override { return true; }
  bool Visible() const override { return false; }
  void SetTimerInterval(int) override {}
  void Hide() override {}
  void Close() override {}
};

/// A game of random legal moves.
store::MoveRecords RandomGame(int entries) {
  StartPosition();
  std::mt19937 random(20260309);
  store::MoveRecords moves;
  rules::LastMove last;
  int sideInCheck = rules::NobodyInCheck;
  for (int i = 0; i < entries; ++i) {
    const rules::Side side = i % 2 == 0 ? rules::White : rules::Black;
    ai::CandidateList list;
    ai::GenerateAllMoves(side, list, last, sideInCheck);
    if (list.empty()) break;
    const ai::CandidateMove& move = list[random() % list.size()];
    rules::MakeTestMove(side, move.from, move.to, ThePosition().BoardState.At(move.from), last,
                        sideInCheck);
    last = {move.from, move.to};
    moves.push_back({i + 1,
                     std::to_string(NumberOf(move.from)) + std::to_string(NumberOf(move.to)),
                     "Nf3",
                     {}});
  }
  return moves;
}

void Replay(benchmark::State& state) {
  NoView view;
  board::Game board(view);
  board.Moves.Fill(RandomGame(static_cast<int>(state.range(0))));
  state.counters["entries"] = board.Moves.Count();
  for (auto _ : state) {
    StartPosition();
    board::MoveThroughHistory(board);
  }
}
BENCHMARK(Replay)->Arg(300)->Unit(benchmark::kMicrosecond);

}  // namespace
