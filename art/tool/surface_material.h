// SPDX-License-Identifier: GPL-3.0-or-later
// What a surface is made of: wood, leather, slate. All are one base tone that noise pulls a little
// towards a deeper and a paler one.
#pragma once

#include <QColor>

#include "surface_noise.h"
#include "surface_tint.h"

namespace art {

/// Lengths are logical pixels. A strength of 0 leaves that part of the structure out.
struct MaterialParameters {
  QColor base, deep, pale;
  int seed;
  float ringWidth, ringStrength, ringBend;       // year rings, cut along
  float fibreWidth, fibreLength, fibreStrength;  // stretched along the grain
  float poreStrength;                            // short dark strokes along the grain
  float cellWidth, cellStrength;                 // the skin of leather, the nap of felt
  float cloudWidth, cloudStrength;               // slow unevenness of the whole
};

class Material {
 public:
  explicit Material(const MaterialParameters& parameters);

  /// The tint at a place, under even light; the grain runs along x.
  Tint At(float x, float y) const;

 private:
  float ToneAt(float x, float y) const;

  MaterialParameters parameters_;
  Tint base_, deep_, pale_;
  SurfaceNoise noise_;
};

}  // namespace art
