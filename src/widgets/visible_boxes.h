// SPDX-License-Identifier: GPL-3.0-or-later
// Boxes to tick and fields, on dark grounds: the toolkit frames them in a colour that is darker
// than any, so that an empty one can't be seen there.
#pragma once

namespace ui {

/// For all plain windows, whatever colours the desktop has.
void KeepBoxesVisible();

}  // namespace ui
