// SPDX-License-Identifier: GPL-3.0-or-later
// The computer's opinion of all moves of a position, the quick one first and better ones after it.
#pragma once

#include <functional>

#include "ai/moment.h"
#include "ai/search.h"

namespace ai {

struct AdviceOrder {
  Moment moment;
  int maxDepth = 0;
  int threads = 1;
  HeuristicTable heuristics = Heuristics;  ///< as they are when the order is given
};

/// Hears of the moves, the best first, as they look at a depth.
using TakeAdvice = std::function<void(int depth, const CandidateList& moves)>;

/// Searches at each depth from 0 up to the largest, on a copy of the position. The same order has
/// the same advice. Ends early when the watch is cancelled, and tells no more then.
void Advise(const AdviceOrder& order, SearchWatch& watch, const TakeAdvice& take);

}  // namespace ai
