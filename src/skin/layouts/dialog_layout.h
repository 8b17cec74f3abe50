// SPDX-License-Identifier: GPL-3.0-or-later
// The dress of the dialogs that lay their controls out themselves and have any size. One picture
// serves all of them: it is drawn in the size told here, with a plate for the title, and stretched
// between its corners and its crest.
#pragma once

#include "skin/layouts/layout.h"

namespace ui::layouts {

inline constexpr Layout dialog{"Dialog", {640, 480}};

/// What of the picture is never stretched: squares at the corners, in which the title's plate
/// begins and ends, and in the middle of the upper edge the crest.
inline constexpr int dialogCorner = 76;
inline constexpr int dialogCrest = 152;

/// What the frame takes from a window on its sides and below, and above, with the title.
inline constexpr int dialogFrame = 14;
inline constexpr int dialogHead = 54;

/// By the frame a window whose size isn't fixed is pulled larger and smaller: by so much of it at
/// the corners both ways. Above, the edge lies lower than the crest.
inline constexpr int dialogPull = 30;
inline constexpr int dialogCrestHeight = 6;

}  // namespace ui::layouts
