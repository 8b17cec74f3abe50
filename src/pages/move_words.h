// SPDX-License-Identifier: GPL-3.0-or-later
// A move in plain words, for those who don't read notation.
#pragma once

#include <string>

#include "rules/position.h"
#include "store/game_record.h"

namespace pages {

/// Such as "Knight from g1 takes the pawn on f3". `before` is the position ahead of the move.
/// Blank for an entry that moves no piece of that position.
std::string MoveWords(const store::MoveRecord& entry, const rules::BoardSquares& before);

}  // namespace pages
