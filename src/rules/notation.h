// SPDX-License-Identifier: GPL-3.0-or-later
// The text of a move, as the user reads it in the move list and in the subject of a mail. It is
// also read back: a replay takes promotions ("=Q"), checkmate ("++" at the end) and draws
// ("1/2-1/2" at the end) from it, so its suffixes are data and not only display.
#pragma once

#include <string>

#include "rules/position.h"

namespace rules {

/// A move that has just been played on the position.
struct PlayedMove {
  PieceCode piece = NoPiece;  ///< the code now on the to-square; in a promotion the new piece
  Square from;
  Square to;
  bool capture = false;
  bool castling = false;
};

/// At most 15 characters. Called after SideInCheck and CheckmateFlag have been set. `boardBefore`
/// is the position before the move, `previous` the move before it, for the en-passant mark.
std::string MoveNotation(const PlayedMove& move, int sideInCheck, const BoardSquares& boardBefore,
                         bool gameDrawn, LastMove previous);

/// The White code of a promotion letter ("R", "N", "B", "Q"); NoPiece for any other character.
PieceCode PieceOfLetter(char letter);

/// "R", "N", "B", "Q", "K"; a blank for a pawn.
char LetterOf(PieceCode piece);

}  // namespace rules
