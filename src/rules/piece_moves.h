// SPDX-License-Identifier: GPL-3.0-or-later
// May this piece go from this square to that one, by the way the piece moves? The same question is
// the program's test for attack: a piece attacks a square if ValidMove accepts a capture there.
// Whether the move leaves the mover's own king in check is not asked here, but for castling's own
// tests.
//
// With `verbose` a refusal is explained to the user in words; without it nothing is shown, played
// or allocated. Every operation leaves the position as it found it.
#pragma once

#include <optional>

#include "rules/position.h"

namespace rules {

/// `capture` tells how the move is to be judged and is not looked up. `takenPiece`, where given, is
/// the code on the to-square. `to` may lie off the board. `sideInCheck` is read by the castling
/// test alone.
bool ValidMove(Side side, PieceCode piece, Square from, Square to, bool capture, int sideInCheck,
               std::optional<PieceCode> takenPiece, bool verbose, LastMove lastMove = {});

enum class PathMode { Straight = 1, Diagonal = 2, Either = 3 };

/// True if the squares lie on a line of the kind asked for and nothing stands in the way. Without
/// `capture` the to-square must be empty too.
bool PathIsClear(Square from, Square to, PathMode mode, bool capture);

// The piece tests run the other way: true means that the move is refused.
bool KingMoveRefused(Side side, Square from, Square to, bool capture, int sideInCheck,
                     bool verbose);
bool KnightMoveRefused(Square from, Square to, bool capture, bool verbose);
bool PawnMoveRefused(Side side, Square from, Square to, bool capture, bool verbose,
                     LastMove lastMove = {});

enum class Castling { None = 0, TowardsColumn1 = 1, TowardsColumn8 = 2 };

/// The castling move that flags and path allow. Check is not looked at.
Castling DetectCastling(Side side, Square from, Square to);

struct RookMove {
  Square from;
  Square to;
};

/// Where the rook of a castling move goes.
RookMove CastlingRook(Side side, Castling castling);

/// Carries the rook of a castling move over and notes that it moved. Nothing for no castling.
void CarryCastlingRook(Side side, Castling castling);

/// Plays a move of a game on the board: `piece`, which may be what a pawn became, goes to a square
/// and takes what is there or what it takes in passing, a castling rook goes with its king, and
/// what can't castle any more is noted. Tells which castling it was.
Castling CarryOut(Side side, PieceCode piece, Square from, Square to, LastMove lastMove);

/// True if this move takes en passant the pawn that made the last move.
bool TakesEnPassant(Square from, Square to, LastMove lastMove, Side side);

/// The square of the pawn that this move takes en passant; nothing where it is no such capture.
std::optional<Square> EnPassantSquare(Square from, Square to, LastMove lastMove, Side side);

}  // namespace rules
