// SPDX-License-Identifier: GPL-3.0-or-later
// The pointer that asks the user for a moment's patience.
#pragma once

#include "platform/seams.h"

namespace platform {

/// Shows the busy pointer for its lifetime.
class BusyPointer {
 public:
  BusyPointer() { Show(true); }
  ~BusyPointer() { Show(false); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  static void Show(bool busy) {
    if (const auto& hook = TheSeams().hooks.busyPointer) hook(busy);
  }
};

}  // namespace platform
