// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a game on the board, and closing it.
#pragma once

#include "board/game.h"

namespace board {

/// Whether the user's moves have to find a way to the opponent. Where they are stored and nothing
/// else, they are allowed without a mail service.
enum class MovesAre { Sent, StoredOnly };

/// Opens the game of CurrentGameID; -1 is a new one. UnloadPending where that failed.
void Form_Load(Game& game, MovesAre moves = MovesAre::Sent);

void SetupOptions(Game& game);
bool SetMoves(Game& game);
void BeginGame(Game& game);
void SetBoardState(Game& game);
void SetFormCaptions(Game& game);
void SetCaptions(Game& game);

/// Stores how the game ended where the opponent's entry brought the end.
void SetGameStatus(Game& game);

/// False where closing now would take something from the user that he hasn't sent, and he thinks
/// better of it. The end of the program asks nothing.
bool MayClose(Game& game);

void Form_Unload(Game& game);

}  // namespace board
