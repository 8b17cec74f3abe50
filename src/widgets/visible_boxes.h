// SPDX-License-Identifier: GPL-3.0-or-later
// Boxes to tick, on dark grounds: the toolkit frames them in a colour that is darker than any, so
// that one without a tick can't be seen there.
#pragma once

namespace ui {

/// For all plain windows, whatever colours the desktop has.
void KeepBoxesVisible();

}  // namespace ui
