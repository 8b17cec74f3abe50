// SPDX-License-Identifier: GPL-3.0-or-later
// What the game list shows and does, without a widget: its rows in their order, the row to select,
// and the rules of deleting a game and of opening and closing the list.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/conversions.h"
#include "shell/game_news.h"
#include "store/game_record.h"

namespace shell {

/// The columns of the grid; the two with numbers of games are never seen. They are counted in this
/// order, and stand in another: the latest news ahead of the date.
enum GameListColumn : std::int16_t {
  GameIDColumn,
  StatusColumn,
  OpponentColumn,
  TitleColumn,
  DateColumn,
  OpponentsIDColumn,
  LastMoveColumn,
  SinceColumn,
  gameListColumns
};

/// Of the list's pictures the first two are the sort marks, the others show how a game stands.
enum StatusIcon { AscendingIcon = 1, DescendingIcon, firstStatusIcon };
inline constexpr int statusIconCount = 7;

/// The picture of a GAME_STATUS; 0 where it has none.
int StatusIconOf(std::int16_t status);

/// The day that a stored GAME_DATE means: day from its first two characters, year from its last
/// four, month from between the slashes, or from behind the day where there are none.
std::optional<platform::Date> DayOfGame(const std::string& storedDate);

struct GameList {
  store::GameRecords games;
  GameNews news;
  std::size_t selected = 0;  ///< the row to select, from 0
  bool isDamaged = false;    ///< the games can't be read, or can't be put in order
};

bool IsDescending(const std::string& order);

/// Reads the games by one of the columns and keeps the sort for the next time; a column that nobody
/// sorts by becomes its neighbour. What is sorted by news has games without any behind the others.
/// Selects the given game, else the first of the pending ones.
GameList ReadGameList(std::int16_t& column, std::string& order,
                      std::optional<std::int32_t> selectGame = {});

/// A game by mail needs a mail service, or moves that travel as files.
bool MayStartMailGame();

/// What a game by mail still waits for.
const char* WhyNoMailGame();

/// Whether the user has ever said who he is to his mail service.
bool HasMailAccount();

/// Asks the user and deletes the game. True where it is gone; of a failure he was told.
bool DeleteGame(std::int32_t gameID, const std::string& title);

/// Puts the game back that was deleted last, of those in DeletedGames; there must be one. Its
/// number; nothing where that failed, which the user was told.
std::optional<std::int32_t> UndoDelete();

/// Logs on and takes what has come in, read mails too, or imports a file that the user picks.
/// Waits.
void RetrieveFromGameList(bool import);

/// What the list's window does to the program behind its first fill, and when it has closed: the
/// program ends with it where it doesn't live in the tray.
void GameListOpened();
void GameListClosed();

}  // namespace shell
