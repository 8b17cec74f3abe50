// SPDX-License-Identifier: GPL-3.0-or-later
#include "board/opening.h"

#include <optional>

#include "board/controls.h"
#include "board/dialog_lock.h"
#include "board/ends.h"
#include "board/history.h"
#include "board/load_board.h"
#include "board/setup.h"
#include "board/squares.h"
#include "mail/arrivals.h"
#include "mail/sending.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "rules/board_text.h"
#include "store/database_lock.h"
#include "store/queries.h"
#include "store/repair.h"
#include "store/saving.h"

namespace board {

using platform::Process;
using rules::ThePosition;

namespace {

bool StoreStatus(const Game& game) {
  try {
    const store::DatabaseLock lock;
    std::optional<store::GameRecord> record;
    if (!store::FindGame(record, Process().CurrentGameID) || !record) return false;
    record->GAME_STATUS = game.GameStatus;
    return store::SaveGame(*record, {});
  } catch (const std::exception&) {
    return false;
  }
}

bool SetupIsUnsaved(const Game& game) {
  return Process().CurrentGameID == -1 &&
         rules::normalStart != (Process().BoardSetupMode
                                    ? rules::WriteBoardText(ThePosition().BoardState)
                                    : game.StartBoard);
}

/// What would be lost, as a sentence begins; blank for nothing.
std::string LostByClosing(const Game& game) {
  if (EntryIsPending(game)) return "Your move has not been sent yet";
  if (SetupIsUnsaved(game)) return "The position that you have set up has not been saved yet";
  return game.PlayerComment.empty() ? "" : "Your comment has not been sent yet";
}

}  // namespace

void Form_Load(Game& game, MovesAre moves) {
  game.storedOnly = moves == MovesAre::StoredOnly;
  game.ListUpdating = true;
  SetupOptions(game);
  if (!SetMoves(game)) {
    game.UnloadPending = true;
    return;
  }
  game.view.ConstructBoard();
  if (Process().CurrentGameID == -1 && Process().SetupGame) {
    BeginBoardSetup(game);
  } else {
    BeginGame(game);
  }
  Process().BoardOpen = true;
}

void SetupOptions(Game& game) {
  game.AwaitingOpponent = false;
  game.SelfCheckFlashes = 0;
  game.StalemateFlashes = 0;
  game.MateMessageShown = false;
  game.Surrendered = false;
  game.GameDrawn = false;
  game.DrawOffered = false;
  game.DrawButtonsUp = false;
  game.DrawMessagePending = false;
  game.DrawMessageShown = false;
  game.SetupWarned = false;
  game.SetupPlayable = false;
  game.CoordsVisible = platform::Settings().Coordinates;
  game.HilightVisible = false;
  game.HilightAsked = false;
  game.MovePointers.clear();
  game.StartBoard.clear();
  game.FlashPhase = true;
  game.KingMarked = false;
  game.Undo = {};
  game.Search.SearchCancelled = false;
  game.Search.MovesConsidered = 0;
  ThePosition().CheckmateFlag = false;
  ThePosition().SideInCheck = rules::NobodyInCheck;
}

bool SetMoves(Game& game) {
  const std::int32_t gameID = Process().CurrentGameID;
  store::MoveRecords moves;
  std::optional<store::GameRecord> record;
  if (!store::SelectMoves(moves, gameID) || !store::FindGame(record, gameID)) {
    platform::ShowMessage(platform::DatabaseIcon, "Database error.",
                          store::WithDamage("A database error has prevented Tarvolenix from "
                                            "creating the move history!||Please try opening this "
                                            "game again."),
                          "OK", {}, false, platform::FailureSound);
    return false;
  }
  game.Moves.Fill(std::move(moves));
  game.GameStatus = 0;
  if (!record) {
    game.PlaysWhite = true;
    game.WhiteName.clear();
    game.BlackName = Process().NewGame.Game_opponents_name;
    game.Title = Process().NewGame.Game_name;
  } else {
    game.PlaysWhite = record->GAME_HOST;
    game.GameStatus = record->GAME_STATUS;
    game.WhiteName = record->GAME_WHITE_NAME;
    game.BlackName = record->GAME_BLACK_NAME;
    game.Title = record->GAME_NAME;
    game.LastMail = mail::LastArrival(mail::ThreadOf(*record)).value_or(0);
    Process().ComputerGame = record->GAME_VS_COMPUTER;
  }
  ThePosition().SideToMove = game.PlaysWhite ? rules::White : rules::Black;
  game.ViewSide = platform::Settings().DefaultView ? rules::White : ThePosition().SideToMove;
  return true;
}

void BeginGame(Game& game) {
  Process().BoardSetupMode = false;
  SetBoardState(game);
  DisplayBoardState(game, true);
  SetFormCaptions(game);
  ConfirmDraw(game);
  SetButtonEnable(game);
  HilightMove(game, game.Moves.Count());
  game.ListUpdating = false;
}

void SetBoardState(Game& game) {
  game.StartBoard =
      LoadBoard(Process().CurrentGameID, ThePosition().SideInCheck, game.FlashPhase, false, false);
  if (Process().CurrentGameID >= 1) {
    MoveThroughHistory(game);
  } else {
    ThePosition().MoveAllowed = true;
  }
}

void SetFormCaptions(Game& game) {
  SetCaptions(game);
  game.AwaitingOpponent = !ThePosition().MoveAllowed;
  DisplayPlayerComment(game);
}

void SetCaptions(Game& game) {
  const bool over = GameIsOver(game);
  if (!over) {
    game.Caption = ThePosition().MoveAllowed
                       ? "Tarvolenix - Awaiting your move"
                       : "Tarvolenix - Awaiting " + OpponentName(game) + "'s move";
  } else if (game.GameDrawn) {
    game.Caption = "Tarvolenix - DRAW!";
  } else {
    const std::string winner = WonGame(game) ? "You" : OpponentName(game);
    game.Caption = std::string("Tarvolenix - ") +
                   (ThePosition().CheckmateFlag ? "CHECKMATE" : "OPPONENT SURRENDER") + "! - " +
                   winner + " won.";
  }
  game.PlayersTag = (over ? "You were playing " : "You are playing ") + OpponentName(game);
}

void SetGameStatus(Game& game) {
  if (LastMoveIsMine(game) || game.GameStatus == store::GameWon ||
      game.GameStatus == store::GameLost)
    return;
  // An older row doesn't know how the game ended.
  MoveList_RowColChange(game, game.Moves.Count());
  if (!GameIsOver(game)) return;
  game.GameStatus = game.GameDrawn  ? store::GameDrawn
                    : WonGame(game) ? store::GameWon
                                    : store::GameLost;
  if (StoreStatus(game)) return;
  platform::ShowMessage(
      platform::DatabaseIcon, "Database error.",
      store::WithDamage("A database error prevented Tarvolenix from setting the status of this "
                        "game correctly||It will still be listed as not played on the main game "
                        "display."),
      "OK");
}

bool MayClose(Game& game) {
  if (Process().ShuttingDown || Process().Stopping || game.UnloadPending) return true;
  const std::string lost = LostByClosing(game);
  if (lost.empty()) return true;
  const DialogLock lock(game.LockedForDialog);
  // Neither Enter nor Escape closes, either of which may be meant for the board.
  return !platform::AskWithExtra(platform::InformationIcon, "Close the board?",
                                 lost + " and will be lost if you close the board now.", "Go back",
                                 "Close", platform::AttentionSound);
}

void Form_Unload(Game& game) {
  platform::Seams& seams = platform::TheSeams();
  const platform::ShellHooks& hooks = seams.hooks;
  game.ClosingDown = true;
  Process().BoardSetupMode = false;
  seams.help->CloseHelp();
  if (Process().ShuttingDown) return;
  SetGameStatus(game);
  if (Process().BoardFromGameList) {
    seams.windows->BringBackGameList();
  } else if (Process().PendingGames.empty()) {
    seams.tray->BuildGameMenu();
    if (platform::Settings().SystrayStartup) seams.windows->CloseGameList();
  }
  seams.windows->CloseNewGame();
  Process().NewGame = {};
  platform::ReleasePolling();
  platform::CallHook(hooks.updateTrayStatus);
  // Ahead of the notification, which may open the next board.
  Process().BoardOpen = false;
  if (Process().PendingGames.empty()) return;
  game.view.Hide();
  platform::CallHook(hooks.notifyNewMoves);
}

}  // namespace board
