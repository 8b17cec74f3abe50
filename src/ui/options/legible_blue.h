// SPDX-License-Identifier: GPL-3.0-or-later
// The colour of what has changed: blue on whatever ground the desktop or a skin has.
#pragma once

#include <QColor>

namespace ui {

/// The plain blue where it can be read on the ground, else the lighter or darker one next to it
/// that can.
QColor LegibleBlue(const QColor& ground);

}  // namespace ui
