// SPDX-License-Identifier: GPL-3.0-or-later
// What the players have said to each other in the open game. Words of a move that wasn't sent yet
// aren't said.
#pragma once

#include <string>
#include <vector>

#include "board/game.h"

namespace board {

struct Remark {
  int row = 0;   ///< of the list of moves
  int pair = 0;  ///< the number in front of it where that is shown in pairs
  std::string speaker;
  std::string words;
};

/// The oldest first.
std::vector<Remark> Conversation(const Game& game);

}  // namespace board
