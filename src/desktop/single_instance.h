// SPDX-License-Identifier: GPL-3.0-or-later
// One running program for each user and program folder. The mark is a lock file that names the
// process which holds it, so one that crashed leaves nothing in the way.
#pragma once

#include <QLockFile>

#include <memory>
#include <string>

namespace desktop {

class SingleInstance {
 public:
  explicit SingleInstance(const std::string& folder);

  /// True where another process holds the mark; else this one does from now on, for the lifetime of
  /// this object. Where no lock file can be written nobody can know, and the program goes on.
  bool IsAnotherRunning();

  /// This process holds the mark.
  bool IsHeld() const { return lock_->isLocked(); }

  /// Where the one that holds the mark listens; the same for all.
  std::string Socket() const;

 private:
  QString mark_;  // without what its files end with
  std::unique_ptr<QLockFile> lock_;
};

}  // namespace desktop
