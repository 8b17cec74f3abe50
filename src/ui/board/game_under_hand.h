// SPDX-License-Identifier: GPL-3.0-or-later
// The game of the Board window under the user's hand.
#pragma once

#include "board/game.h"
#include "ui/board/board_under_hand.h"

namespace ui {

class GameUnderHand final : public BoardUnderHand {
 public:
  explicit GameUnderHand(board::Game& game) : game_(game) {}

  bool Rests() const override;
  rules::PieceCode PieceOn(rules::Square square) const override;
  rules::Side SideToMove() const override;
  rules::Bitboard TargetsFrom(rules::Square square) const override;
  bool PickUp(rules::Square square) override;
  void Drop(rules::Square to, rules::Square from) override;

 private:
  board::Game& game_;
};

}  // namespace ui
