// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop.h"

namespace platform {

Desktop& TheDesktop() {
  static Desktop desktop;
  return desktop;
}

}  // namespace platform
