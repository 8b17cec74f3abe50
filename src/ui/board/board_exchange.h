// SPDX-License-Identifier: GPL-3.0-or-later
// The position on the board, for other programs and from them.
#pragma once

#include <string>

#include "board/game.h"

namespace ui {

/// The position that the board shows, as FEN.
std::string ShownFen(const board::Game& game);

/// Puts a FEN on the board that is being set up. What is wrong with it, as a sentence; nothing has
/// changed then.
std::string SetUpFen(board::Game& game, const std::string& fen);

}  // namespace ui
