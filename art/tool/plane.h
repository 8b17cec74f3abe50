// SPDX-License-Identifier: GPL-3.0-or-later
// A square field of numbers, one a pixel: coverage, height, a component of a normal.
//
// Reading outside the field gives the nearest edge's value.
#pragma once

#include <QImage>

#include <algorithm>
#include <vector>

namespace art {

class Plane {
 public:
  explicit Plane(int side, float value = 0);

  int Side() const { return side_; }
  float& At(int x, int y) { return values_[Index(x, y)]; }
  const float& At(int x, int y) const { return values_[Index(x, y)]; }
  float AtNearest(int x, int y) const {
    return At(std::clamp(x, 0, side_ - 1), std::clamp(y, 0, side_ - 1));
  }
  /// True if every value is 0.
  bool IsEmpty() const;
  /// Between pixels, by the four neighbours.
  float Sample(float x, float y) const;

 private:
  size_t Index(int x, int y) const {
    return static_cast<size_t>(y) * static_cast<size_t>(side_) + static_cast<size_t>(x);
  }

  int side_;
  std::vector<float> values_;
};

enum class Channel { Red, Green, Blue, Alpha };

/// Takes one channel of a square picture as 0 to 1; the colours are the premultiplied ones.
Plane ChannelOf(const QImage& picture, Channel channel);

/// Three box blurs, which come close to a bell of standard deviation `radius` pixels.
Plane Blurred(const Plane& source, float radius);

/// `source` moved by (dx, dy) pixels.
Plane Shifted(const Plane& source, float dx, float dy);

}  // namespace art
