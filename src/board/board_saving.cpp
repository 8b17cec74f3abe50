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

/// The pending entry; the whole game where one before it couldn't be stored, as the computer's
/// move, after which the game goes on.
store::MoveRecords Board::EntriesToStore() const {
  store::MoveRecords stored, entries;
  const bool oneIsMissing = Process().ComputerGame && Process().CurrentGameID >= 1 &&
                            store::SelectMoves(stored, Process().CurrentGameID) &&
                            static_cast<int>(stored.size()) + 1 < Moves.Count();
  for (int row = oneIsMissing ? 1 : Moves.Count(); row <= Moves.Count(); ++row) {
    entries.push_back(Moves.Row(row));
  }
  entries.back().MoveComment = PlayerComment;
  return entries;
}

bool Board::StorePendingMove() {
  try {
    const store::DatabaseLock lock;
    store::GameRecords games;
    const std::string selection = "Game_ID;" + std::to_string(Process().CurrentGameID);
    if (!store::SelectGames(games, selection)) return false;
    store::GameRecord record;
    if (games.empty()) {
      // Only a new game has no record yet; another one was deleted behind the board's back.
      if (Process().CurrentGameID >= 1) return false;
      const auto number = store::NextGameID();
      if (!number) return false;
      FillNewGame(record, *number);
    } else {
      record = games.front();
    }
    GameStatus = StatusOfPendingMove();
    record.GAME_STATUS = GameStatus;
    SavedGameID = record.GAME_ID;
    if (!store::SaveGame(record, EntriesToStore())) return false;
    // Only now: a new game that couldn't be stored is still a new game when that is tried again.
    if (Process().ComputerGame) Process().CurrentGameID = record.GAME_ID;
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

bool Board::SaveMove() {
  if (StorePendingMove()) return true;
  platform::ShowMessage(
      platform::DatabaseIcon, "Database error.",
      Process().ComputerGame
          ? "A database error has prevented Tarvolenix from recording your move.  Please try "
            "clicking the Turn over button again."
          : "A database error has prevented Tarvolenix from recording your move.  Please try "
            "sending it again.||No move has been sent to your opponent.",
      "OK", {}, false, platform::FailureSound);
  return false;
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
