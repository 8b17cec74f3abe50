// SPDX-License-Identifier: GPL-3.0-or-later
// The style of all controls that a skin has coloured: every colour comes from the palette, whatever
// the desktop's own style would do, and push buttons are the skin's.
#pragma once

class QStyle;

namespace ui {

QStyle* TheSkinStyle();

}  // namespace ui
