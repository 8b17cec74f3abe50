// SPDX-License-Identifier: GPL-3.0-or-later
// Sending a game to the opponent after a move. What goes out is always built from what was last
// saved, never from the screen.
#pragma once

#include <cstdint>
#include <string>

#include "store/game_record.h"

namespace mail {

struct OutgoingGame {
  store::GameRecord record;
  store::MoveRecords moves;  ///< at least one
};

/// What all mails of a game have in common, in both players' copies.
std::string ThreadOf(const store::GameRecord& record);

/// Raises std::exception where the store can't be read, and where it has no move of such a game.
OutgoingGame LoadOutgoingGame(std::int32_t gameID);

/// `more` is a paragraph of its own.
void ReportTransmissionError(const std::string& more = {});

/// Mails the game with this GAME_ID. True where the mail was accepted for delivery, else the user
/// was told. Holds polling meanwhile. A failure isn't retried and changes nothing.
bool SendMoveMail(std::int32_t gameID);

/// Tells of the move that the last run couldn't send while it was being ended, when nobody could
/// read of it.
void TellOfUnsentMove();

}  // namespace mail
