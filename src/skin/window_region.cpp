// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/window_region.h"

#include <QPolygon>

#include <cmath>

#include "skin/layouts/outlines.h"

namespace ui {

QRegion MakeWindowRegion(std::string_view window, double scaleX, double scaleY, int offsetX,
                         int offsetY, double screenTwips) {
  const auto scaled = [screenTwips](double value, double scale, int offset) {
    return static_cast<int>(std::lround(value * scale * twipsPerPixel / screenTwips + offset));
  };
  QPolygon polygon;
  for (const layouts::Point& point : layouts::OutlineOf(window)) {
    polygon << QPoint(scaled(point.x, scaleX, offsetX), scaled(point.y, scaleY, offsetY));
  }
  return {polygon, Qt::OddEvenFill};
}

QPolygonF OutlinePolygon(std::string_view window) {
  QPolygonF polygon;
  for (const layouts::Point& point : layouts::OutlineOf(window))
    polygon << QPointF(point.x, point.y);
  return polygon;
}

}  // namespace ui
