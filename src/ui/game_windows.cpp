// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/game_windows.h"

#include "mail/mail_session.h"
#include "platform/busy_pointer.h"
#include "platform/desktop.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/setting_variables.h"
#include "store/queries.h"
#include "ui/disabled_window.h"
#include "ui/pointers.h"

namespace ui {

using platform::Process;

GameWindows::GameWindows() {
  platform::ShellHooks& hooks = platform::TheDesktop().hooks;
  hooks.busyPointer = ShowBusyPointer;
  hooks.boardClosed = [this] { ShowGameList(Process().CurrentGameID); };
  hooks.notifyNewMoves = [this] {
    if (!Process().GameListOpen) ShowGameList();
    Process().PendingGames.clear();
    Process().NewMoveArrived = false;
  };
}

GameWindows::~GameWindows() {
  delete board_;
  platform::ShellHooks& hooks = platform::TheDesktop().hooks;
  hooks.busyPointer = nullptr;
  hooks.boardClosed = nullptr;
  hooks.notifyNewMoves = nullptr;
  Process().GameListOpen = false;
}

void GameWindows::ShowGameList(std::optional<std::int32_t> selectGame) {
  if (!list_) {
    list_ = std::make_unique<GamesWindow>();
    connect(list_.get(), &GamesWindow::OpenWanted, this, &GameWindows::OpenGame);
    connect(list_.get(), &GamesWindow::RetrieveWanted, this, &GameWindows::GetGames);
    connect(list_.get(), &GamesWindow::Closed, this, &GameWindows::Finished);
    Process().GameListOpen = true;
    Process().NewMoveArrived = false;
  }
  list_->Fill(selectGame);
  list_->show();
}

void GameWindows::OpenGame(std::int32_t gameID) {
  const platform::SettingVariables& settings = platform::Settings();
  if (board_ || !LoadChessGraphics(settings.ChessSet, settings.ChessBoard, graphics_)) return;
  // The board gives polling back when it closes.
  platform::SetCheckTimer(false);
  Process().CheckTimerHeld = true;
  Process().BoardFromGameList = true;
  Process().CurrentGameID = gameID;
  ShowBoard();
}

void GameWindows::ShowBoard() {
  const platform::BusyPointer busy;
  board_ = new BoardWindow(graphics_);
  board_->show();
  if (list_) list_->hide();
}

void GameWindows::GetGames() {
  const platform::PollingHold hold;
  const DisabledWindow disabled(*list_);
  const platform::BusyPointer busy;
  platform::SetLogonStatus(false);
  mail::LogonAndCollect(false, true, true);
  list_->Fill(list_->SelectedGame());
}

void GameWindows::Begin() {
  store::GameRecords waiting;
  // Games that can't be sorted are there all the same.
  store::SelectGames(waiting, "Game_status;1", "Game_opponents_name;A;Game_date;D");
  if (!waiting.empty()) OpenGame(waiting.front().GAME_ID);
  if (!board_) ShowGameList();
}

}  // namespace ui
