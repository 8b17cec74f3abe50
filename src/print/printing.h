// SPDX-License-Identifier: GPL-3.0-or-later
// The prints that the program offers. Each asks the user for a printer first; what fails is told
// him.
#pragma once

#include <cstdint>

#include "board/game.h"
#include "platform/printing.h"

namespace print {

void PrintGameBoards(std::int32_t gameID);
void PrintMoveList(std::int32_t gameID);
void PrintCurrentBoardState(const board::Game& game);
void PrintTravelSheet();
void PrintPostcard(std::int32_t gameID);

/// What each of them asks, and what it prints then.
platform::PrintQuestion GameBoardsQuestion(std::int32_t gameID);
platform::PrintQuestion MoveListQuestion(std::int32_t gameID);
platform::PrintQuestion BoardStateQuestion(const board::Game& game);
platform::PrintQuestion TravelSheetQuestion();
platform::PrintQuestion PostcardQuestion(std::int32_t gameID);

}  // namespace print
