// SPDX-License-Identifier: GPL-3.0-or-later
// The moves of a game in pairs: as running text, and as a table below it.
#pragma once

#include <string>
#include <vector>

#include "platform/printing.h"
#include "print/stored_game.h"

namespace print {

/// Such as "1.e4 e5"; the last one may have one move only. What belongs to an offer of a draw that
/// was not accepted takes no place.
std::vector<std::string> MovePairs(const store::MoveRecords& moves);

/// The table runs down its first column, then down the next, page by page.
platform::Document MoveTable(const StoredGame& game, int columns, int rows);

}  // namespace print
