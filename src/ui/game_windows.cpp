// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/game_windows.h"

#include <QException>
#include <QScreen>

#include <algorithm>
#include <exception>
#include <string>
#include <system_error>

#include "mail/mail_session.h"
#include "platform/busy_pointer.h"
#include "platform/desktop.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/setting_variables.h"
#include "ui/disabled_window.h"
#include "ui/pointers.h"

namespace ui {

using platform::Process;

namespace {

/// Shows one of the program's windows where the other one stands, as far as the screen has room
/// for it there.
void Replace(QWidget& old, QWidget& next) {
  const QRect place = old.frameGeometry();
  const QRect screen = old.screen()->availableGeometry();
  // Next may have had no frame yet; the old one's is the same.
  QRect frame({}, next.size() + place.size() - old.size());
  frame.moveCenter(place.center());
  old.hide();
  next.move(std::max(screen.left(), std::min(frame.left(), screen.right() + 1 - frame.width())),
            std::max(screen.top(), std::min(frame.top(), screen.bottom() + 1 - frame.height())));
  next.show();
}

void TellFailedOpening(const std::exception& error) {
  if (dynamic_cast<const QException*>(&error)) {
    platform::ShowMessage(
        platform::ErrorIcon, "Automation error",
        "There is a problem with Windows and OLE Automation.  Please visit https://www.debian.org "
        "or my website and download and install either DCOM95 for Windows 95 or DCOM98 for Windows "
        "98.",
        "Ok");
    return;
  }
  const auto* system = dynamic_cast<const std::system_error*>(&error);
  const int number = system ? system->code().value() : 0;
  platform::ShowMessage(platform::ErrorIcon, "Options error",
                        "The following error prevented the game board from opening:||" +
                            std::to_string(number) + ": " + error.what(),
                        "OK");
}

}  // namespace

GameWindows::GameWindows() {
  platform::ShellHooks& hooks = platform::TheDesktop().hooks;
  hooks.busyPointer = ShowBusyPointer;
  hooks.boardClosed = [this] {
    FillGameList(Process().CurrentGameID);
    // The board has taken the flag, and the list hasn't seen the new skin.
    if (board_ && board_->SkinChanged()) Process().RefreshButtonsPending = true;
    RevealGameList();
  };
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
  FillGameList(selectGame);
  RevealGameList();
}

void GameWindows::FillGameList(std::optional<std::int32_t> selectGame) {
  if (!list_) {
    list_ = std::make_unique<GamesWindow>();
    connect(list_.get(), &GamesWindow::OpenWanted, this, &GameWindows::OpenGame);
    connect(list_.get(), &GamesWindow::RetrieveWanted, this, &GameWindows::GetGames);
    connect(list_.get(), &GamesWindow::Closed, this, &GameWindows::Finished);
    connect(list_.get(), &GamesWindow::AccountWanted, this, &GameWindows::AccountWanted);
    Process().GameListOpen = true;
    Process().NewMoveArrived = false;
  }
  list_->Fill(selectGame);
}

void GameWindows::RevealGameList() {
  if (board_ && board_->isVisible()) {
    Replace(*board_, *list_);
  } else {
    list_->show();
  }
}

void GameWindows::OpenGame(std::int32_t gameID) {
  const platform::SettingVariables& settings = platform::Settings();
  if (board_ || !LoadChessGraphics(settings.ChessSet, settings.ChessBoard, graphics_)) return;
  // The board gives polling back when it closes.
  platform::SetCheckTimer(false);
  Process().CheckTimerHeld = true;
  Process().BoardFromGameList = true;
  Process().CurrentGameID = gameID;
  try {
    if (ShowBoard()) return;
    platform::SetCheckTimer(true);
    Process().CheckTimerHeld = false;
  } catch (const std::exception& error) {
    platform::SetCheckTimer(true);
    Process().CheckTimerHeld = false;
    TellFailedOpening(error);
  }
}

bool GameWindows::ShowBoard() {
  const platform::BusyPointer busy;
  board_ = new BoardWindow(graphics_);
  if (!board_->IsOpen()) {
    delete board_;
    return false;
  }
  if (list_ && list_->isVisible()) {
    Replace(*list_, *board_);
  } else {
    board_->show();
  }
  return true;
}

void GameWindows::GetGames() {
  const platform::PollingHold hold;
  const DisabledWindow disabled(*list_);
  const platform::BusyPointer busy;
  platform::SetLogonStatus(false);
  const auto selected = list_->SelectedGame();
  Process().PendingGames.clear();  // the user has seen those in the list
  mail::LogonAndCollect(false, true, true);
  list_->Fill(Process().PendingGames.empty() ? selected : std::nullopt);
}

void GameWindows::Begin() {
  store::GameRecords waiting;
  ReadGames(waiting, "Game_status;1");
  if (!waiting.empty()) OpenGame(waiting.front().GAME_ID);
  if (!board_) ShowGameList();
}

}  // namespace ui
