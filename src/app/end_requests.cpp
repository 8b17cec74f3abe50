// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/end_requests.h"

#include <signal.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cstdint>
#include <utility>

namespace app {

namespace {

constexpr int signals[] = {SIGTERM, SIGINT, SIGHUP};

/// All that a signal handler may do.
int wakeUp = -1;

void Note(int) {
  const std::uint64_t one = 1;
  [[maybe_unused]] const ssize_t written = ::write(wakeUp, &one, sizeof one);
}

void Handle(void (*handler)(int)) {
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int signal : signals) ::sigaction(signal, &action, nullptr);
}

int MadeWakeUp() {
  wakeUp = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  return wakeUp;
}

}  // namespace

EndRequests::EndRequests(std::function<void()> end)
    : notifier_(MadeWakeUp(), QSocketNotifier::Read) {
  QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [end = std::move(end)] {
    std::uint64_t count = 0;
    if (::read(wakeUp, &count, sizeof count) > 0) end();
  });
  Handle(Note);
}

EndRequests::~EndRequests() {
  Handle(SIG_DFL);
  notifier_.setEnabled(false);
  ::close(std::exchange(wakeUp, -1));
}

}  // namespace app
