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
      ids += " " + std::to_string(list.games[row].GAME_ID) + (row == list.selected ? "*" : "");
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
      {StatusColumn, "", " 2* 1 3", StatusColumn},
      {GameIDColumn, "", " 2* 1 3", StatusColumn},
      {StatusColumn, "DESC", " 3* 1 2", StatusColumn},
      {OpponentColumn, "", " 2* 1 3", OpponentColumn},
      {TitleColumn, "desc", " 3* 2 1", TitleColumn},
      {DateColumn, "", " 3* 1 2", DateColumn},
      {OpponentsIDColumn, "DESC", " 2* 1 3", DateColumn},
      {DateColumn, "up", " 3* 1 2", DateColumn},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(List(row.column, row.order), row.games) << row.column << row.order;
    EXPECT_EQ(Process().GameListSortColumn, row.keptColumn);
    EXPECT_EQ(Process().GameListSortOrder, row.order);
  }
}

TEST_F(GameListTest, SelectsTheWantedGameElseTheFirstPendingOneElseTheFirst) {
  for (const int id : {1, 2, 3}) Store(id, 1);
  EXPECT_EQ(List(StatusColumn, {}, 3), List(TitleColumn, {}, 3));
  EXPECT_EQ(List(TitleColumn, {}, 3), " 1 2 3*");
  EXPECT_EQ(List(TitleColumn, {}, 9), " 1* 2 3");
  Process().PendingGames = "2;3;";
  EXPECT_EQ(List(TitleColumn), " 1 2* 3");
  EXPECT_EQ(List(TitleColumn, {}, 3), " 1 2 3*") << "whatever is pending";
}

TEST_F(GameListTest, DaysAreReadByThePlacesOfTheirDigits) {
  const struct {
    const char* stored;
    std::optional<platform::Date> day;
  } rows[] = {
      {"09/03/2026", {{2026, 3, 9}}},
      {"09032026", {{2026, 3, 9}}},
      {"09/3/2026", {{2026, 3, 9}}},
      {"31/02/2026", {}},
      {"9/3/2026", {}},
      {"", {}},
      {"March 9, 2026", {}},
      {"09/+3/2026", {}},
      {"09/03/26", {}},
  };
  for (const auto& row : rows) EXPECT_EQ(DayOfGame(row.stored), row.day) << row.stored;
}

TEST_F(GameListTest, GamesWithADateThatCannotBeReadAreThereAllTheSame) {
  Store(1, 1, "Anna", {}, "soon");
  Store(2, 2, "Bob");
  EXPECT_EQ(List(DateColumn).size(), std::string(" 1* 2").size());
  std::int16_t column = StatusColumn;
  std::string order;
  EXPECT_FALSE(ReadGameList(column, order).isDamaged);
  desktop.files.content["/program/Data/Tvgdb.dat"] = "no game\r\n";
  EXPECT_TRUE(ReadGameList(column, order).isDamaged);
}

TEST_F(GameListTest, DrawOffersLookLikeWaitingAndUnknownStandsHaveNoPicture) {
  std::string pictures;
  for (std::int16_t status = 0; status <= 7; ++status) {
    pictures += std::to_string(StatusIconOf(status));
  }
  EXPECT_EQ(pictures, "03456470");
}

TEST_F(GameListTest, AGameIsDeletedOnlyOnYesAndAFailureIsTold) {
  Store(1, 1);
  desktop.boxes.answers = {false, true, true};
  EXPECT_FALSE(DeleteGame(1, "Game 1"));
  EXPECT_EQ(desktop.LastMessage(),
            (std::pair<std::string, std::string>{
                "Delete game.", "Are you sure you wish to delete the game titled Game 1?"}));
  EXPECT_EQ(List(StatusColumn), " 1*");
  desktop.files.FailOperation(1);
  EXPECT_FALSE(DeleteGame(1, "Game 1"));
  EXPECT_EQ(desktop.boxes.messages.back().icon, platform::DatabaseIcon);
  EXPECT_TRUE(desktop.LastMessage().second.starts_with("A database error prevented Tarvolenix"));
  EXPECT_TRUE(DeleteGame(1, "Game 1"));
  EXPECT_EQ(List(StatusColumn), "");
}

TEST_F(GameListTest, ARetrieveTakesReadMailsAndWithoutATrayLiftsTheGuard) {
  for (const bool livesInTray : {false, true}) {
    BecomeIdle();
    Settings().SystrayStartup = livesInTray;
    platform::SetLogonStatus(true);
    Happened();
    RetrieveFromGameList(false);
    EXPECT_EQ(Times("message Email logon failer", Happened()), livesInTray ? 1 : 0);
    EXPECT_EQ(desktop.boxes.statusTexts.front(), "Logging on...");
    EXPECT_EQ(desktop.boxes.statusTexts.back(), "");
    EXPECT_TRUE(Process().CheckTimer.Enabled && !Process().CheckTimerHeld);
  }
}

TEST_F(GameListTest, OpeningAndClosingTellTheTrayAndTheProgramEndsWithTheListWithoutOne) {
  BecomeIdle();
  Process().NewMoveArrived = true;
  GameListOpened();
  EXPECT_TRUE(Process().GameListOpen && !Process().NewMoveArrived);
  Process().NewMoveArrived = true;
  Happened();
  GameListClosed();
  EXPECT_FALSE(Process().GameListOpen || Process().NewMoveArrived);
  EXPECT_EQ(Happened(), "close help, tray modify 1 Tarvolenix - Nothing new, buildTrayGameMenu");
  EXPECT_FALSE(Process().Stopping);

  Settings().SystrayStartup = false;
  GameListClosed();
  EXPECT_TRUE(Process().Stopping);
}

TEST_F(GameListTest, AFailedStartClosesTheListWithoutAWord) {
  Process().GameListOpen = true;
  Process().ShuttingDown = true;
  Settings().SystrayStartup = false;
  GameListClosed();
  EXPECT_TRUE(Process().GameListOpen && !Process().Stopping);
  EXPECT_EQ(Happened(), "close help");
}

TEST_F(GameListTest, WithoutMailOrMoveFilesNoMailGameBegins) {
  for (const auto& [offline, standAlone, may] :
       {std::tuple{true, false, false}, {true, true, true}, {false, false, true}}) {
    Process().Offline = offline;
    Process().StandAlone = standAlone;
    EXPECT_EQ(MayStartMailGame(), may);
  }
}

}  // namespace
}  // namespace shell
