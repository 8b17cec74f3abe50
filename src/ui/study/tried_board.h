// SPDX-License-Identifier: GPL-3.0-or-later
// The position at the cursor of a tree of tried moves, under the user's hand. Both sides are moved,
// each in its turn. The game on the board isn't touched.
#pragma once

#include <functional>

#include "study/variation_tree.h"
#include "ui/board/board_under_hand.h"

namespace ui {

class TriedBoard final : public BoardUnderHand {
 public:
  /// What a drop leads to.
  struct Answers {
    std::function<rules::PieceCode(rules::Side)> exchangePawn;
    std::function<void()> tried;
    std::function<void()> refused;  ///< the rules don't allow it
  };

  /// The tree must be there as long.
  TriedBoard(study::VariationTree& tree, Answers answers);

  rules::PieceCode PieceOn(rules::Square square) const override;
  rules::Side SideToMove() const override;
  rules::Bitboard TargetsFrom(rules::Square square) const override;
  bool PickUp(rules::Square square) override;
  void Drop(rules::Square to, rules::Square from) override;

 private:
  const rules::Position& Here() const { return tree_.PositionAt(tree_.Cursor()); }

  study::VariationTree& tree_;
  const Answers answers_;
};

/// The cell of the chess set's sheet for a square of a position; a mated king lies.
int CellOf(const rules::Position& position, rules::Square square);

}  // namespace ui
