// SPDX-License-Identifier: GPL-3.0-or-later
// Working on the games with everybody else locked out: from the look for a game to its saving
// nobody else may found or change it.
#pragma once

#include <stdexcept>
#include <string>

#include "platform/files.h"
#include "store/database_lock.h"

namespace mail {

/// The store can't be read or written.
struct StoreFailure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The file system refuses it; what() names the file.
struct FileFailure : StoreFailure {
  using StoreFailure::StoreFailure;
};

/// What the file system said; blank where the failure isn't its own.
inline std::string FileCause(const std::exception& failure) {
  const bool isFiles = dynamic_cast<const FileFailure*>(&failure) ||
                       dynamic_cast<const platform::FileError*>(&failure);
  return isFiles ? failure.what() : "";
}

/// Raises what `work` raises, but what the file system refuses as FileFailure.
template <typename Work>
void WithGamesLocked(const Work& work) {
  try {
    const store::DatabaseLock lock;
    work();
  } catch (const platform::FileError& error) {
    throw FileFailure(error.what());
  }
}

}  // namespace mail
