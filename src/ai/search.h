// SPDX-License-Identifier: GPL-3.0-or-later
// The computer's choice of a move: a tree of fixed depth on test moves, each candidate scored by
// the motivations, the lists below the root thinned at random, one of the best root moves taken at
// random. It is no minimax search: every node takes the best of its own list, whoever moves there.
//
// The random draws are a pure function of the seed, the moves that led to the node and the number
// of the draw in it, so a search gives the same with any number of threads.
#pragma once

#include <atomic>
#include <cstdint>

#include "ai/candidates.h"
#include "ai/heuristics.h"
#include "rules/position.h"

namespace ai {

/// What the whole of a search's progress counts to.
inline constexpr int fullSpan = 30000;

/// The largest depth that the setting offers; the least is 0.
inline constexpr int deepestSearch = 4;

struct SearchOrder {
  int maxDepth = 0;  ///< plies that are expanded; their children are scored
  rules::Side side = rules::Black;
  rules::LastMove lastMove;
  int sideInCheck = rules::NobodyInCheck;
  std::uint64_t seed = 0;
  int threads = 1;
  HeuristicTable heuristics = Heuristics;  ///< as they are when the order is given
};

/// What a search in progress tells, and hears, from another thread. New for each search, or reset.
struct SearchWatch {
  std::atomic<bool> SearchCancelled = false;
  std::atomic<std::int64_t> MovesConsidered = 0;  ///< candidates scored on the last ply
  std::atomic<double> progress = 0;               ///< up to fullSpan, nearly
};

struct SearchResult {
  std::int16_t value = 0;
  CandidateMove best;  ///< from {0, 0} to {0, 0} where the side has no legal move
  CandidateList root;  ///< in its final order
};

/// Searches this thread's position, and leaves it as it was. A search that was cancelled has
/// nothing as its result.
SearchResult SearchBestMove(const SearchOrder& order, SearchWatch& watch);

}  // namespace ai
