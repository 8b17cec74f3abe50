// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/game_windows.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>

#include "platform/registry.h"
#include "store/queries.h"
#include "ui_fixture.h"

namespace ui {
namespace {

using namespace Qt::StringLiterals;
using platform::Process;

void Store(std::int32_t id, std::int16_t status, const std::string& opponent,
           const std::string& date = "09/03/2026") {
  store::GameRecord game;
  game.GAME_ID = id;
  game.GAME_DATESTAMP = "090320260805";
  game.GAME_NAME = "Game <b>" + std::to_string(id) + "</b>";
  game.GAME_OPPONENTS_NAME = opponent;
  game.GAME_DATE = date;
  game.GAME_HOST = true;
  game.GAME_STATUS = status;
  ASSERT_TRUE(store::SaveGame(game, {{1, "5254", "e4", ""}, {2, "5755", "e5", ""}}));
}

class GameWindowsTest : public testing::Test {
 protected:
  GameWindowsTest() {
    Process().Offline = false;
    Process().ProgramFolder = folder_.path().toStdString() + "/";
    QDir(folder_.path()).mkpath(u"Graphics/Classic Wood"_s);
    const QString set = folder_.path() + u"/Graphics/Classic Wood/"_s;
    const ChessGraphics graphics = ColouredGraphics();
    for (const QString& side : {u"White"_s, u"Black"_s}) {
      for (const QString& kind :
           {u"Rook"_s, u"Knight"_s, u"Bishop"_s, u"Queen"_s, u"King"_s, u"Pawn"_s}) {
        EXPECT_TRUE(graphics.IconSet[0].save(set + side + kind + u".ico"_s));
      }
    }
    EXPECT_TRUE(graphics.ChessSet.save(set + u"Plain.jpg"_s));
  }

  GamesWindow& List() { return *windows_.GameList(); }
  QTableWidget& Table() { return *List().findChild<QTableWidget*>(u"GameList"_s); }
  QStringList Row(int row) {
    QStringList texts;
    for (int column = 0; column < Table().columnCount(); ++column) {
      texts += Table().item(row, column)->text();
    }
    return texts;
  }

