// SPDX-License-Identifier: GPL-3.0-or-later
#include "board/saving.h"

#include <optional>

#include "board/ends.h"
#include "mail/move_files.h"
#include "mail/sending.h"
#include "mail/unsent.h"
#include "platform/conversions.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "store/database_lock.h"
#include "store/queries.h"
#include "store/repair.h"
#include "store/saving.h"

namespace board {

using platform::Process;
using platform::ZeroFilled;

namespace {

void FillNewGame(const Game& game, store::GameRecord& record, std::int32_t number) {
  const platform::LocalTime now = platform::TheSeams().clock->Now();
  const std::string day = ZeroFilled(now.day, 2);
  const std::string month = ZeroFilled(now.month, 2);
  const std::string year = ZeroFilled(now.year, 4);
  const platform::NewGameFields& fields = Process().NewGame;
  record.GAME_ID = number;
  record.GAME_DATESTAMP = day + month + year + ZeroFilled(now.hour, 2) + ZeroFilled(now.minute, 2);
  record.GAME_NAME = fields.Game_name;
  record.GAME_OPPONENTS_EMAIL = fields.Game_opponents_email;
  record.GAME_BLACK_NAME = fields.Game_opponents_name;
  record.GAME_OPPONENTS_NAME = fields.Game_opponents_name;
  record.GAME_DATE = day + "/" + month + "/" + year;
  record.GAME_HOST = true;
  record.GAME_VS_COMPUTER = Process().ComputerGame;
  if (Process().ComputerGame) record.GAME_OPPONENTS_ID = record.GAME_ID;
  record.GAME_START_BOARD = game.StartBoard;
}

std::int16_t StatusOfPendingMove(const Game& game) {
  if (game.DrawOffered && !game.GameDrawn) return store::DrawOfferSent;
  if (rules::ThePosition().CheckmateFlag || game.Surrendered) {
    // The computer's last entry was made for Black, whose wins are the user's losses.
    const bool computersMove =
        Process().ComputerGame && rules::ThePosition().SideToMove == rules::Black;
    if (WonGame(game) != computersMove) return store::GameWon;
  }
  if (GameIsOver(game)) return game.GameDrawn ? store::GameDrawn : store::GameLost;
  return Process().ComputerGame ? store::MoveWaiting : store::WaitingForOpponent;
}

bool IsSameEntry(const store::MoveRecord& one, const store::MoveRecord& other) {
  return one.MoveNumber == other.MoveNumber && one.MoveCoordinates == other.MoveCoordinates &&
         one.MoveText == other.MoveText;
}

/// Whether the pending entry belongs behind what is stored: nobody has played on meanwhile.
bool Continues(const Game& game, const store::MoveRecords& stored) {
  const int before = game.Moves.Count() - 1;
  const auto count = static_cast<int>(stored.size());
  if (count > game.Moves.Count()) return false;
  for (int row = 1; row <= count; ++row) {
    if (!IsSameEntry(stored[static_cast<std::size_t>(row - 1)], game.Moves.Row(row))) return false;
  }
  // The pending entry is there itself where a save took place and was told as a failure.
  if (count > before) return stored.back().MoveComment == game.PlayerComment;
  // Against the computer the game goes on after an entry that couldn't be stored.
  return count == before || Process().ComputerGame;
}

/// The pending entry; the whole game where one before it couldn't be stored.
store::MoveRecords EntriesToStore(const Game& game, const store::MoveRecords& stored) {
  const bool oneIsMissing = static_cast<int>(stored.size()) + 1 < game.Moves.Count();
  store::MoveRecords entries;
  for (int row = oneIsMissing ? 1 : game.Moves.Count(); row <= game.Moves.Count(); ++row) {
    entries.push_back(game.Moves.Row(row));
  }
  entries.back().MoveComment = game.PlayerComment;
  return entries;
}

enum class Storing { Done, Failed, GameChanged };

Storing StorePendingMove(Game& game) {
  try {
    const store::DatabaseLock lock;
    const std::int32_t gameID = Process().CurrentGameID;
    std::optional<store::GameRecord> known;
    store::MoveRecords stored;
    if (!store::FindGame(known, gameID) || !store::SelectWholeMoves(stored, gameID)) {
      return Storing::Failed;
    }
    // Only a new game has no record yet; another one was deleted behind the board's back.
    const bool isDeleted = !known && gameID >= 1;
    if (isDeleted || !Continues(game, stored)) return Storing::GameChanged;
    store::GameRecord record;
    if (known) {
      record = *known;
    } else {
      const auto number = store::NextGameID();
      if (!number) return Storing::Failed;
      FillNewGame(game, record, *number);
    }
    game.GameStatus = StatusOfPendingMove(game);
    record.GAME_STATUS = game.GameStatus;
    game.SavedGameID = record.GAME_ID;
    if (!store::SaveGame(record, EntriesToStore(game, stored))) return Storing::Failed;
    // Only now: a new game that couldn't be stored is still a new game when that is tried again.
    if (Process().ComputerGame) Process().CurrentGameID = record.GAME_ID;
    return Storing::Done;
  } catch (const std::exception&) {
    return Storing::Failed;
  }
}

void ReportGameChanged() {
  platform::ShowMessage(
      platform::DatabaseIcon, "Game changed",
      "This game has meanwhile been changed or deleted by another window or program.  Your move "
      "doesn't fit the game as it stands now, so it was neither stored nor sent.||Please close "
      "the board and open the game again.",
      "OK", {}, false, platform::FailureSound);
}

void ReportUnsavedMove() {
  platform::ShowMessage(
      platform::DatabaseIcon, "Database error.",
      store::WithDamage(Process().ComputerGame
                            ? "A database error has prevented Tarvolenix from recording your move. "
                              " Please try clicking the Turn over button again."
                            : "A database error has prevented Tarvolenix from recording your move. "
                              " Please try sending it again.||No move has been sent to your "
                              "opponent."),
      "OK", {}, false, platform::FailureSound);
}

/// False where a failure was reported.
bool SendGame(std::int32_t gameID) {
  if (!Process().Offline) return mail::SendMoveMail(gameID);
  return !Process().StandAlone || mail::ExportMoveFile(gameID);
}

}  // namespace

bool SaveMove(Game& game) {
  const Storing storing = StorePendingMove(game);
  if (storing == Storing::GameChanged) ReportGameChanged();
  if (storing == Storing::Failed) ReportUnsavedMove();
  return storing == Storing::Done;
}

void SendNewMove(Game& game) {
  // What the end of the program has taken the report of is made good by the next start.
  std::optional<mail::SendingNote> note;
  if (!Process().Offline) note.emplace(Process().CurrentGameID);
  if (!SaveMove(game)) return;
  if (!SendGame(game.SavedGameID) && note && Process().Stopping) note->Keep();
  note.reset();
  game.view.Close();
}

void ResendLastMove(Game& game) {
  SendGame(Process().CurrentGameID);
  game.view.Close();
}

}  // namespace board
