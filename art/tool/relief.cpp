// SPDX-License-Identifier: GPL-3.0-or-later
#include "relief.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace art {

namespace {

// Rounding radii of carved parts, in parts of a cell: the edge itself, the form, and the whole.
constexpr float kRoundings[] = {0.008F, 0.024F, 0.060F};
constexpr float kCarvedSteepness = 1.5F;
constexpr float kRaisedSteepness = 0.9F;
constexpr float kSteepestProfile = 2.5F;

// Radius of a turned part at each row, in pixels, 0 where it isn't.
std::vector<float> ProfileOf(const Plane& turned) {
  std::vector<float> radii(static_cast<size_t>(turned.Side()));
  for (int y = 0; y < turned.Side(); ++y) {
    float width = 0;
    for (int x = 0; x < turned.Side(); ++x) width += turned.At(x, y);
    radii[static_cast<size_t>(y)] = width / 2;
  }
  return radii;
}

// How fast the radius grows downwards, looked at over `reach` rows up and down.
float Slope(const std::vector<float>& radii, int y, int reach) {
  const int last = static_cast<int>(radii.size()) - 1;
  const int above = std::max(0, y - reach), below = std::min(last, y + reach);
  const float rise = radii[static_cast<size_t>(below)] - radii[static_cast<size_t>(above)];
  return std::clamp(rise / static_cast<float>(below - above), -kSteepestProfile, kSteepestProfile);
}

// A surface of revolution x * x + z * z = r(y) * r(y) faces along (x, -r * r', z).
void PutTurned(Relief& relief, const Plane& turned) {
  const std::vector<float> radii = ProfileOf(turned);
  const int side = turned.Side();
  const float axis = static_cast<float>(side) / 2;
  const int reach = std::max(1, side / 110);
  for (int y = 0; y < side; ++y) {
    const float radius = std::max(1.0F, radii[static_cast<size_t>(y)]);
    const float slope = Slope(radii, y, reach);
    for (int x = 0; x < side; ++x) {
      if (turned.At(x, y) == 0) continue;
      const float across = std::clamp((static_cast<float>(x) + 0.5F - axis) / radius, -1.0F, 1.0F);
      relief.Set(x, y, Unit({across, -slope, std::sqrt(1 - across * across)}));
    }
  }
}

// Several blurs of the coverage added up make a cushion whose edge is round at every scale.
Plane CushionOf(const Plane& part) {
  const float side = static_cast<float>(part.Side());
  Plane height(part.Side());
  for (float rounding : kRoundings) {
    const float radius = rounding * side;
    const Plane blurred = Blurred(part, radius);
    for (int y = 0; y < part.Side(); ++y) {
      for (int x = 0; x < part.Side(); ++x) height.At(x, y) += blurred.At(x, y) * radius;
    }
  }
  return height;
}

void PutCarved(Relief& relief, const Plane& part, float steepness) {
  if (part.IsEmpty()) return;
  const Plane height = CushionOf(part);
  for (int y = 0; y < part.Side(); ++y) {
    for (int x = 0; x < part.Side(); ++x) {
      if (part.At(x, y) == 0) continue;
      const float dx = height.AtNearest(x + 1, y) - height.AtNearest(x - 1, y);
      const float dy = height.AtNearest(x, y + 1) - height.AtNearest(x, y - 1);
      relief.Set(x, y, Unit({-steepness * dx, -steepness * dy, 1}));
    }
  }
}

}  // namespace

Direction Unit(Direction d) {
  const float length = std::sqrt(d.x * d.x + d.y * d.y + d.z * d.z);
  return {d.x / length, d.y / length, d.z / length};
}

void Relief::Set(int px, int py, Direction d) {
  x.At(px, py) = d.x;
  y.At(px, py) = d.y;
  z.At(px, py) = d.z;
}

Relief ReliefOf(const PieceDrawing& drawing) {
  Relief relief(drawing.cover.Side());
  PutTurned(relief, drawing.turned);
  PutCarved(relief, drawing.carved, kCarvedSteepness);
  PutCarved(relief, drawing.raised, kRaisedSteepness);
  return relief;
}

}  // namespace art
