// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the file system: the few operations that the game file, its backup and the move files
// need. Every failure raises FileError; nothing is half done but what Write leaves of a new file.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

struct FileError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// A lock that is held for as long as this lives.
class HeldLock {
 public:
  virtual ~HeldLock() = default;
};

class Files {
 public:
  virtual ~Files() = default;

  virtual bool Exists(const std::string& path) = 0;
  virtual std::string Read(const std::string& path) = 0;

  /// A text that differs from all earlier ones once the file was written or replaced, whoever did
  /// it; empty where there is no file. Cheap: the content isn't read. Of a file that has just been
  /// changed it may differ each time.
  virtual std::string Stamp(const std::string& path) = 0;

  /// Creates the file or replaces what it held, and returns when it is on the disk. A failure may
  /// leave part of it, so the names written to are always temporary ones.
  virtual void Write(const std::string& path, std::string_view content) = 0;

  /// Puts a file in the place of another in one step that a crash can't divide, and returns when
  /// the folder's change is on the disk, or the disk doesn't take it yet: done is done.
  virtual void Rename(const std::string& from, const std::string& to) = 0;

  virtual void Remove(const std::string& path) = 0;

  /// The names (without folder) of the files in a folder, in the file system's order.
  virtual std::vector<std::string> List(const std::string& folder) = 0;

  /// Keeps out every other process that asks for the same lock, after waiting for it for some
  /// seconds. `path` is a file that exists for the lock alone; it is made where it isn't there. On
  /// a file system that knows no locks it keeps nobody out. It doesn't nest within a process.
  virtual std::unique_ptr<HeldLock> Lock(const std::string& path) = 0;

  /// The same without waiting: nothing where another process holds it.
  virtual std::unique_ptr<HeldLock> TryLock(const std::string& path) = 0;

  /// Makes a folder that only the user can look into, where it isn't there. The one above it must
  /// be.
  virtual void MakeFolder(const std::string& path) = 0;
};

}  // namespace platform
