// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/legible_blue.h"

#include <algorithm>
#include <cmath>

namespace ui {
namespace {

constexpr double legibleContrast = 4.5;  // for text, as is generally advised

/// The light that a channel of a screen gives off.
double Light(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Light(colour.redF()) + 0.7152 * Light(colour.greenF()) +
         0.0722 * Light(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

}  // namespace

QColor LegibleBlue(const QColor& ground) {
  constexpr float hue = 2.0F / 3, plain = 0.5F, step = 0.05F;
  QColor best = QColor::fromHslF(hue, 1, plain);
  for (float off = 0; off < plain; off += step) {
    for (const float lightness : {plain + off, plain - off}) {
      const QColor blue = QColor::fromHslF(hue, 1, lightness);
      if (Contrast(blue, ground) >= legibleContrast) return blue;
      if (Contrast(blue, ground) > Contrast(best, ground)) best = blue;
    }
  }
  return best;
}

}  // namespace ui
