// SPDX-License-Identifier: GPL-3.0-or-later
// Keeping other processes of the program (the console beside the window) from changing the game
// file between one's own look at it and the change that follows from that look.
#pragma once

namespace store {

/// Holds the lock of the data folder for its lifetime. Locks nest within a process. Raises
/// platform::FileError where another process doesn't let go of it, or the folder can't be written.
class DatabaseLock {
 public:
  DatabaseLock();
  ~DatabaseLock();
  DatabaseLock(const DatabaseLock&) = delete;
  DatabaseLock& operator=(const DatabaseLock&) = delete;
};

}  // namespace store
