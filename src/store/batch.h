// SPDX-License-Identifier: GPL-3.0-or-later
// Changes to the game file that reach the disk together, or not at all.
#pragma once

#include <optional>
#include <string>

#include "store/database_lock.h"

namespace store {

/// While one is open, all queries and savings of this process work on the file as the batch will
/// leave it, and other processes are kept out. There is one at a time.
class Batch {
 public:
  /// Raises platform::FileError.
  Batch();

  /// What wasn't kept never was.
  ~Batch();

  Batch(const Batch&) = delete;
  Batch& operator=(const Batch&) = delete;

  /// Saves what has changed, with the backup of what was before, and closes the batch. False on
  /// failure: the game file is as it was.
  bool Keep();

  /// The batch that is open, or null.
  static Batch* Open();

  const std::optional<std::string>& Content() const { return content_; }
  void Change(std::string content);

 private:
  const DatabaseLock lock_;
  std::optional<std::string> content_;
  bool hasChanged_ = false;
};

}  // namespace store
