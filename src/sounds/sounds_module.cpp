// SPDX-License-Identifier: GPL-3.0-or-later
// The door of the module.
#include "sounds/qt_sounds.h"

/// To be deleted by the caller.
extern "C" __attribute__((visibility("default"))) platform::Sounds* TarvolenixNewSounds() {
  return new sounds::QtSounds;
}
