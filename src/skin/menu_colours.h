// SPDX-License-Identifier: GPL-3.0-or-later
// Menus and tool tips belong to no window that wears a skin, and wear it all the same.
#pragma once

#include <optional>

#include "skin/skin_colours.h"

namespace ui {

/// All menus, those to come too, and tool tips; without colours they are the desktop's own again.
void ColourMenus(const std::optional<GridColours>& colours);

}  // namespace ui
