// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/options/legible_blue.h"

#include "widgets/contrast.h"

namespace ui {

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
