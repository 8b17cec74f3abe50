// SPDX-License-Identifier: GPL-3.0-or-later
// Whether what lies behind a window can show through it.
#pragma once

namespace ui {

/// Asked of the desktop each time: compositing comes and goes.
bool ScreenIsComposited();

}  // namespace ui
