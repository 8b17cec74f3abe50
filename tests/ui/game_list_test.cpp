// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLocale>
#include <QPointer>
#include <QRegularExpression>
#include <QToolTip>

#include "skin/layouts/game_interface_layout.h"
#include "skin_fixture.h"
#include "ui/games/game_interface.h"
#include "ui/games/game_list_grid.h"

namespace ui {
namespace {

/// The window with menus that note what is asked of them.
class GameInterfaceTest : public SkinTest {
 protected:
  GameInterfaceTest() { Process().Offline = false; }
  ~GameInterfaceTest() override { delete window_; }

  void Open(bool simple = true) {
    platform::Settings().SimpleUI = simple;
    GameListMenus menus;
    menus.popUp = [this](InterfaceMenu menu, QPoint) { asked_ += " menu" + std::to_string(menu); };
    menus.enableGameEntries = [this](bool any) { gameEntries_ = any; };
    menus.enableNewGames = [this](bool enabled) { newGames_ = enabled; };
    menus.checkSort = [this](int column, bool descending) {
      asked_ += " sort" + std::to_string(column) + (descending ? "D" : "A");
    };
    window_ = new GameInterface(menus);
    window_->show();
    asked_.clear();
  }
  std::string Asked() { return std::exchange(asked_, {}); }

  GameListGrid& Grid() { return *window_->findChild<GameListGrid*>(u"GameList"_s); }
  QString TextAt(int row, int column) {
    return Grid().model()->index(row, column).data().toString();
  }
  QString Opponents() {
    QStringList names;
    for (int row = 0; row < Grid().model()->rowCount(); ++row) names << TextAt(row, 2);
    return names.join(u' ');
  }
  QAbstractButton& Button(const QString& name) {
    return *window_->findChild<QAbstractButton*>(name);
  }
  void ClickHeading(int column, Qt::MouseButton button) {
    QHeaderView& heading = *Grid().horizontalHeader();
    QTest::mouseClick(heading.viewport(), button, {},
                      {heading.sectionViewportPosition(column) + 5, heading.height() / 2});
  }
  QPoint RowPlace(int row) { return Grid().visualRect(Grid().model()->index(row, 2)).center(); }

  static void Store(std::int32_t id, std::int16_t status, const std::string& opponent) {
    StoreGame(id, status, opponent, {{"5254", "e4"}});
  }
  static void StoreThree() {
    Store(1, store::WaitingForOpponent, "Carla");
    Store(2, store::MoveWaiting, "Zoé");
    Store(3, store::GameWon, "<i>Bob</i>");
  }

