// SPDX-License-Identifier: GPL-3.0-or-later
// Setting up a position of the user's own making. A square beside the board is {}.
#pragma once

#include "board/game.h"

namespace board {

void BeginBoardSetup(Game& game);

/// A press on a picture of the palette; true where a drag of the piece begins.
bool PiecePallete_MouseDown(Game& game, rules::PieceCode code);

/// Whether another piece of the code may go on the board: a side has one king.
bool IsOnPalette(rules::PieceCode code);

/// A drop that means something: ApplySetupDrop with its sound.
void DropInSetup(Game& game, rules::Square target, rules::Square source);
void DropInSetup(Game& game, rules::Square target, rules::PieceCode fromPalette);

/// Carries out one drag, of what stands on a square or of a piece of the palette.
void ApplySetupDrop(Game& game, rules::Square target, rules::Square source);
void ApplySetupDrop(Game& game, rules::Square target, rules::PieceCode fromPalette);

/// Takes all pieces of one code off the board that may go.
void RemovePieces(Game& game, rules::PieceCode code);

/// Puts up a whole position, which White is to move in. Why that can't be, as a sentence; nothing
/// has changed then.
std::string SetUpPosition(Game& game, const rules::BoardSquares& squares);

void ResetSetup(Game& game);
void ClearSetup(Game& game);
void PlaySetup(Game& game);
bool SetupValid(Game& game);
void UpdatePiecePalette(Game& game);

/// Whether the position can't be won any more; with `warn` the user is told why.
bool DrawForcedWarning(Game& game, bool warn);

/// Tells Black once that the game didn't start from the usual position.
void WarnAboutSetup(Game& game);

}  // namespace board
