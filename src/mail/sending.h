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

/// `cause` is blank where it isn't known.
void ReportTransmissionError(const std::string& cause);

/// Mails the game with this GAME_ID. True where the mail lies in the mail service's outbox, else
/// the user was told. Holds polling meanwhile. A failure changes nothing.
bool SendMoveMail(std::int32_t gameID);

/// From now on the game's moves go to this address; who writes from the old one is the opponent
/// still. Raises StoreFailure.
void ChangeOpponentsAddress(store::GameRecord game, const std::string& address);

}  // namespace mail
