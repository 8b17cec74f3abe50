// SPDX-License-Identifier: GPL-3.0-or-later
// The board that the user's hand moves pieces on. A square beside the board is {}.
#pragma once

#include "rules/position.h"

namespace ui {

class BoardUnderHand {
 public:
  virtual ~BoardUnderHand() = default;

  /// The hand keeps still now.
  virtual bool Rests() const { return false; }

  virtual rules::PieceCode PieceOn(rules::Square square) const = 0;
  virtual rules::Side SideToMove() const = 0;
  virtual rules::Bitboard TargetsFrom(rules::Square square) const = 0;

  /// False where the piece of the square may not be moved, or there is none.
  virtual bool PickUp(rules::Square square) = 0;

  virtual void Drop(rules::Square to, rules::Square from) = 0;
};

}  // namespace ui
