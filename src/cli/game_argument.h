// SPDX-License-Identifier: GPL-3.0-or-later
// The game that an argument of a verb names, by default the first.
#pragma once

#include "board/opening.h"
#include "cli/arguments.h"
#include "cli/played_board.h"
#include "store/game_record.h"

namespace cli {

/// The refusal of a verb that failed at the game file: the sentence, and where it is so, why the
/// file can't be read or what is damaged in it.
Refusal GameFileRefusal(const std::string& sentence);

/// Raises UsageError where the argument is no number, and Refusal where there is no such game or
/// the game file can't be read.
store::GameRecord GameArgument(const Arguments& arguments, std::size_t index = 0);

/// Opens a game on the board. Raises Refusal with the program's message where that fails.
void OpenGame(std::int32_t gameID, PlayedBoard& played, CollectedMessages& messages,
              board::MovesAre moves = board::MovesAre::Sent);

}  // namespace cli
