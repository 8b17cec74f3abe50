// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/database_lock.h"

#include <memory>

#include "platform/process_state.h"
#include "platform/seams.h"

namespace store {
namespace {

/// Of this process: its outermost DatabaseLock holds the lock.
struct Nesting {
  int depth = 0;
  std::unique_ptr<platform::HeldLock> held;
};

Nesting& TheNesting() {
  static Nesting nesting;
  return nesting;
}

}  // namespace

DatabaseLock::DatabaseLock() {
  Nesting& nesting = TheNesting();
  if (nesting.depth == 0) {
    nesting.held = platform::TheSeams().files->Lock(platform::Process().DataPath + "tvgdb.lock");
  }
  ++nesting.depth;
}

DatabaseLock::~DatabaseLock() {
  Nesting& nesting = TheNesting();
  if (--nesting.depth == 0) nesting.held.reset();
}

}  // namespace store
