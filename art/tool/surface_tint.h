// SPDX-License-Identifier: GPL-3.0-or-later
// Colours as numbers that can be mixed and lit.
#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace art {

/// Red, green and blue as 0 to 1, in the coding of the screen.
struct Tint {
  float red = 0, green = 0, blue = 0;

  static Tint Of(const QColor& colour) { return {colour.redF(), colour.greenF(), colour.blueF()}; }

  Tint Times(float factor) const { return {red * factor, green * factor, blue * factor}; }

  QRgb Pixel() const { return qRgb(Byte(red), Byte(green), Byte(blue)); }

 private:
  static int Byte(float value) {
    return static_cast<int>(std::lround(std::clamp(value, 0.0F, 1.0F) * 255));
  }
};

inline Tint Mix(const Tint& a, const Tint& b, float share) {
  return {a.red + (b.red - a.red) * share, a.green + (b.green - a.green) * share,
          a.blue + (b.blue - a.blue) * share};
}

/// 0 up to `from`, 1 beyond `to`, an even slope without corners between.
inline float Ease(float from, float to, float value) {
  const float share = std::clamp((value - from) / (to - from), 0.0F, 1.0F);
  return share * share * (3 - 2 * share);
}

}  // namespace art
