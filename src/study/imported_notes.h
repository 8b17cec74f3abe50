// SPDX-License-Identifier: GPL-3.0-or-later
// What the user said in games that he goes on with here, kept as his notes on them: as comments his
// next mails would carry it to the opponent.
#pragma once

#include <cstdint>
#include <vector>

#include "pgn/import.h"

namespace study {

/// `known` are the numbers of the games of the file that weren't taken again, and `first` is that
/// of the first one in the list. All notes, or none of them: false, with a message, where they
/// can't be kept.
bool KeepNotesOf(const pgn::ImportedGames& games, const std::vector<int>& known, std::int32_t first,
                 const pgn::ImportOptions& options);

}  // namespace study
