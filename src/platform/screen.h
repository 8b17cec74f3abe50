// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to what the program asks of the screen before it chooses its look, and to its own other
// instances.
#pragma once

#include <optional>
#include <string>

namespace platform {

/// What the desktop doesn't tell is empty.
struct DisplaySettings {
  std::optional<std::string> DPILogicalX;  ///< dots per inch, in plain decimal
  std::optional<std::string> DPILogicalY;
  std::optional<std::string> Resolution;  ///< width, ",", height in logical pixels
  std::optional<int> BitsPerPixel;
};

class Screen {
 public:
  virtual ~Screen() = default;

  virtual DisplaySettings Settings() = 0;

  /// True where this user runs another instance from the same program folder. Else this one is
  /// known to later ones from now on.
  virtual bool IsAnotherInstanceRunning() = 0;
};

}  // namespace platform
