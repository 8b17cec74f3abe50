// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/game_under_hand.h"

#include "board/moving.h"
#include "platform/process_state.h"
#include "rules/test_moves.h"

namespace ui {

using rules::Square;
using rules::ThePosition;

/// SetupHand is at work then.
bool GameUnderHand::Rests() const { return platform::Process().BoardSetupMode; }

rules::PieceCode GameUnderHand::PieceOn(Square square) const {
  return ThePosition().BoardState.At(square);
}

rules::Side GameUnderHand::SideToMove() const { return ThePosition().SideToMove; }

rules::Bitboard GameUnderHand::TargetsFrom(Square square) const {
  return rules::LegalTargets(SideToMove(), square, game_.Moves.MoveOf(game_.Moves.Count()));
}

bool GameUnderHand::PickUp(Square square) { return board::CBoard_MouseDown(game_, square); }

void GameUnderHand::Drop(Square to, Square from) { board::CBoard_DragDrop(game_, to, from); }

}  // namespace ui
