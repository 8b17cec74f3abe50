// SPDX-License-Identifier: GPL-3.0-or-later
// The move that the user asks the computer about: of the entries up to the selected one the last
// that moved a piece.
#pragma once

#include "ai/moment.h"
#include "board/game.h"

namespace board {

struct AskedMove {
  ai::Moment moment;                          ///< in front of the move
  rules::LastMove move;                       ///< none at the start of a game
  std::string text;                           ///< the move as the list has it; blank for none
  rules::PieceCode becomes = rules::NoPiece;  ///< a pawn on the last row
};

/// The live position is left as it was.
AskedMove MoveToAskAbout(const Game& game);

/// Whether an answer is no help against a person who is still playing, or the user wants it all the
/// same.
bool MayAskWhy(const Game& game);

/// The move as the list of moves would have it. The live position is left as it was.
std::string NameOfMove(const ai::Moment& moment, rules::LastMove move);

/// The position behind a legal move, where a pawn on the last row is still one.
rules::Position PositionBehind(const ai::Moment& moment, rules::LastMove move);

}  // namespace board
