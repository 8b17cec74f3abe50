// SPDX-License-Identifier: GPL-3.0-or-later
// Filling the position from a game's start board.
#pragma once

#include <cstdint>
#include <string>

namespace board {

/// Loads the start board of a stored game (or of a new one with `gameID` -1) and rebuilds the
/// castle flags and SideInCheck from it; sets `flashPhase`. `reset` loads the normal start whatever
/// the game, or the empty board with `clear`. The result is the board text that was loaded.
std::string LoadBoard(std::int32_t gameID, int& sideInCheck, bool& flashPhase, bool reset,
                      bool clear);

}  // namespace board
