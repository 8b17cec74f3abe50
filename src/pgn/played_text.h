// SPDX-License-Identifier: GPL-3.0-or-later
// The words of a game, played through by the rules.
#pragma once

#include <string>
#include <string_view>

#include "pgn/game_text.h"
#include "pgn/turn.h"
#include "store/game_record.h"

namespace pgn {

/// Why a game isn't taken.
struct Objection {
  int ply = 0;  ///< 0 for the game as a whole
  std::string move;
  std::string why;  ///< blank where nothing speaks against it
};

struct PlayedText {
  Objection objection;
  std::string startBoard;    ///< blank for the normal start
  store::MoveRecords moves;  ///< with the entry that ends the game, where the board doesn't
  std::string_view result;   ///< of the game, "*" while it is running
  std::string note;          ///< what was said in a running game, a line to each comment
};

/// Plays a game through on the live position. Without `keepMoves` only the objection is filled.
PlayedText PlayThrough(const GameText& text, bool keepMoves);

}  // namespace pgn
