// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the event loop, for long work of another thread: the caller waits, the windows live
// on.
#pragma once

#include <functional>

namespace platform {

class Events {
 public:
  virtual ~Events() = default;

  /// Lets events run until `done` answers true. `done` is asked whenever Wake was called, on the
  /// waiting thread.
  virtual void RunUntil(const std::function<bool()>& done) = 0;

  /// The same for work that the user needn't wait for: the windows stay as they are, and he may do
  /// what they let him.
  virtual void LetUserActUntil(const std::function<bool()>& done) = 0;

  /// Callable from any thread: makes a running wait ask again.
  virtual void Wake() = 0;

  /// Callable from any thread: runs `work` on the window's thread, from its event loop.
  virtual void Post(std::function<void()> work) = 0;
};

}  // namespace platform
