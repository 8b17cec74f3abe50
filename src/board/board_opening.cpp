// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a game on the board, and closing it.
#include "board/board.h"
#include "board/load_board.h"
#include "platform/desktop.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "store/database_lock.h"
#include "store/queries.h"
#include "store/repair.h"
#include "store/saving.h"

namespace board {

using platform::Process;
using rules::ThePosition;

void Board::Form_Load() {
  ListUpdating = true;
  SetupOptions();
  if (!SetMoves()) {
    UnloadPending = true;
    return;
  }
  view_.ConstructBoard();
  if (Process().CurrentGameID == -1 && Process().SetupGame) {
    BeginBoardSetup();
  } else {
    BeginGame();
  }
  Process().BoardOpen = true;
}

void Board::SetupOptions() {
  AwaitingOpponent = false;
  SelfCheckFlashes = 0;
  StalemateFlashes = 0;
  MateMessageShown = false;
  Surrendered = false;
  GameDrawn = false;
  DrawOffered = false;
  DrawButtonsUp = false;
  DrawMessagePending = false;
  DrawMessageShown = false;
  SetupWarned = false;
  SetupPlayable = false;
  CoordsVisible = false;
  HilightVisible = false;
  MovePointers.clear();
  StartBoard.clear();
  FlashPhase = true;
  KingMarked = false;
  Undo = {};
  Search.SearchCancelled = false;
  Search.MovesConsidered = 0;
  ThePosition().CheckmateFlag = false;
  ThePosition().SideInCheck = rules::NobodyInCheck;
}

bool Board::SetMoves() {
  const std::int32_t gameID = Process().CurrentGameID;
  store::MoveRecords moves;
  store::GameRecords games;
  if (!store::SelectMoves(moves, gameID) ||
      !store::SelectGames(games, "Game_ID;" + std::to_string(gameID))) {
    platform::ShowMessage(platform::DatabaseIcon, "Database error.",
                          store::WithDamage("A database error has prevented Tarvolenix from "
                                            "creating the move history!||Please try opening this "
                                            "game again."),
                          "OK", {}, false, platform::FailureSound);
    return false;
  }
  Moves.Fill(std::move(moves));
  GameStatus = 0;
  if (games.empty()) {
    PlaysWhite = true;
    WhiteName.clear();
    BlackName = Process().NewGame.Game_opponents_name;
  } else {
    const store::GameRecord& game = games.front();
    PlaysWhite = game.GAME_HOST;
    GameStatus = game.GAME_STATUS;
    WhiteName = game.GAME_WHITE_NAME;
    BlackName = game.GAME_BLACK_NAME;
    Process().ComputerGame = game.GAME_VS_COMPUTER;
  }
  ThePosition().SideToMove = PlaysWhite ? rules::White : rules::Black;
  ViewSide = platform::Settings().DefaultView ? rules::White : ThePosition().SideToMove;
  return true;
}

void Board::BeginGame() {
  Process().BoardSetupMode = false;
  SetBoardState();
  DisplayBoardState(true);
  SetFormCaptions();
  ConfirmDraw();
  SetButtonEnable();
  HilightMove(Moves.Count());
  ListUpdating = false;
}

void Board::SetBoardState() {
  StartBoard =
      LoadBoard(Process().CurrentGameID, ThePosition().SideInCheck, FlashPhase, false, false);
  if (Process().CurrentGameID >= 1) {
    MoveThroughHistory();
  } else {
    ThePosition().MoveAllowed = true;
  }
}

void Board::CopyBoard() {
  for (int i = 0; i < 64; ++i) {
    DisplayedBoard[static_cast<std::size_t>(i)] = ThePosition().BoardState[i];
  }
}

void Board::DisplayBoardState(bool all) {
  for (int i = 0; i < 64; ++i) {
    if (all || ThePosition().BoardState[i] != DisplayedBoard[static_cast<std::size_t>(i)]) {
      PaintNormally(rules::SquareAt(i));
    }
  }
}

void Board::SetFormCaptions() {
  SetCaptions();
  AwaitingOpponent = !ThePosition().MoveAllowed;
  DisplayPlayerComment();
}

void Board::SetCaptions() {
  const bool over = GameIsOver();
  if (!over) {
    Caption = ThePosition().MoveAllowed ? "Tarvolenix - Awaiting your move"
                                        : "Tarvolenix - Awaiting " + OpponentName() + "'s move";
  } else if (GameDrawn) {
    Caption = "Tarvolenix - DRAW!";
  } else {
    const std::string winner = WonGame() ? "You" : OpponentName();
    Caption = std::string("Tarvolenix - ") +
              (ThePosition().CheckmateFlag ? "CHECKMATE" : "OPPONENT SURRENDER") + "! - " + winner +
              " won.";
  }
  PlayersTag = (over ? "You were playing " : "You are playing ") + OpponentName();
}

bool Board::GameIsOver() const { return ThePosition().CheckmateFlag || Surrendered || GameDrawn; }

GridPlace Board::PlaceOf(rules::Square square) const {
  if (ViewSide == rules::White) return {square.x - 1, square.y - 1};
  return {8 - square.x, 8 - square.y};
}

void Board::ChangeView() {
  const rules::Side mine = ThePosition().SideToMove;
  ViewSide = ViewSide == mine ? rules::OtherSide(mine) : mine;
  view_.ConstructBoard();
  view_.Refresh();
}

void Board::ToggleCoords() {
  CoordsVisible = !CoordsVisible;
  view_.Refresh();
}

bool Board::StoreStatus() const {
  try {
    const store::DatabaseLock lock;
    store::GameRecords games;
    const std::string selection = "Game_ID;" + std::to_string(Process().CurrentGameID);
    if (!store::SelectGames(games, selection) || games.empty()) return false;
    games.front().GAME_STATUS = GameStatus;
    return store::SaveGame(games.front(), {});
  } catch (const std::exception&) {
    return false;
  }
}

void Board::SetGameStatus() {
  if (LastMoveIsMine() || GameStatus == store::GameWon || GameStatus == store::GameLost) return;
  // An older row doesn't know how the game ended.
  MoveList_RowColChange(Moves.Count());
  if (!GameIsOver()) return;
  GameStatus = GameDrawn ? store::GameDrawn : WonGame() ? store::GameWon : store::GameLost;
  if (StoreStatus()) return;
  platform::ShowMessage(
      platform::DatabaseIcon, "Database error.",
      store::WithDamage("A database error prevented Tarvolenix from setting the status of this "
                        "game correctly||It will still be listed as not played on the main game "
                        "display."),
      "OK");
}

void Board::Form_Unload() {
  const platform::ShellHooks& hooks = platform::TheDesktop().hooks;
  ClosingDown = true;
  Process().BoardSetupMode = false;
  platform::CallHook(hooks.closeHelp);
  if (Process().ShuttingDown) return;
  SetGameStatus();
  if (Process().BoardFromGameList) {
    platform::CallHook(hooks.boardClosed);
  } else if (Process().PendingGames.empty()) {
    platform::CallHook(hooks.buildTrayGameMenu);
    platform::CallHook(hooks.closeGameList);
  }
  platform::CallHook(hooks.closeNewGame);
  Process().NewGame = {};
  platform::SetCheckTimer(true);
  Process().CheckTimerHeld = false;
  platform::CallHook(hooks.updateTrayStatus);
  // Ahead of the notification, which may open the next board.
  Process().BoardOpen = false;
  if (Process().PendingGames.empty()) return;
  view_.Hide();
  platform::CallHook(hooks.notifyNewMoves);
}

}  // namespace board
