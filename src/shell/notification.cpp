// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/notification.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "platform/harmless_text.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "shell/failed_opening.h"
#include "shell/game_news.h"
#include "shell/playing.h"
#include "store/queries.h"

namespace shell {

using platform::NotifyChoice;
using platform::Process;

namespace {

using GameIDs = std::vector<std::int32_t>;

enum NotificationMethod { BySound = 1, ByDialog = 2, ByBoth = 3 };

bool Notifies(NotificationMethod method) {
  const int chosen = platform::Settings().NotificationMethod;
  return chosen == method || chosen == ByBoth;
}

std::int32_t FirstPending() {
  return Process().PendingGames.empty() ? -1 : Process().PendingGames.front();
}

/// With all its repetitions.
void DropFirstPending() { std::erase(Process().PendingGames, FirstPending()); }

void PlayNotificationSound() {
  const platform::SettingVariables& settings = platform::Settings();
  platform::PlayWave(settings.NotificationSoundPath + settings.NotificationSoundWav);
}

/// What there is to tell of a pending game; nothing where it can't be found.
std::optional<platform::NewMove> NewMoveIn(std::int32_t gameID) {
  std::optional<store::GameRecord> game;
  store::MoveRecords moves;
  if (gameID < 0 || !store::FindGame(game, gameID) || !game || !store::SelectMoves(moves, gameID)) {
    return std::nullopt;
  }
  return platform::NewMove{game->GAME_OPPONENTS_NAME,
                           game->GAME_NAME,
                           moves.empty() ? std::string{} : moves.back().MoveComment,
                           Process().PendingGames.size() == 1,
                           moves.empty() ? std::string{} : NumberedMove(moves.back()),
                           game->GAME_ID};
}

/// Opens a game that has a new move, which isn't pending any more then.
void PlayNewMove(std::int32_t gameID) {
  if (OpenNewMove(gameID)) std::erase(Process().PendingGames, gameID);
}

void ShowNotice(const GameIDs& games);

/// Those that still wait are told when the board closes: looks that came meanwhile have forgotten
/// them.
void TellLater(const GameIDs& games) {
  GameIDs& pending = Process().PendingGames;
  for (const std::int32_t gameID : games) {
    std::optional<store::GameRecord> game;
    const bool waits =
        store::FindGame(game, gameID) && game && game->GAME_STATUS == store::MoveWaiting;
    if (waits && std::count(pending.begin(), pending.end(), gameID) == 0) pending.push_back(gameID);
  }
  if (!pending.empty()) Process().NewMoveArrived = true;
}

/// What the user has answered to the desktop's notice about these games, at any time. Play is for
/// the first.
void TakeAnswer(GameIDs games, NotifyChoice choice) {
  platform::Windows& windows = *platform::TheSeams().windows;
  if (Process().Stopping || windows.AnswerAboutNewMove(choice)) return;
  if (choice == NotifyChoice::Later) return Process().PendingGames.clear();
  if (Process().CheckTimerHeld) {
    windows.RaiseFrontWindow();
    return ShowNotice(games);  // he may answer again when he is done there
  }
  try {
    PlayNewMove(games.front());
    games.erase(games.begin());
    TellLater(games);
  } catch (const std::exception& error) {
    ReportFailedOpening(error, "the game board");
  }
}

std::string GameOf(const platform::NewMove& move) { return move.OpName + ", " + move.GameName; }

/// In words, where it can be told so.
platform::Notice NoticeOf(const platform::NewMove& move) {
  std::string text = GameOf(move);
  for (const std::string& line :
       {move.LastMove, platform::TheSeams().movePages->WordsOf(move.gameID), move.MoveComment}) {
    if (!line.empty()) text += '\n' + line;
  }
  return {"A new move has arrived", platform::Harmless(text)};
}

/// A line for each game.
platform::Notice NoticeOf(const std::vector<platform::NewMove>& moves) {
  if (moves.size() == 1) return NoticeOf(moves.front());
  constexpr std::size_t most = 5;
  std::string text = GameOf(moves.front());
  for (std::size_t row = 1; row < std::min(moves.size(), most); ++row) {
    text += '\n' + GameOf(moves[row]);
  }
  if (moves.size() > most) text += "\n...";
  return {std::to_string(moves.size()) + " new moves have arrived", platform::Harmless(text)};
}

/// A game that can't be found isn't told.
void ShowNotice(const GameIDs& games) {
  if (!platform::Settings().DesktopNotices) return;
  std::vector<platform::NewMove> moves;
  GameIDs told;
  for (const std::int32_t gameID : games) {
    const auto move = NewMoveIn(gameID);
    if (!move || std::count(told.begin(), told.end(), gameID) != 0) continue;
    moves.push_back(*move);
    told.push_back(gameID);
  }
  if (told.empty()) return;
  platform::TheSeams().notices->Show(NoticeOf(moves),
                                     [told](NotifyChoice choice) { TakeAnswer(told, choice); });
}

/// False where the user plays one of them, or can't.
bool GoesOnAfter(NotifyChoice choice) {
  switch (choice) {
    case NotifyChoice::Play:
      PlayNewMove(FirstPending());
      return false;
    case NotifyChoice::GameList:
      ShowGameList();
      Process().PendingGames.clear();
      return false;
    case NotifyChoice::Later:
      Process().PendingGames.clear();
      return false;
    case NotifyChoice::Next:
      DropFirstPending();
      return true;
  }
  return false;
}

void AskAboutPendingGames() {
  while (!Process().PendingGames.empty() && GoesOnAfter(ShowNotification())) {
  }
}

void TellOfNewMoves() {
  if (Notifies(BySound)) PlayNotificationSound();
  if (Notifies(ByDialog)) {
    AskAboutPendingGames();
  } else {
    ShowNotice(Process().PendingGames);
  }
  if (Process().PendingGames.empty()) Process().NewMoveArrived = false;
}

}  // namespace

void NotifyNewMoves() {
  if (!Process().NewMoveArrived || Process().Stopping) return;
  try {
    if (Process().GameListOpen) {
      if (!platform::TheSeams().windows->AreInUse()) ShowNotice(Process().PendingGames);
    } else {
      TellOfNewMoves();
    }
  } catch (const std::exception& error) {
    ReportFailedOpening(error, "the new move notification dialog");
  }
}

void TellOfWaitingGames() {
  if (!Notifies(ByDialog) || Process().GameListOpen || Process().BoardOpen) return;
  store::GameRecords games;
  const auto waiting = "Game_status;" + std::to_string(store::MoveWaiting) + ";Game_vs_computer;0";
  if (!store::SelectGames(games, waiting) || games.empty()) return;
  platform::TheSeams().tray->Say(games.size() == 1
                                     ? games.front().GAME_OPPONENTS_NAME +
                                           " has moved: a game waits for your move."
                                     : std::to_string(games.size()) + " games wait for your move.");
}

NotifyChoice ShowNotification() {
  const platform::PollingHold hold;
  const auto newMove = NewMoveIn(FirstPending());
  if (newMove) {
    ShowNotice({newMove->gameID});
    const NotifyChoice choice = platform::TheSeams().windows->AskAboutNewMove(*newMove);
    platform::TheSeams().notices->Withdraw();
    return choice;
  }
  platform::ShowMessage(platform::InformationIcon, "Notification error.",
                        "The new game appears to be missing from the database.||Please try "
                        "deleting this game and getting your opponent to send the move agian.",
                        "OK");
  return NotifyChoice::Later;
}

}  // namespace shell
