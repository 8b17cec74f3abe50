// SPDX-License-Identifier: GPL-3.0-or-later
// The verbs that ask the computer opponent about positions from standard input.
#include <chrono>
#include <random>
#include <thread>

#include "ai/evaluation.h"
#include "ai/search.h"
#include "cli/position_lines.h"
#include "cli/verbs.h"

namespace cli {
namespace {

using rules::ThePosition;

/// The table to think with: the one that is given, else the factory's.
void TakeHeuristics(const Arguments& arguments) {
  ai::LoadDefaultHeuristics();
  if (!arguments.Has("--heuristics")) return;
  if (!ai::SetHeuristicsFromText(arguments.Value("--heuristics"))) {
    throw Refusal("The text of --heuristics doesn't hold 54 whole numbers joined by \";\".");
  }
}

void EvaluateLine(const PositionLine& line, CollectedMessages& messages) {
  const Reached reached = ReachPosition(line, messages);
  const int sideInCheck = ThePosition().SideInCheck;
  ai::CandidateList list;
  ai::GenerateAllMoves(reached.side, list, reached.lastMove, sideInCheck);
  std::vector<std::string> candidates;
  for (const ai::CandidateMove& move : list) {
    const int before = ai::EvaluateMove(move.from, move.to, sideInCheck, false, reached.lastMove);
    const int after = ai::EvaluateMove(move.from, move.to, sideInCheck, true, reached.lastMove);
    candidates.push_back(JsonObject()
                             .Add("move", MoveText(move.from, move.to))
                             .Add("before", before)
                             .Add("after", after)
                             .Add("score", int{ai::Saturate(after - before)})
                             .Text());
  }
  JsonObject().Add("candidates", JsonArray(candidates)).Print();
}

void SearchLine(const PositionLine& line, CollectedMessages& messages, int depth,
                std::uint64_t seed) {
  const Reached reached = ReachPosition(line, messages);
  ai::SearchOrder order;
  order.maxDepth = depth;
  order.side = reached.side;
  order.lastMove = reached.lastMove;
  order.sideInCheck = ThePosition().SideInCheck;
  order.seed = seed;
  order.threads = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
  ai::SearchWatch watch;
  const auto begin = std::chrono::steady_clock::now();
  const ai::SearchResult result = ai::SearchBestMove(order, watch);
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
  std::vector<std::string> root;
  for (const ai::CandidateMove& move : result.root) {
    root.push_back(JsonObject()
                       .Add("move", MoveText(move.from, move.to))
                       .Add("score", int{move.Score})
                       .Text());
  }
  const Json best{result.root.empty() ? "null"
                                      : Quoted(MoveText(result.best.from, result.best.to))};
  JsonObject()
      .Add("value", int{result.value})
      .Add("best", best)
      .Add("considered", watch.MovesConsidered.load())
      .Add("root", JsonArray(root))
      .Add("seconds", took.count())
      .Print();
}

}  // namespace

bool Evaluate(const Call& call) {
  TakeHeuristics(call.arguments);
  ForEachPosition([&](const PositionLine& line) { EvaluateLine(line, call.messages); });
  return true;
}

bool Search(const Call& call) {
  TakeHeuristics(call.arguments);
  const auto depth = static_cast<int>(call.arguments.OptionNumber("--depth", 0, ai::deepestSearch));
  const std::uint64_t seed = call.arguments.Has("--seed")
                                 ? call.arguments.OptionNumber("--seed", 0, UINT64_MAX)
                                 : std::random_device{}();
  ForEachPosition([&](const PositionLine& line) { SearchLine(line, call.messages, depth, seed); });
  return true;
}

}  // namespace cli
