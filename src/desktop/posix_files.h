// SPDX-License-Identifier: GPL-3.0-or-later
// The file system by POSIX calls, because only they can tell when data is on the disk. Nothing here
// but the standard library and POSIX.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace desktop {

class PosixFiles : public platform::Files {
 public:
  /// True also for a folder. Raises where it can't be told, and where a link leads nowhere, so that
  /// an unreachable file never counts as an absent one.
  bool Exists(const std::string& path) override;

  /// Regular files only: a device or a pipe is refused, not waited for.
  std::string Read(const std::string& path) override;

  std::string Stamp(const std::string& path) override;
  void Write(const std::string& path, std::string_view content) override;
  void Rename(const std::string& from, const std::string& to) override;
  void Remove(const std::string& path) override;

  /// Without the names of folders.
  std::vector<std::string> List(const std::string& folder) override;

  /// Waits up to ten seconds.
  std::unique_ptr<platform::HeldLock> Lock(const std::string& path) override;
  std::unique_ptr<platform::HeldLock> TryLock(const std::string& path) override;
  void MakeFolder(const std::string& path) override;
};

}  // namespace desktop
