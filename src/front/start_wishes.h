// SPDX-License-Identifier: GPL-3.0-or-later
// What the settings say of how the program begins, read before there is any program.
#pragma once

#include <optional>
#include <string>

namespace front {

struct StartWishes {
  std::optional<std::string> windowSize;  ///< none in the plain look
  double lastScale = 1;  ///< of the windows, at the last start; 1 in the plain look
  bool splash = false;   ///< begins with the start picture
};

StartWishes ReadStartWishes(const std::string& settingsFile);

/// The scale, for the next start. Once the settings are there.
void RememberScale(double scale);

}  // namespace front