  QPointer<GameInterface> window_;
  std::string asked_;
  bool gameEntries_ = false, newGames_ = false;
};

TEST_F(GameInterfaceTest, TheGridShowsTheGamesAsTheyStand) {
  StoreThree();
  Open();
  const QString date = QLocale().toString(QDate(2026, 3, 9), QLocale::LongFormat);
  EXPECT_EQ(Opponents(), u"Zoé Carla <i>Bob</i>"_s);
  EXPECT_EQ(TextAt(0, 0), u"2"_s);
  EXPECT_EQ(TextAt(0, 3), u"Game <b>2</b>"_s);
  EXPECT_EQ(TextAt(0, 4), date);
  EXPECT_TRUE(Grid().isColumnHidden(0) && Grid().isColumnHidden(5));
  EXPECT_TRUE(gameEntries_ && newGames_);
  EXPECT_TRUE(Process().GameListOpen);
  EXPECT_EQ(window_->SelectedGame(), 2);
}

TEST_F(GameInterfaceTest, LeftSortsUpwardsAndRightDownwardsHoweverOften) {
  StoreThree();
  Open();
  const struct {
    int column;
    Qt::MouseButton button;
    const char* sorted;
    QString opponents;
  } clicks[] = {
      {2, Qt::LeftButton, " sort2A", u"<i>Bob</i> Carla Zoé"_s},
      {2, Qt::LeftButton, " sort2A", u"<i>Bob</i> Carla Zoé"_s},
      {2, Qt::RightButton, " sort2D", u"Zoé Carla <i>Bob</i>"_s},
      {1, Qt::RightButton, " sort1D", u"<i>Bob</i> Carla Zoé"_s},
  };
  for (const auto& click : clicks) {
    ClickHeading(click.column, click.button);
    EXPECT_EQ(Asked(), click.sorted);
    EXPECT_EQ(Opponents(), click.opponents);
    EXPECT_EQ(Grid().horizontalHeader()->sortIndicatorSection(), click.column);
    EXPECT_EQ(window_->SelectedGame(), Grid().SelectedGame()->GAME_ID);
    EXPECT_EQ(Grid().currentIndex().row(), 0);
  }
}

TEST_F(GameInterfaceTest, TheDateTakesTheRestBesideTheScrollBarOfALongList) {
  for (int id = 1; id <= 7; ++id) Store(id, store::MoveWaiting, "Anna");
  Open(false);
  const auto widths = [&] {
    std::vector<int> all;
    for (int column = 1; column <= 4; ++column) all.push_back(Grid().columnWidth(column));
    return all;
  };
  const int rest = layouts::RectOf(layouts::gameInterface, "GameList").width - 30 - 164 - 226;
  EXPECT_EQ(widths(), (std::vector{30, 164, 226, rest}));
  Store(8, store::MoveWaiting, "Anna");
  window_->Refill();
  EXPECT_EQ(widths(), (std::vector{30, 164, 226, rest - 15}));
}

TEST_F(GameInterfaceTest, AnEmptyListSaysHowToBeginAndADamagedOneThatItIs) {
  Open();
  const auto* notice = window_->findChild<QLabel*>(u"Notice"_s);
  EXPECT_TRUE(notice->isVisible());
  EXPECT_TRUE(notice->text().startsWith(u"There are no games yet."_s));
  EXPECT_FALSE(gameEntries_ || Button(u"Toolbar1S_1"_s).isEnabled());
  EXPECT_FALSE(window_->SelectedGame());
  QTest::keyClick(&Grid(), Qt::Key_Delete);
  QTest::keyClick(&Grid(), Qt::Key_Return);
  EXPECT_TRUE(desktop_.boxes.messages.empty());
  desktop_.files.content["/program/Data/Tvgdb.dat"] = "no game\r\n";
  window_->Refill();
  EXPECT_TRUE(notice->text().contains(u"can't be read"_s));
  desktop_.files.content.clear();
  Store(1, store::MoveWaiting, "Anna");
  window_->Refill();
  EXPECT_FALSE(notice->isVisible());
}

TEST_F(GameInterfaceTest, ToolbarButtonsFollowTheConnectionAndBegin) {
  Store(4, store::MoveWaiting, "Anna");
  Process().Offline = true;
  Open(false);
  for (const bool standAlone : {false, true}) {
    Process().StandAlone = standAlone;
    window_->Refill();
    EXPECT_EQ(Button(u"Toolbar1_2"_s).isEnabled(), standAlone);
    EXPECT_EQ(Button(u"Toolbar1_4"_s).isEnabled(), standAlone);
    EXPECT_EQ(newGames_, standAlone);
    EXPECT_TRUE(Button(u"Toolbar1_3"_s).isEnabled()) << "the computer needs no mail";
  }
  desktop_.windows.refusing = {"graphics", "ask new game"};
  Process().SetupGame = Process().ComputerGame = true;
  Process().BoardFromGameList = false;
  desktop_.log.clear();
  QTest::mouseClick(&Button(u"Toolbar1_2"_s), Qt::LeftButton);
  EXPECT_TRUE(Process().BoardFromGameList);
  EXPECT_FALSE(Process().SetupGame || Process().ComputerGame);
  EXPECT_EQ(desktop_.log, std::vector<std::string>{"graphics"});
  QTest::mouseClick(&Button(u"Toolbar1_4"_s), Qt::LeftButton);
  EXPECT_TRUE(Process().SetupGame && !Process().ComputerGame);
  QTest::mouseClick(&Button(u"Toolbar1_3"_s), Qt::LeftButton);
  EXPECT_TRUE(Process().SetupGame && Process().ComputerGame);
  EXPECT_EQ(desktop_.log.size(), 3U);
  EXPECT_TRUE(Grid().hasFocus() || !window_->isActiveWindow());
}

TEST_F(GameInterfaceTest, KeysAndMouseOnAGamePlayDeleteAndPopUp) {
  StoreThree();
  Open();
  desktop_.windows.refusing = {"graphics"};
  const auto played = [&] {
    const bool asked = std::count(desktop_.log.begin(), desktop_.log.end(), "graphics") == 1;
    desktop_.log.clear();
    return asked;
  };
  QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, RowPlace(1));
  QTest::mouseDClick(Grid().viewport(), Qt::LeftButton, {}, RowPlace(1));
  EXPECT_TRUE(played());
  QTest::keyClick(&Grid(), Qt::Key_Return);
  EXPECT_TRUE(played());
  EXPECT_EQ(Asked(), "");
  const QPoint below(50, Grid().viewport()->height() - 2);
  for (const auto& [place, asked] : {std::pair{RowPlace(1), " menu4"}, std::pair{below, ""}}) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, Grid().viewport()->mapToGlobal(place));
    QApplication::sendEvent(Grid().viewport(), &event);
    EXPECT_EQ(Asked(), asked);
  }

  window_->Refill(1);
  desktop_.boxes.answers = {false, true};
  QTest::keyClick(&Grid(), Qt::Key_Delete);
  EXPECT_EQ(desktop_.LastMessage().second,
            "Are you sure you wish to delete the game titled Game <b>1</b>?");
  EXPECT_EQ(Grid().model()->rowCount(), 3);
  QTest::keyClick(&Grid(), Qt::Key_Backspace);
  EXPECT_EQ(Opponents(), u"Zoé <i>Bob</i>"_s);
}

