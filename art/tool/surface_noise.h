// SPDX-License-Identifier: GPL-3.0-or-later
// Noise that is a pure function of seed and place, so that a picture comes out the same every time.
#pragma once

#include <cstdint>

namespace art {

class SurfaceNoise {
 public:
  explicit SurfaceNoise(int seed) : seed_(static_cast<uint32_t>(seed)) {}

  /// Gradient noise, about -1 to 1; it changes once in a unit.
  float At(float x, float y) const;
  /// Octaves of half the strength and twice the fineness added up.
  float Turbulence(float x, float y, int octaves) const;
  /// How close to the border between two cells of about a unit's width: 0 at it, 1 amid a cell.
  float Cells(float x, float y) const;

 private:
  uint32_t Corner(int x, int y) const;
  float Pull(int ix, int iy, float dx, float dy) const;

  uint32_t seed_;
};

}  // namespace art