  fakes::FakeDesktop desktop_;
  QTemporaryDir folder_;
  GameWindows windows_;
};

TEST_F(GameWindowsTest, TheListShowsWaitingGamesFirstAndBold) {
  Store(1, store::WaitingForOpponent, "Anna");
  Store(2, store::MoveWaiting, "Zoé");
  Store(3, store::GameWon, "<i>Bob</i>", "yesterday");
  Store(4, store::MoveWaiting, "Carla");
  Store(5, store::GameWon, "<i>Bob</i>");  // no date decides here: theirs can't be compared
  windows_.ShowGameList();
  ASSERT_EQ(Table().rowCount(), 5);
  EXPECT_EQ(List().windowTitle(), u"Tarvolenix - Game list"_s);
  const QString date = QLocale().toString(QDate(2026, 3, 9), QLocale::LongFormat);
  EXPECT_EQ(Row(0), (QStringList{u"Carla"_s, u"Game <b>4</b>"_s, date, u"Your move"_s}));
  EXPECT_EQ(Row(1), (QStringList{u"Zoé"_s, u"Game <b>2</b>"_s, date, u"Your move"_s}));
  EXPECT_EQ(Row(2), (QStringList{u"Anna"_s, u"Game <b>1</b>"_s, date, u"Waiting for opponent"_s}));
  EXPECT_EQ(Row(3), (QStringList{u"<i>Bob</i>"_s, u"Game <b>3</b>"_s, u"yesterday"_s, u"Won"_s}));
  EXPECT_TRUE(Table().item(0, 0)->font().bold() && !Table().item(2, 0)->font().bold());
  EXPECT_EQ(List().SelectedGame(), 4);
  Process().PendingGames = "2;1;";
  List().Fill();
  EXPECT_EQ(List().SelectedGame(), 2) << "the first that has just arrived";
  List().Fill(1);
  EXPECT_EQ(List().SelectedGame(), 1);
  QTest::keyClick(&Table(), Qt::Key_End);
  EXPECT_EQ(List().SelectedGame(), 5);
  QTest::keyClick(&Table(), Qt::Key_Home);
  EXPECT_EQ(List().SelectedGame(), 4);
}

TEST_F(GameWindowsTest, WithoutGamesTheListTellsWhatToDo) {
  platform::WriteRegistry(platform::mailSection, "MyAddress", "anna@example.org");
  Process().Offline = true;
  windows_.Begin();
  const auto* notice = List().findChild<QLabel*>(u"Notice"_s);
  EXPECT_TRUE(notice->isVisible());
  EXPECT_TRUE(notice->text().contains(u"anna@example.org"_s));
  EXPECT_TRUE(notice->text().contains(folder_.path() + u"/tarvolenix-cli\" new"_s));
  EXPECT_FALSE(List().findChild<QPushButton*>(u"OpenButton"_s)->isEnabled());
  EXPECT_EQ(List().windowTitle(), u"Tarvolenix - Game list (offline)"_s);

  desktop_.files.content["/program/Data/Tvgdb.dat"] = "no game\r\n";
  List().Fill();
  EXPECT_TRUE(notice->text().contains(u"can't be read"_s));
  EXPECT_TRUE(desktop_.boxes.messages.empty());
}

TEST_F(GameWindowsTest, TheBoardTakesThePlaceOfTheListAndGivesItBack) {
  Store(1, store::MoveWaiting, "Anna");
  Store(2, store::WaitingForOpponent, "Bob");
  windows_.ShowGameList();
  List().resize(400, 300);
  List().move(300, 450);
  QTest::keyClick(&Table(), Qt::Key_Down);
  QTest::keyClick(&Table(), Qt::Key_Return);
  ASSERT_NE(windows_.OpenBoard(), nullptr);
  EXPECT_TRUE(windows_.OpenBoard()->isVisible() && !List().isVisible());
  EXPECT_EQ(Process().CurrentGameID, 2);
  EXPECT_TRUE(Process().BoardOpen && Process().BoardFromGameList && Process().CheckTimerHeld);
  EXPECT_FALSE(Process().CheckTimer.Enabled);
  windows_.OpenGame(1);
  EXPECT_EQ(Process().CurrentGameID, 2) << "one board at a time";

  const QRect place = windows_.OpenBoard()->frameGeometry();
  EXPECT_EQ(place.bottomRight(), List().screen()->availableGeometry().bottomRight())
      << "as near as the screen allows";
  windows_.OpenBoard()->close();
  EXPECT_TRUE(List().isVisible());
  EXPECT_EQ(List().frameGeometry().center(), place.center());
  EXPECT_EQ(List().SelectedGame(), 2);
  EXPECT_TRUE(Process().CheckTimer.Enabled && !Process().CheckTimerHeld && !Process().BoardOpen);
}

TEST_F(GameWindowsTest, AProgramWithAWaitingGameBeginsOnTheBoard) {
  Store(1, store::MoveWaiting, "Zoé");
  Store(2, store::MoveWaiting, "Anna");
  windows_.Begin();
  ASSERT_NE(windows_.OpenBoard(), nullptr);
  EXPECT_EQ(Process().CurrentGameID, 2);
  EXPECT_EQ(windows_.GameList(), nullptr);
  Process().PendingGames = "2;1;";
  windows_.OpenBoard()->close();
  ASSERT_NE(windows_.GameList(), nullptr);
  EXPECT_TRUE(List().isVisible());
  EXPECT_EQ(Process().PendingGames, "");
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
  auto* retrieve = List().findChild<QPushButton*>(u"RetrieveButton"_s);
  QTest::keyClick(retrieve, Qt::Key_Return);
  EXPECT_TRUE(desktop_.boxes.messages.empty());
  EXPECT_FALSE(platform::GetLogonStatus());
  EXPECT_EQ(desktop_.boxes.statusTexts,
            (std::vector<std::string>{"Logging on...", "", "Retrieving games...", ""}));
  EXPECT_EQ(Table().rowCount(), 3) << "a mail that was read before counts too";
  EXPECT_EQ(List().SelectedGame(), 3) << "not what came with an earlier one";
  EXPECT_EQ(enabled, std::vector<bool>{false}) << "while the program waits";
  EXPECT_TRUE(List().isEnabled());
  EXPECT_EQ(windows_.OpenBoard(), nullptr);
  EXPECT_FALSE(Process().CheckTimerHeld);

  desktop_.mail.inbox.clear();
  List().Fill(2);
  retrieve->click();
  EXPECT_EQ(List().SelectedGame(), 2) << "nothing came, so it stays";
}

TEST_F(GameWindowsTest, ClosingTheListEndsTheProgram) {
  int finished = 0;
  QObject::connect(&windows_, &GameWindows::Finished, &windows_, [&] { ++finished; });
  windows_.ShowGameList();
  QTest::keyClick(&List(), Qt::Key_Escape);
  EXPECT_TRUE(List().isMinimized());
  List().setEnabled(false);
  List().close();
  EXPECT_EQ(finished, 0) << "not while the program waits for the mail";
  List().setEnabled(true);
  List().close();
  EXPECT_EQ(finished, 1);
}

}  // namespace
}  // namespace ui
