// SPDX-License-Identifier: GPL-3.0-or-later
// Files in memory. The N-th operation can be made to fail, as a full disk or a lost drive would.
// The operations may come from several threads at a time, as on a disk; a test itself has `content`
// only while no other is at work.
#pragma once

#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "platform/files.h"

namespace fakes {

class MemoryFiles : public platform::Files {
 public:
  /// A folder, whose path ends in "/", is there with its first file.
  bool Exists(const std::string& path) override {
    const std::lock_guard lock(mutex_);
    const auto found = content.lower_bound(path);
    return found != content.end() &&
           (found->first == path || (path.ends_with('/') && found->first.starts_with(path)));
  }
  std::string Read(const std::string& path) override;
  /// The content itself: it needs no clock.
  std::string Stamp(const std::string& path) override {
    const std::lock_guard lock(mutex_);
    return Exists(path) ? "file " + content[path] : std::string{};
  }
  void Write(const std::string& path, std::string_view text) override;
  void Rename(const std::string& from, const std::string& to) override;
  void Remove(const std::string& path) override;
  std::vector<std::string> List(const std::string& folder) override;
  std::unique_ptr<platform::HeldLock> Lock(const std::string& path) override;
  std::unique_ptr<platform::HeldLock> TryLock(const std::string& path) override;
  void MakeFolder(const std::string&) override {}

  /// Lets the operation with this number fail, counting from 1 from now on (Exists isn't counted).
  /// A failing Write leaves the first half of its text, as a full disk does.
  void FailOperation(int number);

  std::map<std::string, std::string> content;
  std::set<std::string> locked;         ///< paths of the locks that are held, by whomever
  std::vector<std::string> operations;  ///< such as "write /program/Data/tvgdb.new"

 private:
  bool NextFails(const std::string& operation);

  std::recursive_mutex mutex_;
  int operationsUntilFailure_ = 0;
};

}  // namespace fakes
