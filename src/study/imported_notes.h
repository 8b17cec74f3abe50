// SPDX-License-Identifier: GPL-3.0-or-later
// What the user said in games that he goes on with here, kept as his notes on them: as comments his
// next mails would carry it to the opponent.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "pgn/import.h"
#include "pgn/known_games.h"

namespace study {

/// `known` are the games of the file that weren't taken again, and `first` is the number in the
/// list of the first one that was. A known game without a note gets one: that of its import may
/// have failed. All notes, or none of them: false, with a message, where they can't be kept.
bool KeepNotesOf(const pgn::ImportedGames& games, const std::vector<pgn::KnownGame>& known,
                 std::optional<std::int32_t> first, const pgn::ImportOptions& options);

}  // namespace study
