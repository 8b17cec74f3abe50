// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/study/tried_board.h"

#include <utility>

#include "platform/messages.h"
#include "platform/process_state.h"

namespace ui {

using rules::Square;

TriedBoard::TriedBoard(study::VariationTree& tree, Answers answers)
    : tree_(tree), answers_(std::move(answers)) {}

rules::PieceCode TriedBoard::PieceOn(Square square) const { return Here().BoardState.At(square); }

rules::Side TriedBoard::SideToMove() const { return tree_.TurnAt(tree_.Cursor()).side; }

rules::Bitboard TriedBoard::TargetsFrom(Square square) const { return tree_.TargetsFrom(square); }

bool TriedBoard::PickUp(Square square) {
  const bool mayMove = rules::SideOfPiece(PieceOn(square)) == SideToMove();
  platform::PlayNumberedSound(mayMove ? platform::LiftSound : platform::FailureSound);
  return mayMove;
}

void TriedBoard::Drop(Square to, Square from) {
  if (to == from || !IsOnBoard(to)) return platform::PlayNumberedSound(platform::DropSound);
  if (!tree_.Allows(from, to)) {
    platform::PlayNumberedSound(platform::FailureSound);
    return answers_.refused();
  }
  platform::PlayNumberedSound(platform::DropSound);
  rules::PieceCode piece = PieceOn(from);
  const rules::Side side = SideToMove();
  if (rules::IsPawn(piece) && to.y == rules::HomeRow(rules::OtherSide(side))) {
    piece = answers_.exchangePawn(side);
    // The end of the program has closed the question.
    if (platform::Process().Stopping) return;
  }
  tree_.Try({from, to, piece});
  answers_.tried();
}

int CellOf(const rules::Position& position, Square square) {
  constexpr int fallenKing = 7;
  const rules::PieceCode piece = position.BoardState.At(square);
  const rules::Side side = rules::SideOfPiece(piece);
  const bool mated = rules::KindOf(piece) == rules::WhiteKing && position.CheckmateFlag &&
                     position.SideInCheck == side;
  return (mated ? fallenKing : rules::KindOf(piece)) + rules::SquareShade(square) +
         (side == rules::White ? 0 : 16);
}

}  // namespace ui
