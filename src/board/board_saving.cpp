// SPDX-License-Identifier: GPL-3.0-or-later
// The pending move on its way: into the store, and from there to the opponent.
#include "board/board.h"
#include "mail/move_files.h"
#include "mail/sending.h"
#include "platform/conversions.h"
#include "platform/desktop.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "store/database_lock.h"
#include "store/queries.h"
#include "store/repair.h"
#include "store/saving.h"

namespace board {

using platform::Process;
using platform::ZeroFilled;

void Board::ToolbarClick(int button) {
  if (Process().BoardSetupMode && button >= ResetSetupButton && button <= PlaySetupButton) {
    if (button == ResetSetupButton) ResetSetup();
    if (button == ClearSetupButton) ClearSetup();
    if (button == PlaySetupButton) PlaySetup();
    return;
  }
  switch (button) {
    case ViewButton:
      ChangeView();
      break;
    case CoordinatesButton:
      ToggleCoords();
      break;
    case UndoButton:
      UndoLastMove();
      break;
    case SendButton:
      if (!Process().ComputerGame) {
        SendNewMove();
      } else if (SaveMove()) {
        // The move is stored: there is nothing to undo, and a turn that is cancelled can be resent.
        AwaitingOpponent = true;
        MakeComputerMove();
      }
      break;
    case ResendButton:
      if (Process().ComputerGame) {
        MakeComputerMove();
      } else {
        ResendLastMove();
      }
      break;
    case SurrenderButton:
      SurrenderGame();
      break;
    case CloseButton:
      view_.Close();
      break;
    default:
      break;
  }
}

void Board::FillNewGame(store::GameRecord& record, std::int32_t number) const {
  const platform::LocalTime now = platform::TheDesktop().clock->Now();
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
  record.GAME_START_BOARD = StartBoard;
}

std::int16_t Board::StatusOfPendingMove() const {
  if (DrawOffered && !GameDrawn) return store::DrawOfferSent;
  if (rules::ThePosition().CheckmateFlag || Surrendered) {
    // The computer's last entry was made for Black, whose wins are the user's losses.
    const bool computersMove =
        Process().ComputerGame && rules::ThePosition().SideToMove == rules::Black;
    if (WonGame() != computersMove) return store::GameWon;
  }
  if (GameIsOver()) return GameDrawn ? store::GameDrawn : store::GameLost;
  return Process().ComputerGame ? store::MoveWaiting : store::WaitingForOpponent;
}

namespace {

bool IsSameEntry(const store::MoveRecord& one, const store::MoveRecord& other) {
  return one.MoveNumber == other.MoveNumber && one.MoveCoordinates == other.MoveCoordinates &&
         one.MoveText == other.MoveText;
}

}  // namespace

bool Board::Continues(const store::MoveRecords& stored) const {
  const int before = Moves.Count() - 1;
  const auto count = static_cast<int>(stored.size());
  if (count > Moves.Count()) return false;
  for (int row = 1; row <= count; ++row) {
    if (!IsSameEntry(stored[static_cast<std::size_t>(row - 1)], Moves.Row(row))) return false;
  }
  // The pending entry is there itself where a save took place and was told as a failure.
  if (count > before) return stored.back().MoveComment == PlayerComment;
  // Against the computer the game goes on after an entry that couldn't be stored.
  return count == before || Process().ComputerGame;
}

/// The pending entry; the whole game where one before it couldn't be stored.
store::MoveRecords Board::EntriesToStore(const store::MoveRecords& stored) const {
  const bool oneIsMissing = static_cast<int>(stored.size()) + 1 < Moves.Count();
  store::MoveRecords entries;
  for (int row = oneIsMissing ? 1 : Moves.Count(); row <= Moves.Count(); ++row) {
    entries.push_back(Moves.Row(row));
  }
  entries.back().MoveComment = PlayerComment;
  return entries;
}

Board::Storing Board::StorePendingMove() {
  try {
    const store::DatabaseLock lock;
    const std::int32_t gameID = Process().CurrentGameID;
    store::GameRecords games;
    store::MoveRecords stored;
    if (!store::SelectGames(games, "Game_ID;" + std::to_string(gameID)) ||
        !store::SelectMoves(stored, gameID)) {
      return Storing::Failed;
    }
    // Only a new game has no record yet; another one was deleted behind the board's back.
    const bool isDeleted = games.empty() && gameID >= 1;
    if (isDeleted || !Continues(stored)) return Storing::GameChanged;
    store::GameRecord record;
    if (games.empty()) {
      const auto number = store::NextGameID();
      if (!number) return Storing::Failed;
      FillNewGame(record, *number);
    } else {
      record = games.front();
    }
    GameStatus = StatusOfPendingMove();
    record.GAME_STATUS = GameStatus;
    SavedGameID = record.GAME_ID;
    if (!store::SaveGame(record, EntriesToStore(stored))) return Storing::Failed;
    // Only now: a new game that couldn't be stored is still a new game when that is tried again.
    if (Process().ComputerGame) Process().CurrentGameID = record.GAME_ID;
    return Storing::Done;
  } catch (const std::exception&) {
    return Storing::Failed;
  }
}

namespace {

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

}  // namespace

bool Board::SaveMove() {
  const Storing storing = StorePendingMove();
  if (storing == Storing::GameChanged) ReportGameChanged();
  if (storing == Storing::Failed) ReportUnsavedMove();
  return storing == Storing::Done;
}

void Board::SendGame(std::int32_t gameID) {
  if (!Process().Offline) {
    mail::SendMoveMail(gameID);
  } else if (Process().StandAlone) {
    mail::ExportMoveFile(gameID);
  }
  view_.Close();
}

void Board::SendNewMove() {
  if (SaveMove()) SendGame(SavedGameID);
}

void Board::ResendLastMove() { SendGame(Process().CurrentGameID); }

}  // namespace board
