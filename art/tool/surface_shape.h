// SPDX-License-Identifier: GPL-3.0-or-later
// Shapes on a surface, told by how far a place lies from their edge. Bevels, lines at an even
// distance and soft shadows all follow from that one number.
#pragma once

#include <QRectF>

#include <span>
#include <vector>

#include "skin/layouts/outlines.h"

namespace art {

/// How far inside a place lies, negative outside, and the direction in which that grows.
struct Depth {
  float inside;
  float x, y;
};

class RoundedRect {
 public:
  RoundedRect(const QRectF& rect, float radius);

  Depth At(float x, float y) const;
  const QRectF& Bounds() const { return rect_; }

 private:
  QRectF rect_;
  float centreX_, centreY_, halfWidth_, halfHeight_, radius_;
};

/// A window's outline. Depths are worked out once for every pixel, since a polygon has many edges.
class OutlineShape {
 public:
  /// `scale` pixels to a logical one.
  OutlineShape(std::span<const ui::layouts::Point> outline, int width, int height, float scale);

  /// At a place in logical pixels; beside the picture it is the nearest edge's.
  Depth At(float x, float y) const;

 private:
  float Inside(int px, int py) const;

  int width_, height_;
  float scale_;
  std::vector<float> inside_;
};

}  // namespace art
