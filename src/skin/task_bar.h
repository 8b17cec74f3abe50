// SPDX-License-Identifier: GPL-3.0-or-later
// Whether a window that was turned into an icon can be brought back by the mouse.
#pragma once

namespace ui {

/// Asked of the desktop each time, as panels come and go. Where it can't be told, as on a desktop
/// that keeps its panels to itself, the answer is true.
bool TaskBarShowsWindows();

}  // namespace ui
