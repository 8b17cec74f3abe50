// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace board {

/// Marks that a message of the window is up, for the length of the message: the timer runs on
/// beneath it.
class DialogLock {
 public:
  explicit DialogLock(bool& locked) : locked_(locked) { locked_ = true; }
  ~DialogLock() { locked_ = false; }
  DialogLock(const DialogLock&) = delete;
  DialogLock& operator=(const DialogLock&) = delete;

 private:
  bool& locked_;
};

}  // namespace board
