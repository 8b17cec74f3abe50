// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/notification.h"

#include <exception>
#include <optional>
#include <string>

#include "platform/conversions.h"
#include "platform/desktop.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "platform/text_fields.h"
#include "shell/failed_opening.h"
#include "shell/playing.h"
#include "store/queries.h"

namespace shell {

using platform::NotifyChoice;
using platform::Process;

namespace {

enum NotificationMethod { BySound = 1, ByDialog = 2, ByBoth = 3 };

bool Notifies(NotificationMethod method) {
  const int chosen = platform::Settings().NotificationMethod;
  return chosen == method || chosen == ByBoth;
}

std::string FirstPending() {
  return std::string(platform::GetField(Process().PendingGames, 1, ';'));
}

/// With all its repetitions.
void DropFirstPending() {
  const std::string first = FirstPending();
  std::string others;
  platform::FieldWalk items(Process().PendingGames, ';');
  for (int count = platform::CountFields(Process().PendingGames, ';'); count > 1; --count) {
    const std::string_view item = items.Next();
    if (item != first) others.append(item).append(";");
  }
  Process().PendingGames = others;
}

void PlayNotificationSound() {
  const platform::SettingVariables& settings = platform::Settings();
  platform::PlayWave(settings.NotificationSoundPath + settings.NotificationSoundWav);
}

/// What the dialog shows of the first pending game; nothing where it can't be found.
std::optional<platform::NewMove> FirstNewMove() {
  const auto id = platform::ToInteger32(FirstPending());
  store::GameRecords games;
  store::MoveRecords moves;
  if (!id || !store::SelectGames(games, "Game_ID;" + FirstPending()) || games.size() != 1 ||
      !store::SelectMoves(moves, *id)) {
    return std::nullopt;
  }
  return platform::NewMove{games.front().GAME_OPPONENTS_NAME, games.front().GAME_NAME,
                           moves.empty() ? std::string{} : moves.back().MoveComment,
                           platform::CountFields(Process().PendingGames, ';') == 2};
}

/// False where the user plays one of them, or can't.
bool GoesOnAfter(NotifyChoice choice) {
  switch (choice) {
    case NotifyChoice::Play:
      if (OpenNewMove(platform::ToInteger32(FirstPending()).value_or(-1))) DropFirstPending();
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

}  // namespace

void NotifyNewMoves() {
  if (!Process().NewMoveArrived || Process().GameListOpen || Process().Stopping) return;
  try {
    if (Notifies(BySound)) PlayNotificationSound();
    if (Notifies(ByDialog)) AskAboutPendingGames();
    if (Process().PendingGames.empty()) Process().NewMoveArrived = false;
  } catch (const std::exception& error) {
    ReportFailedOpening(error, "the new move notification dialog");
  }
}

NotifyChoice ShowNotification() {
  const platform::PollingHold hold;
  const auto newMove = FirstNewMove();
  if (newMove) return platform::TheDesktop().windows->AskAboutNewMove(*newMove);
  platform::ShowMessage(platform::InformationIcon, "Notification error.",
                        "The new game appears to be missing from the database.||Please try "
                        "deleting this game and getting your opponent to send the move agian.",
                        "OK");
  return NotifyChoice::Later;
}

}  // namespace shell
