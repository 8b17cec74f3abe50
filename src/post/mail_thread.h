// SPDX-License-Identifier: GPL-3.0-or-later
// The mail service's own thread, so that no window waits for a network. Work is done one item after
// the other, in the order in which it came. Everything here but the work itself belongs to the
// window's thread.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/events.h"

namespace post {

class MailThread {
 public:
  explicit MailThread(platform::Events& events);

  ~MailThread() { Stop(); }

  MailThread(const MailThread&) = delete;
  MailThread& operator=(const MailThread&) = delete;

  /// For good. Waits for the item that is being worked on and drops those behind it.
  void Stop();

  /// Lets events run until `work` is done, and raises what it raised.
  void Run(std::function<void()> work);

  /// Returns at once. The first failure is kept for Flush.
  void Post(std::function<void()> work);

  /// Waits for all that was posted. Raises the first failure since the last Flush.
  void Flush();

  /// Callable from any thread. Has `work` done at that time, behind what is there to do by then; of
  /// several calls only the last counts. What it raises nobody hears of. Until then the thread
  /// sleeps.
  using Clock = std::chrono::steady_clock;
  void PostAt(Clock::time_point when, std::function<void()> work);

  /// Returns at once. The failures of what was posted before are not kept for Flush.
  void ForgetFailure();

 private:
  struct Outcome;
  struct Item {
    std::function<void()> work;
    std::shared_ptr<Outcome> outcome;  ///< none where nobody waits
  };

  void Add(Item item);
  void Work();
  std::optional<Item> NextItem();
  void Finish(const Item& item, std::exception_ptr failure);

  platform::Events& events_;
  std::mutex mutex_;
  std::condition_variable added_;
  std::deque<Item> queue_;
  Item putOff_;  // until `due_`
  Clock::time_point due_ = Clock::time_point::max();
  std::exception_ptr failure_;
  bool stopping_ = false;
  std::thread thread_;
};

}  // namespace post
