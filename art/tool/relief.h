// SPDX-License-Identifier: GPL-3.0-or-later
// The surface of a piece: which way it faces at every pixel.
#pragma once

#include "piece_drawing.h"
#include "plane.h"

namespace art {

/// A direction; x to the right, y down, z towards the eye.
struct Direction {
  float x, y, z;
};

Direction Unit(Direction d);

struct Relief {
  explicit Relief(int side) : x(side), y(side), z(side, 1) {}

  Direction At(int px, int py) const { return {x.At(px, py), y.At(px, py), z.At(px, py)}; }
  void Set(int px, int py, Direction d);

  Plane x, y, z;
};

/// Puts turned, carved and raised parts on each other in that order.
Relief ReliefOf(const PieceDrawing& drawing);

}  // namespace art
