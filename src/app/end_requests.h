// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's or the user's wish from outside that the program end: a signal such as SIGTERM. It
// is told in the event loop, where windows can be closed and games saved.
#pragma once

#include <QSocketNotifier>

#include <functional>

namespace app {

class EndRequests {
 public:
  /// Takes the process's signals for its lifetime. There is one of these.
  explicit EndRequests(std::function<void()> end);
  ~EndRequests();
  EndRequests(const EndRequests&) = delete;
  EndRequests& operator=(const EndRequests&) = delete;

 private:
  QSocketNotifier notifier_;
};

}  // namespace app
