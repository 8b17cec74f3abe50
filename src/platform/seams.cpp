// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/seams.h"

namespace platform {

Seams& TheSeams() {
  static Seams seams;
  return seams;
}

}  // namespace platform
