// SPDX-License-Identifier: GPL-3.0-or-later
// How large the skinned windows are. Their places are told in pixels, so they grow by a factor that
// the toolkit is given before it shows anything; the art has pixels enough to stay crisp.
#pragma once

#include <span>
#include <string_view>

#include "skin/layouts/layout.h"

namespace ui {

struct WindowSize {
  const char* stored;   ///< the text of the setting
  const char* caption;  ///< for the user
  int percent;          ///< 0: as large as the screen allows
};

/// All that the user can choose from. The first is for who has never chosen.
std::span<const WindowSize> WindowSizes();

/// A screen without the factor, in logical pixels of `pixelRatio` pixels each.
struct ScreenRoom {
  int height = 0;
  layouts::Size available;  ///< what panels leave of it
  double pixelRatio = 1;
};

/// The factor for a size by its stored text; an unknown one means 100 %. It is less than that where
/// the highest or the widest window needs it, but never so small that a logical pixel has less than
/// one of the screen, which the toolkit can't draw.
double WindowScaleFor(std::string_view stored, const ScreenRoom& screen);

}  // namespace ui
