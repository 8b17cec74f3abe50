// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/playing.h"

#include <exception>
#include <optional>

#include "platform/busy_pointer.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "shell/failed_opening.h"
#include "store/queries.h"

namespace shell {

using platform::Process;

namespace {

/// Raises what the window raised. A board that has come keeps polling off until it closes; one that
/// found its game unreadable has gone by itself.
void OpenBoard(platform::PollingHold& hold, bool toFront) {
  const platform::BusyPointer busy;
  platform::TheSeams().notices->Withdraw();
  platform::TheWindows().OpenBoard(toFront);
  if (!Process().BoardOpen) return;
  hold.HandOver();
  if (Process().BoardFromGameList) platform::TheWindows().HideGameList();
}

/// A notice or a list may be older than what the console, or another window, has removed. Games
/// that can't be read are the board's to tell of.
bool IsRemoved(std::int32_t gameID) {
  std::optional<store::GameRecord> game;
  if (!store::FindGame(game, gameID) || game) return false;
  platform::ShowMessage(platform::DatabaseIcon, "Database error.",
                        "This game can't be opened: it isn't among your games any more.", "OK", {},
                        false, platform::FailureSound);
  return true;
}

void OpenBoardOf(std::int32_t gameID, bool fromGameList, bool toFront) {
  platform::PollingHold hold;
  if (IsRemoved(gameID)) return;
  Process().BoardFromGameList = fromGameList;
  Process().CurrentGameID = gameID;
  OpenBoard(hold, toFront);
}

void OpenGame(std::int32_t gameID, bool fromGameList) {
  if (Process().BoardOpen || !platform::TheWindows().LoadChessGraphics()) return;
  try {
    OpenBoardOf(gameID, fromGameList, false);
  } catch (const std::exception& error) {
    ReportFailedOpening(error, "the game board");
  }
}

/// Takes the new game dialog down however its game begins, or doesn't.
class NewGameBackdrop {
 public:
  NewGameBackdrop() = default;
  ~NewGameBackdrop() { platform::TheWindows().HideNewGame(); }
  NewGameBackdrop(const NewGameBackdrop&) = delete;
  NewGameBackdrop& operator=(const NewGameBackdrop&) = delete;
};

void AskAndOpenBoard() {
  platform::PollingHold hold;
  Process().CurrentGameID = -1;
  const NewGameBackdrop backdrop;
  const auto fields = platform::TheWindows().AskNewGame();
  if (!fields) return;
  Process().NewGame = *fields;
  // The list may have come meanwhile, for lack of a tray.
  if (Process().GameListOpen) Process().BoardFromGameList = true;
  OpenBoard(hold, false);
}

}  // namespace

void OpenGameFromTray(std::int32_t gameID) { OpenGame(gameID, false); }

void PlayGame(std::int32_t gameID) { OpenGame(gameID, true); }

bool OpenNewMove(std::int32_t gameID) {
  if (Process().BoardOpen || !platform::TheWindows().LoadChessGraphics()) return false;
  // The list isn't open, unless it has come for lack of a tray while the user was asked.
  OpenBoardOf(gameID, Process().GameListOpen, true);
  return true;
}

void StartNewGame(const NewGame& game) {
  if (Process().BoardOpen) return;
  Process().ComputerGame = game.againstComputer;
  Process().SetupGame = game.fromSetup;
  Process().BoardFromGameList = game.fromGameList;
  if (!platform::TheWindows().LoadChessGraphics()) return;
  try {
    AskAndOpenBoard();
  } catch (const std::exception& error) {
    ReportFailedOpening(error, "the new game dialog");
    return;
  }
  // Whoever plays the computer has had the choice meanwhile.
  if (Process().BoardOpen && Process().SetupGame) {
    platform::ShowMessage(
        platform::InformationIcon, "Board setup",
        "Please setup the board then select the Play Current Setup option to begin play", "OK");
  }
}

void ShowGameList() {
  platform::TheSeams().notices->Withdraw();
  try {
    platform::TheWindows().ShowGameList();
  } catch (const platform::WindowError&) {
    ReportAutomationError();
  } catch (const std::exception&) {
    // Nothing was promised, and whoever asked sees that it didn't come.
  }
}

}  // namespace shell
