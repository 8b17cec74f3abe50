// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "rules/position.h"

namespace rules {

/// Puts all of this thread's position back as it was found.
class PositionGuard {
 public:
  PositionGuard() : saved_(ThePosition()) {}
  ~PositionGuard() { ThePosition() = saved_; }
  PositionGuard(const PositionGuard&) = delete;
  PositionGuard& operator=(const PositionGuard&) = delete;

 private:
  Position saved_;
};

}  // namespace rules
