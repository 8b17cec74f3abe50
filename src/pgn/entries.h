// SPDX-License-Identifier: GPL-3.0-or-later
// The entries of a stored game: moves, and what was said of the game's end. Stored entries were
// checked for their form at most.
#pragma once

#include "pgn/turn.h"
#include "store/game_record.h"

namespace pgn {

enum class EntryKind { Move, DrawOffer, Draw, Decline, Surrender };

EntryKind KindOf(const store::MoveRecord& entry);

/// Whether the entry ends a game of which it isn't known that a player ended it by that word: one
/// on time, by adjudication, or that just has its result. Its comment is how it ended, if that is
/// known.
bool IsUnspokenEnd(const store::MoveRecord& entry);

/// The side that made entry `number`, from 1.
constexpr rules::Side SideOfEntry(std::size_t number) {
  return number % 2 == 1 ? rules::White : rules::Black;
}

/// What a move entry moves on the live position; both squares are {} where that can't be read.
ChessMove MoveOf(const store::MoveRecord& entry, rules::Side side);

/// Puts up a game's start.
void BeginGame(const store::GameRecord& game);

/// Plays an entry as the board's replay does, which asks no rule.
void Replay(Turn& turn, const store::MoveRecord& entry, std::size_t number);

}  // namespace pgn
