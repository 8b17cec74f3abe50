// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/move_adviser.h"

#include <system_error>
#include <utility>

namespace ui {

MoveAdviser::~MoveAdviser() {
  watch_.SearchCancelled = true;
  if (search_.joinable()) search_.join();
}

void MoveAdviser::Start(ai::AdviceOrder order) {
  const auto take = [this](int depth, const ai::CandidateList& moves) { Hand(depth, moves); };
  try {
    search_ = std::jthread([this, order, take] { ai::Advise(order, watch_, take); });
  } catch (const std::system_error&) {
    order.maxDepth = 0;
    ai::Advise(order, watch_, take);
  }
}

void MoveAdviser::Hand(int depth, const ai::CandidateList& moves) {
  QMetaObject::invokeMethod(
      this, [this, depth, moves] { Q_EMIT Advised(depth, moves); }, Qt::QueuedConnection);
}

}  // namespace ui
