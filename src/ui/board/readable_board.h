// SPDX-License-Identifier: GPL-3.0-or-later
// The squares of the board for screen readers: each is an item of its own, such as "e4, white
// pawn", in the order in which they are read on a page, and the keyboard's is the one in focus.
#pragma once

#include "rules/position.h"

namespace ui {

class BoardPicture;

/// Once is enough, ahead of the first board that is read.
void LetBoardsBeRead();

/// A square has changed, or the keyboard has come to it.
void TellReaderOfSquare(BoardPicture& board, rules::Square square);
void TellReaderOfCursor(BoardPicture& board);

}  // namespace ui
