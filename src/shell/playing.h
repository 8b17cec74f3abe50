// SPDX-License-Identifier: GPL-3.0-or-later
// The ways to the board and to the game list. The board holds polling from before it is made until
// it closes. Only one game is open at a time: what would open a second one does nothing.
#pragma once

#include <cstdint>

namespace shell {

/// Opens a game of the tray's list. A failure is reported.
void OpenGameFromTray(std::int32_t gameID);

/// Opens a game of the game list window, whose place the board takes. A failure is reported.
void PlayGame(std::int32_t gameID);

/// Opens a game, in front of all windows, that has just come in. Does nothing and answers false
/// where the chess set can't be loaded. Raises what the window raised; polling is as it was then.
bool OpenNewMove(std::int32_t gameID);

struct NewGame {
  bool againstComputer = false;
  bool fromSetup = false;     ///< the user sets the board up first
  bool fromGameList = false;  ///< whose place the board takes
};

/// Asks for title and opponent and opens the board. A failure is reported.
void StartNewGame(const NewGame& game);

/// Shows the game list window. A failure is reported where the desktop lacks something.
void ShowGameList();

}  // namespace shell
