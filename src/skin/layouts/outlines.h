// SPDX-License-Identifier: GPL-3.0-or-later
// The outlines of the shaped windows: one closed polygon each, in logical pixels, clockwise. They
// belong to the windows, and every skin's pictures fit into them.
#pragma once

#include <string_view>
#include <vector>

#include "skin/layouts/layout.h"

namespace ui::layouts {

struct Point {
  double x = 0;
  double y = 0;
};

using Outline = std::vector<Point>;

/// Of a dialog of that size.
Outline DialogOutline(const Size& size);

/// Empty where no shaped window has that name.
Outline OutlineOf(std::string_view window);

}  // namespace ui::layouts
