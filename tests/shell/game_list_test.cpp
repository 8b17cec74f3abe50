// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/game_list.h"

#include "platform/messages.h"
#include "platform/registry.h"
#include "shell_fixture.h"

namespace shell {
namespace {

using platform::Process;
using platform::Settings;

class GameListTest : public ShellFixture {
 protected:
  /// The games in their order, the selected one with a star.
  std::string List(std::int16_t column, std::string order = {},
                   std::optional<std::int32_t> selectGame = {}) {
    const GameList list = ReadGameList(column, order, selectGame);
    std::string ids;
    for (std::size_t row = 0; row < list.games.size(); ++row) {
      ids.append(" ").append(std::to_string(list.games[row].GAME_ID));
      if (row == list.selected) ids += "*";
    }
    return ids;
  }
};

TEST_F(GameListTest, EachColumnSortsAndIsKeptForTheNextTime) {
  Store(1, 2, "Carla", {}, "03/02/2026");
  Store(2, 1, "Anna", {}, "01/03/2026");
  Store(3, 6, "bob", {}, "31/12/2025");
  const struct {
    std::int16_t column;
    const char* order;
    const char* games;
    std::int16_t keptColumn;
  } rows[] = {
      {OpponentColumn, "", " 2* 1 3", OpponentColumn},
      {DateColumn, "up", " 3* 1 2", DateColumn},
      {GameIDColumn, "", " 2* 1 3", StatusColumn},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(List(row.column, row.order), row.games) << row.column << row.order;
    EXPECT_EQ(Process().GameListSortColumn, row.keptColumn);
    EXPECT_EQ(Process().GameListSortOrder, row.order);
  }
}

TEST_F(GameListTest, SelectsTheWantedGameElseTheFirstPendingOneElseTheFirst) {
  for (const int id : {1, 2, 3}) Store(id, 1);
  EXPECT_EQ(List(TitleColumn, {}, 9), " 1* 2 3");
  Process().PendingGames = {2, 3};
  EXPECT_EQ(List(TitleColumn), " 1 2* 3");
  EXPECT_EQ(List(TitleColumn, {}, 3), " 1 2 3*") << "whatever is pending";
}

TEST_F(GameListTest, GamesWithADateThatCannotBeReadAreThereAllTheSame) {
  Store(1, 1, "Anna", {}, "soon");
  Store(2, 2, "Bob");
  EXPECT_EQ(List(DateColumn).size(), std::string(" 1* 2").size());
}

TEST_F(GameListTest, AGameIsDeletedOnlyOnYesAndAFailureIsTold) {
  Store(1, 1);
  desktop.boxes.answers = {false, true, true};
  EXPECT_FALSE(DeleteGame(1, "Game 1"));
  EXPECT_EQ(List(StatusColumn), " 1*");
  desktop.files.FailOperation(1);
  EXPECT_FALSE(DeleteGame(1, "Game 1"));
  EXPECT_EQ(desktop.boxes.messages.back().icon, platform::DatabaseIcon);
  const std::string before = desktop.files.content["/program/Data/Tvgdb.dat"];
  EXPECT_TRUE(DeleteGame(1, "Game 1"));
  EXPECT_EQ(List(StatusColumn), "");
  Store(1, 2, "Bob");
  EXPECT_FALSE(UndoDelete()) << "it would take another game's number";
  store::RemoveGame(1);
  EXPECT_TRUE(UndoDelete());
  EXPECT_EQ(desktop.files.content["/program/Data/Tvgdb.dat"], before);
  EXPECT_TRUE(Process().DeletedGames.empty());
}

TEST_F(GameListTest, ARetrieveWithoutATrayLiftsTheGuard) {
  for (const bool livesInTray : {false, true}) {
    BecomeIdle();
    Settings().SystrayStartup = livesInTray;
    platform::SetLogonStatus(true);
    RetrieveFromGameList(false);
    EXPECT_EQ(Process().Offline, livesInTray);
    EXPECT_TRUE(Process().CheckTimer.Enabled && !Process().CheckTimerHeld);
  }
}

TEST_F(GameListTest, TheProgramEndsWithTheListWhereThereIsNoTray) {
  GameListClosed();
  EXPECT_FALSE(Process().Stopping);
  Settings().SystrayStartup = false;
  Process().ShuttingDown = true;
  GameListClosed();
  EXPECT_FALSE(Process().Stopping) << "a failed start ends by itself";
  Process().ShuttingDown = false;
  GameListClosed();
  EXPECT_TRUE(Process().Stopping);
}

}  // namespace
}  // namespace shell
