// SPDX-License-Identifier: GPL-3.0-or-later
// The game that a verb's first argument names.
#pragma once

#include "cli/arguments.h"
#include "cli/played_board.h"
#include "store/game_record.h"

namespace cli {

/// Raises UsageError where the argument is no number, and Refusal where there is no such game or
/// the game file can't be read.
store::GameRecord GameArgument(const Arguments& arguments);

/// Opens a game on the board. Raises Refusal with the program's message where that fails.
void OpenGame(std::int32_t gameID, PlayedBoard& played, CollectedMessages& messages);

}  // namespace cli
