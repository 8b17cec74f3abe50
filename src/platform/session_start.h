// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to what a desktop starts by itself when its user logs in.
#pragma once

namespace platform {

class SessionStart {
 public:
  virtual ~SessionStart() = default;

  /// Whether the program is among it. False, too, where that can't be told.
  virtual bool StartsProgram() { return false; }

  /// Raises FileError where it stays as it was.
  virtual void StartProgram(bool /*wanted*/) {}
};

}  // namespace platform
