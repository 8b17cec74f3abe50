// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/plain_events.h"

#include <utility>

namespace fakes {

void PlainEvents::RunUntil(const std::function<bool()>& done) {
  while (!done()) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return woken_ || !posted_.empty(); });
    woken_ = false;
    if (posted_.empty()) continue;
    const auto work = std::move(posted_.front());
    posted_.pop_front();
    lock.unlock();
    work();
  }
}

void PlainEvents::Wake() {
  const std::lock_guard lock(mutex_);
  woken_ = true;
  changed_.notify_one();
}

void PlainEvents::Post(std::function<void()> work) {
  const std::lock_guard lock(mutex_);
  posted_.push_back(std::move(work));
  changed_.notify_one();
}

}  // namespace fakes