TEST_F(GameInterfaceTest, ACutTextShowsWholeWhereItIsPointedAt) {
  Store(1, store::MoveWaiting,
        "Maximilian <i>von</i> zu Hohenstein\u202E\t" + std::string(5000, 'W'));
  Store(2, store::WaitingForOpponent, "Eva");
  Open();
  EXPECT_TRUE(TextAt(0, 2).contains(u"Hohenstein� WWW"_s));
  const auto tipOf = [this](int row) {
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, RowPlace(row), Grid().viewport()->mapToGlobal(RowPlace(row)));
    QApplication::sendEvent(Grid().viewport(), &event);
    return QToolTip::text();
  };
  EXPECT_TRUE(tipOf(0).contains(QRegularExpression(u"&lt;i&gt;von&lt;/i&gt;.*WWW"_s)));
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    EXPECT_LT(window->width(), 1000) << window->metaObject()->className();
  }
  EXPECT_EQ(tipOf(1), Grid().toolTip());
  platform::Settings().ShowToolTips = false;
  window_->SetToolTips();
  EXPECT_FALSE(tipOf(0).contains(u"von"_s));
}

TEST_F(GameInterfaceTest, MenuButtonsPopUpTheirMenusOnThePressInBothLooks) {
  for (const bool simple : {true, false}) {
    Open(simple);
    const char* names[] = {"File", "Sort", "Game", "Help"};
    for (int menu = 0; menu < 4; ++menu) {
      const QString name =
          QLatin1StringView(names[menu]) + (simple ? u"Menu_L"_s : u"MenuButton"_s);
      QTest::mousePress(&Button(name), Qt::LeftButton);
      EXPECT_EQ(Asked(), " menu" + std::to_string(menu));
      QTest::mouseRelease(&Button(name), Qt::LeftButton);
    }
    delete window_;
  }
}

TEST_F(GameInterfaceTest, RetrievingKeepsTheSelectionAndLetsNobodyCloseTheWindow) {
  StoreThree();
  Open();
  window_->Refill(3);
  std::vector<bool> closed;
  platform::TheDesktop().hooks.busyPointer = [&](bool busy) {
    if (busy) closed.push_back(window_->close());
  };
  const std::string whole =
      "<<TARVOLENIX:0|5|100320261200|New one|10/03/2026|Dora||False||1|4244|d4|:TARVOLENIX>>";
  desktop_.mail.inbox = {{"Tarvolenix : d4", whole, "Dora", "dora@example.org", true}};
  window_->GetGames(false);
  EXPECT_EQ(closed, std::vector<bool>{false});
  EXPECT_EQ(Grid().model()->rowCount(), 4);
  EXPECT_EQ(window_->SelectedGame(), 3);
  EXPECT_TRUE(window_->isEnabled());
}

TEST_F(GameInterfaceTest, TipsHelpAndClosing) {
  Open(false);
  EXPECT_EQ(Button(u"Toolbar1_3"_s).toolTip(),
            u"NEW COMPUTER GAME - Start a new game against the computer"_s);
  EXPECT_EQ(Grid().toolTip(), u"All the chess games held in the database"_s);
  platform::Settings().ShowToolTips = false;
  window_->SetToolTips();
  EXPECT_EQ(Grid().toolTip(), QString());
  desktop_.log.clear();
  QTest::keyClick(window_, Qt::Key_F1);
  Button(u"HelpButton"_s).click();
  EXPECT_EQ(desktop_.log, (std::vector<std::string>{"help 3", "help 3"}));
  QTest::keyClick(window_, Qt::Key_Escape);
  EXPECT_TRUE(window_->isMinimized());
  Button(u"HideButton"_s).click();
  EXPECT_FALSE(Process().GameListOpen);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window_.isNull());
}

TEST_F(GameInterfaceTest, AFailedSkinLeavesTheProgramAlone) {
  QFile::remove(PathOf("Interface.jpg"));
  Open(false);
  EXPECT_FALSE(window_->IsOpen());
  EXPECT_FALSE(Process().GameListOpen);
}

}  // namespace
}  // namespace ui
