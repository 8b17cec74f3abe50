// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/game_list.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "mail/mail_session.h"
#include "platform/ascii.h"
#include "platform/busy_pointer.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "platform/text_fields.h"
#include "shell/held_mail_questions.h"
#include "shell/shut_down.h"
#include "shell/tray_status.h"
#include "store/queries.h"
#include "store/repair.h"
#include "store/saving.h"

namespace shell {

using platform::Process;

namespace {

/// What the store sorts by. News are sorted here, and a tie among them is broken by the status.
constexpr const char* sortKeys[gameListColumns] = {
    "", "Game_status;", "Game_opponents_name;", "Game_name;", "Game_date;",
    "", "Game_status;", "Game_status;"};

/// Those that nobody sorts by become their neighbours.
std::int16_t SortedColumn(std::int16_t column) {
  if (column < StatusColumn) return StatusColumn;
  return column == OpponentsIDColumn || column >= gameListColumns ? std::int16_t{DateColumn}
                                                                  : column;
}

std::optional<std::int32_t> FirstPending() {
  const std::vector<std::int32_t>& pending = Process().PendingGames;
  return pending.empty() ? std::nullopt : std::optional(pending.front());
}

bool IsNumber(std::string_view text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

int StatusIconOf(std::int16_t status) {
  switch (status) {
    case store::MoveWaiting:
      return firstStatusIcon;
    case store::WaitingForOpponent:
    case store::DrawOfferSent:
      return 4;
    case store::GameWon:
      return 5;
    case store::GameLost:
      return 6;
    case store::GameDrawn:
      return 7;
    default:
      return 0;
  }
}

std::optional<platform::Date> DayOfGame(const std::string& storedDate) {
  constexpr std::size_t dayLength = 2, yearLength = 4;
  if (storedDate.size() < dayLength + dayLength + yearLength) return std::nullopt;
  const std::string day = storedDate.substr(0, dayLength);
  const bool hasSlashes = storedDate.find('/') != std::string::npos;
  const std::string month = hasSlashes ? std::string(platform::GetField(storedDate, 2, '/'))
                                       : storedDate.substr(dayLength, dayLength);
  const std::string year = storedDate.substr(storedDate.size() - yearLength);
  for (const std::string& part : {day, month, year}) {
    if (!IsNumber(part)) return std::nullopt;
  }
  return platform::ToDate(day + "/" + month + "/" + year);
}

bool IsDescending(const std::string& order) { return platform::SameWithoutCase(order, "DESC"); }

GameList ReadGameList(std::int16_t& column, std::string& order,
                      std::optional<std::int32_t> selectGame) {
  column = SortedColumn(column);
  GameList list;
  store::LastMoves lastMoves;
  list.isDamaged = !store::SelectGamesWithLastMoves(
      list.games, lastMoves, sortKeys[column] + std::string(IsDescending(order) ? "D" : "A"));
  list.news = GameNews(std::move(lastMoves));
  if (column == LastMoveColumn) list.news.SortByMove(list.games, IsDescending(order));
  if (column == SinceColumn) list.news.SortByTime(list.games, IsDescending(order));
  if (!selectGame) selectGame = FirstPending();
  const auto selected =
      std::find_if(list.games.begin(), list.games.end(),
                   [&](const store::GameRecord& game) { return game.GAME_ID == selectGame; });
  if (selected != list.games.end()) {
    list.selected = static_cast<std::size_t>(selected - list.games.begin());
  }
  Process().GameListSortColumn = column;
  Process().GameListSortOrder = order;
  return list;
}

bool HasMailAccount() {
  return !platform::IsEmptyValue(platform::ReadRegistry(platform::mailSection, "MyAddress"));
}

bool MayStartMailGame() { return !Process().Offline || Process().StandAlone; }

const char* WhyNoMailGame() {
  return platform::IsEmptyValue(platform::ReadRegistry(platform::mailSection, "MyAddress"))
             ? "Works once Tarvolenix knows your mail account: choose \"Mail account...\" in the "
               "File menu of the game list."
             : "Works once your mail service is reached.";
}

bool DeleteGame(std::int32_t gameID, const std::string& title) {
  if (!platform::ShowMessage(platform::InformationIcon, "Delete game.",
                             "Are you sure you wish to delete the game titled " + title + "?",
                             "Yes", "No", false, platform::AttentionSound)) {
    return false;
  }
  std::string removed;
  if (store::RemoveGame(gameID, &removed)) {
    if (!removed.empty()) Process().DeletedGames.push_back(std::move(removed));
    return true;
  }
  platform::ShowMessage(
      platform::DatabaseIcon, "Delete game.",
      store::WithDamage("A database error prevented Tarvolenix from deleteing the currently "
                        "selected game.  Please try again.||If this problem persists your database "
                        "may be corrupt and reinstalling Tarvolenix should fix it."),
      "OK", {}, false, platform::FailureSound);
  return false;
}

std::optional<std::int32_t> UndoDelete() {
  std::vector<std::string>& deleted = Process().DeletedGames;
  if (const auto number = store::PutBackGame(deleted.back())) {
    deleted.pop_back();
    return number;
  }
  // The ones that were deleted before it aren't to wait for it.
  std::rotate(deleted.begin(), deleted.end() - 1, deleted.end());
  platform::ShowMessage(
      platform::DatabaseIcon, "Undo delete.",
      store::WithDamage("The deleted game could not be put back.  Either the game file can't be "
                        "written, or another game has taken its number meanwhile."),
      "OK", {}, false, platform::FailureSound);
  return std::nullopt;
}

void RetrieveFromGameList(bool import) {
  const platform::PollingHold hold;
  if (import) {
    mail::LogonAndCollect(true, true, true);
  } else {
    const platform::BusyPointer busy;
    // Without a tray this is the only way out of the guard that a failed logon leaves.
    if (!platform::Settings().SystrayStartup) mail::ForgetEarlierCrash();
    platform::ShowStatus(true, "Logging on...");
    mail::LogonAndCollect(false, true, true);
  }
  UpdateTrayStatus(platform::TrayOperation::Modify);
  AskAboutHeldMails(HeldMails::New);
}

void GameListOpened() {
  Process().NewMoveArrived = false;
  UpdateTrayStatus(platform::TrayOperation::Modify);
  Process().GameListOpen = true;
}

void GameListClosed() {
  platform::TheSeams().help->CloseHelp();
  if (Process().ShuttingDown) return;
  Process().GameListOpen = false;
  Process().NewMoveArrived = false;
  const bool livesInTray = platform::Settings().SystrayStartup;
  if (livesInTray) UpdateTrayStatus(platform::TrayOperation::Modify);
  platform::TheSeams().tray->BuildGameMenu();
  if (!livesInTray) ExitProgram();
}

}  // namespace shell
