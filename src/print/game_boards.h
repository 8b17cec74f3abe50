// SPDX-License-Identifier: GPL-3.0-or-later
// A game as small boards, one for each entry of its moves.
#pragma once

#include "platform/printing.h"
#include "print/stored_game.h"

namespace print {

/// In strips of so many boards, so many strips a page; fewer where the page has no room for them.
platform::Document GameBoards(const StoredGame& game, int columns, int rows);

}  // namespace print
