// SPDX-License-Identifier: GPL-3.0-or-later
// Entries that are not moves (an offer of a draw, its answer, a surrender), and how a game ended.
#pragma once

#include "board/game.h"
#include "rules/game_end.h"

namespace board {

void OfferDraw(Game& game);
void SurrenderGame(Game& game);
/// False where the user, asked once, would rather not send the surrender that he has entered.
bool MaySend(Game& game);

void DecideDraw(Game& game, bool accept);

/// Asks the user for an answer where the opponent's offer of a draw stands.
void ConfirmDraw(Game& game);

bool GameIsOver(const Game& game);
bool WonGame(const Game& game);

/// The king of the side that made the last entry, in a game that ended by surrender.
rules::PieceCode SurrenderedKing(const Game& game);

void DisplayMateMessage(Game& game);
void DisplayDrawMessage(Game& game);

/// Ends the game where the move leaves too little to mate with.
void DeterminIfDrawForced(Game& game);

/// The end of a sentence "... because you cannot checkmate ".
const char* WhyNobodyCanWin(rules::ForcedDraw type);

}  // namespace board
