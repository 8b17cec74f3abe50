// SPDX-License-Identifier: GPL-3.0-or-later
// Drawing all windows larger or smaller, as the user wants them.
#pragma once

#include <string>

namespace app {

/// Counts for the application object that is made next. Looks at the screen by one of its own,
/// which must be the first. Does nothing in the plain look.
void ScaleWindows(const std::string& settingsFile, int argc, char** argv);

/// Other programs that this one starts keep their own size. Once the application object is there.
void KeepScaleToOneself();

}  // namespace app
