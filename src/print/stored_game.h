// SPDX-License-Identifier: GPL-3.0-or-later
// A game as the game file has it, for a print of it.
#pragma once

#include <cstdint>
#include <optional>

#include "store/game_record.h"

namespace print {

struct StoredGame {
  store::GameRecord record;
  store::MoveRecords moves;
};

/// Nothing where the game can't be read or isn't there; the user was told.
std::optional<StoredGame> ReadGame(std::int32_t gameID);

/// The game's record alone.
std::optional<store::GameRecord> ReadRecord(std::int32_t gameID);

/// Tells the user that a game can't be read.
void TellDatabaseError();

}  // namespace print
