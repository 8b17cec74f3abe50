// SPDX-License-Identifier: GPL-3.0-or-later
// The program's windows for screen readers, which take a widget of no known kind for a part of a
// window, and don't tell of its coming then.
#pragma once

namespace ui {

/// For all windows that are made from now on.
void LetWindowsBeRead();

}  // namespace ui
