// SPDX-License-Identifier: GPL-3.0-or-later
// What the user's hands have in common, the one that plays and the one that sets a position up.
#pragma once

#include <Qt>

#include <optional>

#include "rules/position.h"

namespace ui {

struct ArrowStep {
  int right, up;
};

/// Where an arrow key leads; nothing for other keys.
inline std::optional<ArrowStep> ArrowStepOf(int key) {
  switch (key) {
    case Qt::Key_Left:
      return ArrowStep{-1, 0};
    case Qt::Key_Right:
      return ArrowStep{1, 0};
    case Qt::Key_Up:
      return ArrowStep{0, 1};
    case Qt::Key_Down:
      return ArrowStep{0, -1};
    default:
      return std::nullopt;
  }
}

/// The cell of a square whose piece is in the hand.
inline int EmptyCell(rules::Square square) { return 16 + rules::SquareShade(square); }

}  // namespace ui
