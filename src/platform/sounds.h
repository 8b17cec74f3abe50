// SPDX-License-Identifier: GPL-3.0-or-later
// The seam to the sound device.
#pragma once

#include <string>

namespace platform {

class Sounds {
 public:
  virtual ~Sounds() = default;

  /// Starts the wave file without waiting, cutting off the one before. Silent on any error.
  virtual void Play(const std::string& path) = 0;
};

}  // namespace platform
