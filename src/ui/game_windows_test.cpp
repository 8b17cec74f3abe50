// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/game_windows.h"

#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>

#include "platform/registry.h"
#include "ui_fixture.h"

namespace ui {
namespace {

using namespace Qt::StringLiterals;
using platform::Process;

class GameWindowsTest : public testing::Test {
 protected:
  GameWindowsTest() {
    platform::Settings().SimpleUI = true;
    Process().Offline = false;
    Process().ProgramFolder = folder_.path().toStdString() + "/";
    SaveChessSet(folder_.path() + u"/Graphics/Classic Wood"_s);
  }

  static void Store(std::int32_t id, std::int16_t status, const std::string& opponent) {
    StoreGame(id, status, opponent, {{"5254", "e4"}, {"5755", "e5"}});
  }
  GamesWindow& List() { return *windows_.GameList(); }
  QTableWidget& Table() { return *List().findChild<QTableWidget*>(u"GameList"_s); }

  fakes::FakeDesktop desktop_;
  QTemporaryDir folder_;
  GameWindows windows_;
};

TEST_F(GameWindowsTest, TheListShowsWaitingGamesFirst) {
  Store(1, store::WaitingForOpponent, "Anna");
  Store(2, store::MoveWaiting, "Zoé");
  Store(3, store::GameWon, "<i>Bob</i>");
  Store(4, store::MoveWaiting, "Carla");
  windows_.ShowGameList();
  ASSERT_EQ(Table().rowCount(), 4);
  const QString date = QLocale().toString(QDate(2026, 3, 9), QLocale::LongFormat);
  const QStringList rows[] = {{u"Carla"_s, u"Game <b>4</b>"_s, date, u"Your move"_s},
                              {u"Zoé"_s, u"Game <b>2</b>"_s, date, u"Your move"_s},
                              {u"Anna"_s, u"Game <b>1</b>"_s, date, u"Waiting for opponent"_s},
                              {u"<i>Bob</i>"_s, u"Game <b>3</b>"_s, date, u"Won"_s}};
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) {
      EXPECT_EQ(Table().item(row, column)->text(), rows[row][column]);
    }
  }
  EXPECT_EQ(List().SelectedGame(), 4);
  Process().PendingGames = "2;1;";
  List().Fill();
  EXPECT_EQ(List().SelectedGame(), 2) << "the first that has just arrived";
  List().Fill(1);
  EXPECT_EQ(List().SelectedGame(), 1);
}

TEST_F(GameWindowsTest, AnEmptyListTellsWhetherItsGamesCannotBeRead) {
  windows_.Begin();
  const auto* notice = List().findChild<QLabel*>(u"Notice"_s);
  EXPECT_TRUE(notice->isVisible());
  EXPECT_FALSE(notice->text().contains(u"can't be read"_s));
  EXPECT_FALSE(List().findChild<QPushButton*>(u"OpenButton"_s)->isEnabled());
  desktop_.files.content["/program/Data/Tvgdb.dat"] = "no game\r\n";
  List().Fill();
  EXPECT_TRUE(notice->text().contains(u"can't be read"_s));
}

TEST_F(GameWindowsTest, TheBoardTakesThePlaceOfTheListAndGivesItBack) {
  Store(1, store::MoveWaiting, "Anna");
  Store(2, store::WaitingForOpponent, "Bob");
  windows_.ShowGameList();
  QTest::keyClick(&Table(), Qt::Key_Down);
  QTest::keyClick(&Table(), Qt::Key_Return);
  ASSERT_NE(windows_.OpenBoard(), nullptr);
  EXPECT_TRUE(windows_.OpenBoard()->isVisible() && !List().isVisible());
  EXPECT_TRUE(Process().BoardOpen && Process().BoardFromGameList && Process().CheckTimerHeld);
  EXPECT_FALSE(Process().CheckTimer.Enabled);
  windows_.OpenGame(1);
  EXPECT_EQ(Process().CurrentGameID, 2) << "one board at a time";
  windows_.OpenBoard()->close();
  EXPECT_TRUE(List().isVisible());
  EXPECT_EQ(List().SelectedGame(), 2);
  EXPECT_TRUE(Process().CheckTimer.Enabled && !Process().CheckTimerHeld && !Process().BoardOpen);
}

TEST_F(GameWindowsTest, WithoutItsChessSetNoGameOpens) {
  Store(1, store::MoveWaiting, "Zoé");
  QFile::remove(folder_.path() + u"/Graphics/Classic Wood/WhitePawn.ico"_s);
  windows_.Begin();
  EXPECT_EQ(desktop_.LastMessage().first, "Graphics error.");
  EXPECT_EQ(windows_.OpenBoard(), nullptr);
  EXPECT_TRUE(List().isVisible());
  EXPECT_FALSE(Process().CheckTimerHeld);
}

TEST_F(GameWindowsTest, RetrievingOverridesTheGuardSelectsWhatCameAndOpensNothing) {
  Store(1, store::MoveWaiting, "Anna");
  Store(2, store::WaitingForOpponent, "Bob");
  windows_.ShowGameList();
  Table().setCurrentCell(1, 0);
  platform::SetLogonStatus(true);
  const std::string whole =
      "<<TARVOLENIX:0|5|100320261200|New one|10/03/2026|Dora||False||1|4244|d4|:TARVOLENIX>>";
  desktop_.mail.inbox = {{"Tarvolenix : d4", whole, "Dora", "dora@example.org", true}};
  std::vector<bool> enabled;
  platform::TheDesktop().hooks.busyPointer = [&](bool busy) {
    if (busy) enabled.push_back(List().isEnabled());
  };
  Process().PendingGames = "1;";
  List().findChild<QPushButton*>(u"RetrieveButton"_s)->click();
  EXPECT_TRUE(desktop_.boxes.messages.empty());
  EXPECT_FALSE(platform::GetLogonStatus());
  EXPECT_EQ(desktop_.boxes.statusTexts,
            (std::vector<std::string>{"Logging on...", "", "Retrieving games...", ""}));
  EXPECT_EQ(Table().rowCount(), 3) << "a mail that was read before counts too";
  EXPECT_EQ(List().SelectedGame(), 3) << "not what came with an earlier one";
  EXPECT_EQ(enabled, std::vector<bool>{false}) << "while the program waits";
  EXPECT_TRUE(List().isEnabled());
  EXPECT_EQ(windows_.OpenBoard(), nullptr);
}

TEST_F(GameWindowsTest, ClosingTheListEndsTheProgram) {
  int finished = 0;
  QObject::connect(&windows_, &GameWindows::Finished, &windows_, [&] { ++finished; });
  windows_.ShowGameList();
  List().setEnabled(false);
  List().close();
  EXPECT_EQ(finished, 0) << "not while the program waits for the mail";
  List().setEnabled(true);
  List().close();
  EXPECT_EQ(finished, 1);
}

}  // namespace
}  // namespace ui
