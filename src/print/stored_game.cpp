// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/stored_game.h"

#include "platform/messages.h"
#include "store/queries.h"

namespace print {

void TellDatabaseError() {
  platform::ShowMessage(
      platform::DatabaseIcon, "Database error",
      "There was an error retrieving the game details from the database.||If the problem persists, "
      "the game may be corrupt in which case delete it and get your opponent to send it again.",
      "OK");
}

std::optional<store::GameRecord> ReadRecord(std::int32_t gameID) {
  std::optional<store::GameRecord> record;
  if (!store::FindGame(record, gameID)) record.reset();
  if (!record) TellDatabaseError();
  return record;
}

std::optional<StoredGame> ReadGame(std::int32_t gameID) {
  auto record = ReadRecord(gameID);
  if (!record) return std::nullopt;
  StoredGame game{*record, {}};
  if (store::SelectMoves(game.moves, gameID)) return game;
  TellDatabaseError();
  return std::nullopt;
}

}  // namespace print
