// SPDX-License-Identifier: GPL-3.0-or-later
// Changing the look from a menu: one of the skins, or the plain windows.
#pragma once

#include <vector>

#include "widgets/menu_rows.h"

namespace ui {

/// Another skin is put on at once. The way between skins and plain windows waits for the next
/// start, which the user is told.
std::vector<MenuRow> LookRows();

/// What says that the style of the windows changes with the next start.
void TellOfLaterStyle(bool simple);

}  // namespace ui
