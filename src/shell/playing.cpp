// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/playing.h"

#include <exception>

#include "platform/busy_pointer.h"
#include "platform/desktop.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "shell/failed_opening.h"

namespace shell {

using platform::Process;

namespace {

platform::Windows& Windows() { return *platform::TheDesktop().windows; }

/// A board that has come keeps polling off until it closes. One that found its game unreadable goes
/// by itself.
void KeepHoldForBoard() {
  if (!Process().BoardOpen) return;
  platform::SetCheckTimer(false);
  Process().CheckTimerHeld = true;
}

void ReplaceGameList() {
  if (Process().BoardOpen && Process().BoardFromGameList) Windows().HideGameList();
}

/// Raises what the window raised, with polling put back.
void OpenBoard(std::int32_t gameID, bool fromGameList, bool toFront) {
  {
    const platform::PollingHold hold;
    Process().BoardFromGameList = fromGameList;
    const platform::BusyPointer busy;
    Process().CurrentGameID = gameID;
    Windows().OpenBoard(toFront);
    ReplaceGameList();
  }
  KeepHoldForBoard();
}

void OpenGame(std::int32_t gameID, bool fromGameList) {
  if (Process().BoardOpen || !Windows().LoadChessGraphics()) return;
  try {
    OpenBoard(gameID, fromGameList, false);
  } catch (const std::exception& error) {
    ReportFailedOpening(error, "the game board");
  }
}

/// Takes the new game dialog down however its game begins, or doesn't.
class NewGameBackdrop {
 public:
  NewGameBackdrop() = default;
  ~NewGameBackdrop() { Windows().HideNewGame(); }
  NewGameBackdrop(const NewGameBackdrop&) = delete;
  NewGameBackdrop& operator=(const NewGameBackdrop&) = delete;
};

void AskAndOpenBoard() {
  const platform::PollingHold hold;
  Process().CurrentGameID = -1;
  const NewGameBackdrop backdrop;
  if (!Windows().AskNewGame()) return;
  // The list may have come meanwhile, for lack of a tray.
  if (Process().GameListOpen) Process().BoardFromGameList = true;
  const platform::BusyPointer busy;
  Windows().OpenBoard(false);
  ReplaceGameList();
}

}  // namespace

void OpenGameFromTray(std::int32_t gameID) { OpenGame(gameID, false); }

void PlayGame(std::int32_t gameID) { OpenGame(gameID, true); }

bool OpenNewMove(std::int32_t gameID) {
  if (Process().BoardOpen || !Windows().LoadChessGraphics()) return false;
  // The list isn't open, unless it has come for lack of a tray while the user was asked.
  OpenBoard(gameID, Process().GameListOpen, true);
  return true;
}

void StartNewGame(bool fromGameList) {
  if (Process().BoardOpen) return;
  Process().BoardFromGameList = fromGameList;
  if (!Windows().LoadChessGraphics()) return;
  try {
    AskAndOpenBoard();
  } catch (const std::exception& error) {
    ReportFailedOpening(error, "the new game dialog");
    return;
  }
  if (!Process().BoardOpen) return;
  KeepHoldForBoard();
  if (Process().SetupGame) {
    platform::ShowMessage(
        platform::InformationIcon, "Board setup",
        "Please setup the board then select the Play Current Setup option to begin play", "OK");
  }
}

void ShowGameList() {
  try {
    Windows().ShowGameList();
  } catch (const platform::WindowError&) {
    ReportAutomationError();
  } catch (const std::exception&) {
    // Nothing was promised, and whoever asked sees that it didn't come.
  }
}

}  // namespace shell
