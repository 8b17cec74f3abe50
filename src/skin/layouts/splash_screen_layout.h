// SPDX-License-Identifier: GPL-3.0-or-later
// The start picture. It has neither an outline nor a skin: the picture is the window.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Layout splashScreen{"SplashScreen", {480, 300}};

}  // namespace ui::layouts
