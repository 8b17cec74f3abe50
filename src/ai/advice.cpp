// SPDX-License-Identifier: GPL-3.0-or-later
#include "ai/advice.h"

#include "rules/position_guard.h"

namespace ai {

void Advise(const AdviceOrder& order, SearchWatch& watch, const TakeAdvice& take) {
  const rules::PositionGuard guard;
  rules::ThePosition() = order.moment.position;
  SearchOrder search;
  search.side = order.moment.side;
  search.lastMove = order.moment.lastMove;
  search.sideInCheck = order.moment.position.SideInCheck;
  search.threads = order.threads;
  search.heuristics = order.heuristics;
  for (search.maxDepth = 0; search.maxDepth <= order.maxDepth; ++search.maxDepth) {
    watch.progress = 0;
    const SearchResult result = SearchBestMove(search, watch);
    if (watch.SearchCancelled) return;
    take(search.maxDepth, result.root);
  }
}

}  // namespace ai
