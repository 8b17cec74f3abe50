// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/received_game.h"

#include <memory>

#include "mail/move_text_check.h"
#include "platform/conversions.h"
#include "platform/files.h"
#include "platform/process_state.h"
#include "platform/text_fields.h"
#include "store/database_lock.h"
#include "store/queries.h"
#include "store/saving.h"

namespace mail {
namespace {

using platform::FieldWalk;

/// The fields in front of the moves, in their order, as views into the text.
struct GameFields {
  std::string_view receiversID, sendersID, dateStamp, name, date, whiteName, blackName,
      receiverIsHost, startBoard;
};

GameFields NextGameFields(FieldWalk& fields) {
  // Members of a braced list are initialised from the first to the last.
  return {fields.Next(), fields.Next(), fields.Next(), fields.Next(), fields.Next(),
          fields.Next(), fields.Next(), fields.Next(), fields.Next()};
}

/// Raises std::exception where the number doesn't fit.
std::int32_t Number(std::string_view field) { return platform::ToInteger32(field).value(); }

store::GameRecords Select(std::string_view key, std::string_view id, std::string_view dateStamp) {
  std::string selection(key);
  selection.append(";").append(id.empty() ? "0" : id);
  selection.append(";Game_DateStamp;").append(dateStamp);
  store::GameRecords games;
  if (!store::SelectGames(games, selection)) throw StoreFailure("the games can't be read");
  return games;
}

/// By our own number of the game, which the sender knows since our first mail, else by his.
std::optional<store::GameRecord> FindGame(const GameFields& fields) {
  store::GameRecords games = Select("GAME_ID", fields.receiversID, fields.dateStamp);
  if (games.empty()) games = Select("GAME_OPPONENTS_ID", fields.sendersID, fields.dateStamp);
  if (games.empty()) return std::nullopt;
  return games.front();
}

store::GameRecord FoundGame(const GameFields& fields, const Sender& sender) {
  store::GameRecord game;
  const auto number = store::NextGameID();
  if (!number) throw StoreFailure("the games can't be read");
  game.GAME_ID = *number;
  game.GAME_DATESTAMP = fields.dateStamp;
  game.GAME_NAME = fields.name;
  game.GAME_DATE = fields.date;
  game.GAME_WHITE_NAME = sender.whiteName;
  game.GAME_HOST = fields.receiverIsHost == "True";
  return game;
}

store::MoveRecords RemainingMoves(FieldWalk& fields, int count) {
  store::MoveRecords moves(static_cast<std::size_t>(count));
  for (store::MoveRecord& move : moves) {
    move.MoveNumber = Number(fields.Next());
    move.MoveCoordinates = fields.Next();
    move.MoveText = fields.Next();
    move.MoveComment = fields.Next();
  }
  return moves;
}

/// From the look for the game to its saving nobody else may found or change it.
std::unique_ptr<store::DatabaseLock> LockGames() {
  try {
    return std::make_unique<store::DatabaseLock>();
  } catch (const platform::FileError& error) {
    throw StoreFailure(error.what());
  }
}

}  // namespace

bool PassesFormCheck(std::string_view text, bool fromFile, MoveArrival& arrival) {
  if (ValidateMoveText(text, fromFile)) return true;
  arrival.stage = CheckMoveText(text);
  return false;
}

void SaveReceivedGame(std::string_view text, const Sender& sender, MoveArrival& arrival) {
  const auto lock = LockGames();
  FieldWalk walk(text, '|');
  const GameFields fields = NextGameFields(walk);
  const std::optional<store::GameRecord> known = FindGame(fields);
  store::GameRecord game = known ? *known : FoundGame(fields, sender);
  if (known && game.GAME_WHITE_NAME.empty()) game.GAME_WHITE_NAME = fields.whiteName;
  game.GAME_OPPONENTS_NAME = sender.name;
  game.GAME_OPPONENTS_EMAIL = sender.address;
  game.GAME_OPPONENTS_ID = Number(fields.sendersID);
  game.GAME_BLACK_NAME = fields.blackName;
  game.GAME_START_BOARD = fields.startBoard;
  const int moveCount = (platform::CountFields(text, '|') - 9) / 4;
  const store::MoveRecords moves = RemainingMoves(walk, moveCount);

  platform::ProcessState& process = platform::Process();
  if (!store::SaveGame(game, moves, &process.NewMoveArrived)) {
    throw StoreFailure("the game can't be saved");
  }
  if (process.NewMoveArrived) process.PendingGames += std::to_string(game.GAME_ID) + ";";
  arrival.gameID = game.GAME_ID;
  arrival.changed = process.NewMoveArrived;
  arrival.ok = true;
}

}  // namespace mail
