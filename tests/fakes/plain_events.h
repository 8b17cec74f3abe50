// SPDX-License-Identifier: GPL-3.0-or-later
// Waiting without a toolkit's event loop.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

#include "platform/events.h"

namespace fakes {

/// Posted work runs on the thread that waits in RunUntil, and waits itself until one does.
class PlainEvents : public platform::Events {
 public:
  void RunUntil(const std::function<bool()>& done) override;
  void LetUserActUntil(const std::function<bool()>& done) override { RunUntil(done); }
  void Wake() override;
  void Post(std::function<void()> work) override;

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> posted_;
  bool woken_ = false;
};

}  // namespace fakes
