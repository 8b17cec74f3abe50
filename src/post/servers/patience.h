// SPDX-License-Identifier: GPL-3.0-or-later
// How long the other end of a connection may keep us waiting.
#pragma once

#include <atomic>
#include <chrono>

namespace post {

class Patience {
 public:
  using Clock = std::chrono::steady_clock;

  /// `silence`: the longest wait for the next byte.
  explicit Patience(std::chrono::milliseconds silence) : silence_(silence) {}

  /// As long as the other's, whose end counts for nothing for the first `least`. The other one must
  /// outlive it.
  Patience(const Patience& other, Clock::duration least)
      : silence_(other.silence_), other_(&other), least_(Clock::now() + least) {}

  std::chrono::milliseconds Silence() const { return silence_; }

  /// The longest that one command may take, however busily its answer drips in.
  std::chrono::milliseconds Command() const { return 20 * silence_; }

  /// Callable from any thread, and as often as one likes: half a second after the first time all
  /// patience is over, for good.
  void Hurry() {
    Clock::duration never = Clock::duration::max();
    end_.compare_exchange_strong(
        never, (Clock::now() + std::chrono::milliseconds(500)).time_since_epoch());
  }

  bool IsOver() const {
    const auto now = Clock::now();
    if (other_) return now > least_ && other_->IsOver();
    return now.time_since_epoch() > end_.load();
  }

 private:
  std::chrono::milliseconds silence_;
  std::atomic<Clock::duration> end_ = Clock::duration::max();
  const Patience* other_ = nullptr;
  Clock::time_point least_;
};

}  // namespace post
