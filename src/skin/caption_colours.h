// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of what is written on buttons, the same in every skin.
#pragma once

#include <QColor>

namespace ui {

inline constexpr QColor captionColour(0, 0, 0);
inline constexpr QColor disabledCaptionColour(0x80, 0x80, 0x80);
inline constexpr QColor captionShadow(0xC0, 0xC0, 0xC0);

}  // namespace ui
