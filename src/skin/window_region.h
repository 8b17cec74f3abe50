// SPDX-License-Identifier: GPL-3.0-or-later
// The shapes of the windows as the toolkit takes them.
#pragma once

#include <QPolygonF>
#include <QRegion>

#include <string_view>

namespace ui {

inline constexpr int twipsPerPixel = 15;  ///< of a logical pixel

/// The window's outline, whose points are multiplied by the scale, moved by the offset and rounded.
/// `screenTwips` are the twips of a pixel of the region. Empty for a window that isn't shaped.
QRegion MakeWindowRegion(std::string_view window, double scaleX, double scaleY, int offsetX,
                         int offsetY, double screenTwips = twipsPerPixel);

/// The outline in logical pixels.
QPolygonF OutlinePolygon(std::string_view window);

}  // namespace ui
