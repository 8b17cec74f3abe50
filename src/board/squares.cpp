// SPDX-License-Identifier: GPL-3.0-or-later
#include "board/squares.h"

#include "board/ends.h"
#include "platform/setting_variables.h"

namespace board {

using rules::ThePosition;

GridPlace PlaceOf(const Game& game, rules::Square square) {
  if (game.ViewSide == rules::White) return {square.x - 1, square.y - 1};
  return {8 - square.x, 8 - square.y};
}

void ChangeView(Game& game) {
  const rules::Side mine = ThePosition().SideToMove;
  game.ViewSide = game.ViewSide == mine ? rules::OtherSide(mine) : mine;
  game.view.ConstructBoard();
  game.view.Refresh();
}

void ToggleCoords(Game& game) {
  game.CoordsVisible = !game.CoordsVisible;
  game.view.Refresh();
}

bool ClickCoordsAway(Game& game) {
  if (!game.CoordsVisible || platform::Settings().Coordinates) return false;
  ToggleCoords(game);
  return true;
}

int SquareCell(const Game& game, rules::Square square) {
  constexpr int fallenKing = 7;
  const rules::PieceCode piece = ThePosition().BoardState.At(square);
  const rules::Side side = rules::SideOfPiece(piece);
  int column = rules::KindOf(piece);
  if (column == rules::WhiteKing) {
    const bool mated = ThePosition().CheckmateFlag && ThePosition().SideInCheck == side;
    const bool gaveUp = game.Surrendered && piece == SurrenderedKing(game);
    if (mated || gaveUp) column = fallenKing;
  }
  // An empty square counts as black.
  return column + rules::SquareShade(square) + (side == rules::White ? 0 : 16);
}

void PaintNormally(const Game& game, rules::Square square) {
  if (IsOnBoard(square)) game.view.PaintSquare(square, SquareCell(game, square));
}

void PaintEmpty(const Game& game, rules::Square square) {
  if (IsOnBoard(square)) game.view.PaintSquare(square, rules::SquareShade(square));
}

void CopyBoard(Game& game) {
  for (int i = 0; i < 64; ++i) {
    game.DisplayedBoard[static_cast<std::size_t>(i)] = ThePosition().BoardState[i];
  }
}

void DisplayBoardState(const Game& game, bool all) {
  for (int i = 0; i < 64; ++i) {
    if (all || ThePosition().BoardState[i] != game.DisplayedBoard[static_cast<std::size_t>(i)]) {
      PaintNormally(game, rules::SquareAt(i));
    }
  }
}

}  // namespace board
