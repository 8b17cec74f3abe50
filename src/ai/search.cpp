// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/search.h"

#include <algorithm>
#include <limits>
#include <system_error>
#include <thread>
#include <vector>

#include "ai/evaluation.h"
#include "rules/test_moves.h"

namespace ai {

using rules::ThePosition;

namespace {

constexpr std::size_t smallestReduced = 5;
constexpr std::size_t keptBest = 4;
constexpr std::size_t usualMoves = 64;

/// Spreads the bits of a number over all others.
std::uint64_t Mix(std::uint64_t bits) {
  bits += 0x9e3779b97f4a7c15U;
  bits = (bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9U;
  bits = (bits ^ (bits >> 27)) * 0x94d049bb133111ebU;
  return bits ^ (bits >> 31);
}

/// The moves that led to a node, as the draws need them. 0 is the root.
std::uint64_t ExtendPath(std::uint64_t path, const CandidateMove& move) {
  const int squares = NumberOf(move.from) * 100 + NumberOf(move.to);
  return Mix(path ^ static_cast<std::uint64_t>(squares));
}

/// Draw `number`, from 0, of a node: a number from 0 up to but not including 1.
double DrawAtNode(std::uint64_t seed, std::uint64_t path, int number) {
  const std::uint64_t bits = Mix(Mix(seed ^ path) + static_cast<std::uint64_t>(number));
  return static_cast<double>(bits >> 11) * 0x1p-53;
}

/// Highest score first; equal ones keep their order.
void SortMoves(CandidateList& list) {
  for (std::size_t i = 1; i < list.size(); ++i) {
    const CandidateMove move = list[i];
    std::size_t place = i;
    for (; place > 0 && list[place - 1].Score < move.Score; --place) list[place] = list[place - 1];
    list[place] = move;
  }
}

/// Thins a list below the root: the four best, in their order, and others at random up to a third.
void ReduceMoves(CandidateList& list, std::uint64_t seed, std::uint64_t path) {
  const std::size_t count = list.size();
  if (count < smallestReduced) return;
  const std::size_t target = std::max(keptBest, count / 3);
  // Kept between calls for their memory alone.
  thread_local std::vector<bool> taken;
  thread_local CandidateList kept;
  taken.assign(count, false);
  kept.clear();
  while (kept.size() < keptBest) {
    std::size_t best = count;
    for (std::size_t i = 0; i < count; ++i) {
      if (!taken[i] && (best == count || list[i].Score > list[best].Score)) best = i;
    }
    taken[best] = true;
    kept.push_back(list[best]);
  }
  for (int number = 0; kept.size() < target; ++number) {
    const double place = static_cast<double>(count) * DrawAtNode(seed, path, number);
    const auto drawn = static_cast<std::size_t>(place);
    if (taken[drawn]) continue;
    taken[drawn] = true;
    kept.push_back(list[drawn]);
  }
  list.swap(kept);
}

/// The number of entries at the start of a sorted list that score as the first one does.
int CountBestTies(const CandidateList& list) {
  const auto differs = std::find_if(list.begin(), list.end(), [&](const CandidateMove& move) {
    return move.Score != list.front().Score;
  });
  return static_cast<int>(differs - list.begin());
}

/// A place among the nodes of the tree.
struct Node {
  int ply = 0;
  rules::Side side = rules::White;
  rules::LastMove lastMove;
  int sideInCheck = rules::NobodyInCheck;
  std::uint64_t path = 0;
  double span = 0;  ///< its share of the progress
};

int BestScore(const CandidateList& list) {
  const auto best = std::max_element(
      list.begin(), list.end(),
      [](const CandidateMove& a, const CandidateMove& b) { return a.Score < b.Score; });
  return best->Score;
}

class TreeWalk {
 public:
  TreeWalk(const SearchOrder& order, SearchWatch& watch) : order_(order), watch_(watch) {}

  CandidateList ScoredMoves(const Node& node) {
    CandidateList list;
    list.reserve(usualMoves);
    GenerateAllMoves(node.side, list, node.lastMove, node.sideInCheck);
    ScoreCandidates(list, node.side, node.sideInCheck, node.lastMove, order_.heuristics,
                    &watch_.SearchCancelled);
    if (node.ply == order_.maxDepth) {
      const auto count = static_cast<std::int64_t>(list.size());
      watch_.MovesConsidered.fetch_add(count, std::memory_order_relaxed);
      if (count > 0) watch_.progress.fetch_add(node.span, std::memory_order_relaxed);
    }
    return list;
  }

  /// Adds what follows a move to its score.
  void Follow(const Node& node, CandidateMove& move, std::size_t count) {
    Node next;
    next.ply = node.ply + 1;
    next.side = rules::OtherSide(node.side);
    next.lastMove = {move.from, move.to};
    next.sideInCheck = node.sideInCheck;
    next.path = ExtendPath(node.path, move);
    next.span = node.span / static_cast<double>(count);
    rules::MakeTestMove(node.side, move.from, move.to, ThePosition().BoardState.At(move.from),
                        node.lastMove, next.sideInCheck);
    const int value = ValueOf(next);
    rules::UndoTestMove(next.sideInCheck);
    move.Score = Saturate(node.side == order_.side ? move.Score - value : move.Score + value);
  }

  bool IsCancelled() const { return watch_.SearchCancelled.load(std::memory_order_relaxed); }

 private:
  int ValueOf(const Node& node) {
    if (IsCancelled()) return 0;
    CandidateList list = ScoredMoves(node);
    if (list.empty()) return 0;
    if (node.ply < order_.maxDepth) {
      ReduceMoves(list, order_.seed, node.path);
      for (CandidateMove& move : list) {
        if (IsCancelled()) return 0;
        Follow(node, move, list.size());
      }
    }
    // The best of a list is never thinned out, so on the last ply nothing else need be done. Nor
    // does the order of the moves below the root change anything: draws depend on the path alone.
    return BestScore(list);
  }

  const SearchOrder& order_;
  SearchWatch& watch_;
};

/// Follows the root moves, each on whichever thread is free.
void FollowRoot(const SearchOrder& order, SearchWatch& watch, const Node& root,
                CandidateList& list) {
  const rules::Position position = ThePosition();
  std::atomic<std::size_t> next = 0;
  const auto follow = [&] {
    ThePosition() = position;
    TreeWalk walk(order, watch);
    for (std::size_t i = next++; i < list.size() && !walk.IsCancelled(); i = next++) {
      walk.Follow(root, list[i], list.size());
    }
  };
  std::vector<std::jthread> helpers;
  try {
    for (int n = 1; n < order.threads; ++n) helpers.emplace_back(follow);
  } catch (const std::system_error&) {
    // Those that are there do it all.
  }
  follow();
}

}  // namespace

SearchResult SearchBestMove(const SearchOrder& order, SearchWatch& watch) {
  Node root;
  root.side = order.side;
  root.lastMove = order.lastMove;
  root.sideInCheck = order.sideInCheck;
  root.span = fullSpan;
  SearchResult result;
  if (watch.SearchCancelled) return result;
  result.root = TreeWalk(order, watch).ScoredMoves(root);
  SortMoves(result.root);
  if (order.maxDepth > 0) {
    FollowRoot(order, watch, root, result.root);
    SortMoves(result.root);
  }
  if (watch.SearchCancelled) return {};
  if (result.root.empty()) return result;
  result.value = result.root.front().Score;
  const int ties = CountBestTies(result.root);
  const double draw = ties < 2 ? 0 : DrawAtNode(order.seed, root.path, 0);
  result.best = result.root[static_cast<std::size_t>(ties * draw)];
  return result;
}

}  // namespace ai
