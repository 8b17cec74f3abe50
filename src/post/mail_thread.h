// SPDX-License-Identifier: GPL-3.0-or-later
// The mail service's own thread, so that no window waits for a network. Work is done one item after
// the other, in the order in which it came. Everything here but the work itself belongs to the
// window's thread.
#pragma once

#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/events.h"

namespace post {

class MailThread {
 public:
  explicit MailThread(platform::Events& events);

  /// Waits for the item that is being worked on and drops those behind it.
  ~MailThread();

  MailThread(const MailThread&) = delete;
  MailThread& operator=(const MailThread&) = delete;

  /// Lets events run until `work` is done, and raises what it raised.
  void Run(std::function<void()> work);

  /// Returns at once. The first failure is kept for Flush.
  void Post(std::function<void()> work);

  /// Waits for all that was posted. Raises the first failure since the last Flush.
  void Flush();

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
  void Finish(const Item& item, std::exception_ptr failure);

  platform::Events& events_;
  std::mutex mutex_;
  std::condition_variable added_;
  std::deque<Item> queue_;
  std::exception_ptr failure_;
  bool stopping_ = false;
  std::thread thread_;
};

}  // namespace post
