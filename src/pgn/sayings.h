// SPDX-License-Identifier: GPL-3.0-or-later
// What a player says in place of a move, as a comment of the moves: "Black offers a draw: enough?".
// PGN has no other place for it. What went out so comes in as the entry that it was.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "pgn/entries.h"

namespace pgn {

struct Saying {
  EntryKind kind = EntryKind::Move;  ///< never a move
  rules::Side side = rules::White;   ///< who says it
  std::string comment;
};

std::string CommentOf(const Saying& saying);

/// Nothing where the comment is another's.
std::optional<Saying> SayingIn(std::string_view comment);

}  // namespace pgn
