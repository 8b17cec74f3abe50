// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/game_list.h"

#include "contacts/contacts_book.h"
#include "platform/messages.h"
#include "platform/registry.h"
#include "shell/other_games.h"
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

TEST_F(GameListTest, NewsSortByTheMoveAndByTheTimeOfTheLastMailInEitherDirection) {
  store::GameRecord longest = Game(1, 2, "Carla"), word = Game(2, 1, "Anna"),
                    none = Game(3, 1, "Bo");
  ASSERT_TRUE(store::SaveGame(longest, {{1, "5254", "e4", ""}, {2, "5755", "e5", "well, well"}}));
  ASSERT_TRUE(store::SaveGame(word, {{1, "0000", "Draw offer", ""}}));
  ASSERT_TRUE(store::SaveGame(none, {}));
  longest.GAME_DATESTAMP = "020320260805";  // a thread of its own
  ASSERT_TRUE(store::SaveGame(longest, {}));
  desktop.files.content["/program/Data/Tvmail.dat"] =
      "arrived|010320260805-7|900\ndeparted|010320260805-7|2000\narrived|020320260805-7|1000\n";
  EXPECT_EQ(List(LastMoveColumn), " 2* 1 3");
  EXPECT_EQ(List(LastMoveColumn, "DESC"), " 1* 2 3");
  EXPECT_EQ(List(SinceColumn), " 1* 2 3");
  EXPECT_EQ(List(SinceColumn, "DESC"), " 2* 3 1");
  std::int16_t column = LastMoveColumn;
  std::string order;
  const GameList list = ReadGameList(column, order);
  std::string moves;
  for (const store::GameRecord& game : list.games) moves += list.news.LastMove(game) + '/';
  EXPECT_EQ(moves, "Draw offer/1... e5//");
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
  store::GameRecord other = Game(1, 2, "Bob", "01/03/2026");
  other.GAME_DATESTAMP = "010320262359";
  ASSERT_TRUE(store::SaveGame(other, {}));
  EXPECT_FALSE(UndoDelete()) << "it would take another game's number";
  store::RemoveGame(1);
  const std::string deleted = Process().DeletedGames.back();
  EXPECT_EQ(UndoDelete(), 1);
  EXPECT_EQ(desktop.files.content["/program/Data/Tvgdb.dat"], before);
  EXPECT_TRUE(Process().DeletedGames.empty());
  store::RemoveGame(1);
  store::GameRecord anew = Game(1, 1, "Anna", "01/03/2026");
  anew.GAME_ID = 7;
  ASSERT_TRUE(store::SaveGame(anew, {{1, "5254", "e4", "Hi"}, {2, "5755", "e5", ""}}));
  Process().DeletedGames = {deleted};
  EXPECT_EQ(UndoDelete(), 7) << "it came anew";
  EXPECT_EQ(List(StatusColumn), " 7*");
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

class OtherGamesTest : public ShellFixture {
 protected:
  /// A file of the data folder, or "-".
  std::string Own(const std::string& name) const {
    const auto found = desktop.files.content.find(Process().DataPath + name);
    return found == desktop.files.content.end() ? "-" : found->second;
  }
  static std::string Line(int id) {
    return std::to_string(id) + "|090320260805|7|n|09/03/2026|a@b|w|b|-1|o|1|0|\r\n";
  }
};

TEST_F(OtherGamesTest, GamesAreTakenOverWholeAndOnesOwnAreKept) {
  const std::string one = Line(1), two = one + Line(2), own = Line(5);
  const std::string aside = "Tvgdb.replaced-20260309-080500.dat";
  const struct {
    const char* name;
    std::string own, place, theirs, theirBackup;
    std::deque<bool> answers;
    std::string games, backup, kept, told;
  } rows[] = {
      {"none before",
       "-",
       "/cd/",
       two,
       one,
       {},
       two,
       one,
       "-",
       "Copied 2 games from /cd/Tvgdb.dat."},
      {"in a program folder",
       own,
       "/cd/Data/",
       two,
       one,
       {true},
       two,
       one,
       own,
       "; the games that were here are kept as " + aside},
      {"a backup that is damaged", own, "/cd/", two, "x", {true}, two, two, own, "Copied 2 games"},
      {"not wanted", own, "/cd/", two, one, {false}, own, "old", "-", "instead of your 1 game?"},
      {"damaged",
       own,
       "/cd/",
       one + "x\r\n",
       two,
       {},
       own,
       "old",
       "-",
       "damaged in line 2: its GAME"},
      {"a game twice", own, "/cd/", one + one, two, {}, own, "old", "-", "stands once more"},
      {"the same",
       own,
       "/cd/",
       own,
       one,
       {},
       own,
       "old",
       "-",
       "are the same as those in your list"},
      {"no games",
       own,
       "/elsewhere/",
       one,
       one,
       {},
       own,
       "old",
       "-",
       "there is no game file Tvgdb.dat"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    desktop.files.content = {{row.place + "Tvgdb.dat", row.theirs},
                             {row.place + "tvgdb.bak", row.theirBackup},
                             {Process().DataPath + "tvgdb.bak", "old"}};
    if (row.own != "-") desktop.files.content[Process().DataPath + "Tvgdb.dat"] = row.own;
    desktop.boxes.answers = row.answers;
    Process().DeletedGames = {own};
    const bool changed = row.games != row.own;
    EXPECT_EQ(UseGamesOfFolder("/cd"), changed);
    EXPECT_EQ(Own("Tvgdb.dat"), row.games);
    EXPECT_EQ(Own("tvgdb.bak"), row.backup);
    EXPECT_EQ(Own(aside), row.kept);
    EXPECT_EQ(Process().DeletedGames.empty(), changed) << "an undo is for the games that were here";
    EXPECT_EQ(desktop.files.content[row.place + "Tvgdb.dat"], row.theirs);
    EXPECT_NE(desktop.boxes.messages.back().text.find(row.told), std::string::npos)
        << desktop.boxes.messages.back().text;
  }
}

TEST_F(OtherGamesTest, NoFailureCostsTheGamesThatWereThere) {
  for (int failing = 1; failing < 20; ++failing) {
    desktop.files.content = {{"/cd/Tvgdb.dat", Line(1)},
                             {Process().DataPath + "Tvgdb.dat", Line(5)},
                             {Process().DataPath + "tvgdb.bak", Line(6)}};
    desktop.boxes.answers = {true};
    desktop.files.FailOperation(failing);
    const bool changed = UseGamesOfFolder("/cd");
    EXPECT_EQ(Own("Tvgdb.dat"), Line(changed ? 1 : 5)) << failing;
    EXPECT_EQ(Own("Tvgdb.replaced-20260309-080500.dat"), changed ? Line(5) : "-") << failing;
    desktop.boxes.answers.clear();
  }
}

TEST_F(OtherGamesTest, WhatLiesBesideThemJoinsWhatIsHereOnce) {
  contacts::ContactsBook book([] { return std::vector<platform::Recipient>(); });
  platform::TheSeams().addressBook = &book;
  const auto card = [](const std::string& name) {
    return "BEGIN:VCARD\r\nFN:" + name + "\r\nEMAIL:" + name + "@here.org\r\nEND:VCARD\r\n";
  };
  desktop.files.content = {{"/cd/Tvgdb.dat", Line(1)},
                           {"/cd/contacts.vcf", card("Dora")},
                           {"/cd/Tvmail.dat", "founded|7\narrived|t|5\n"},
                           {Process().DataPath + "Tvmail.dat", "arrived|t|9\narrived|u|8\n"},
                           {Process().DataPath + "contacts.vcf", card("Anna")}};
  for (const bool isNew : {true, false}) {
    EXPECT_EQ(UseGamesOfFolder("/cd"), isNew);
    EXPECT_EQ(book.People().size(), 2u);
    EXPECT_EQ(Own("Tvmail.dat"), "founded|7\narrived|t|9\narrived|u|8\n");
  }
}

}  // namespace
}  // namespace shell
