// SPDX-License-Identifier: GPL-3.0-or-later
// The last move of a game as a postcard to the opponent.
#pragma once

#include "platform/printing.h"
#include "print/stored_game.h"

namespace print {

/// The board is turned to the opponent, who reads it.
platform::Document Postcard(const StoredGame& game);

}  // namespace print
