// SPDX-License-Identifier: GPL-3.0-or-later
// The page itself: HTML as mail clients show it, from the web to a telephone. All styles stand
// inline; the colours are those of the program's own paper, and where the reader likes it dark
// those of the dark one. Nothing is fetched from anywhere.
#pragma once

#include <string>

#include "rules/position.h"
#include "store/game_record.h"

namespace pages {

struct ShownMove {
  const store::GameRecord& game;
  const store::MoveRecords& moves;  ///< at least one; the last one is shown
  std::string sender;               ///< the name
  rules::BoardSquares before;       ///< the position ahead of the last move
};

/// `picture` is that of the board, from the reader's side; blank where there is none.
std::string PageHtml(const ShownMove& shown, const std::string& picture);

}  // namespace pages
