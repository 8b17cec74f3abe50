// SPDX-License-Identifier: GPL-3.0-or-later
#include <QHeaderView>
#include <QHelpEvent>
#include <QLocale>
#include <QPlainTextEdit>
#include <QPointer>
#include <QRegularExpression>

#include "fakes/temporary_folder.h"
#include "ui/games/game_interface.h"
#include "ui/games/game_list_columns.h"
#include "ui/games/game_list_grid.h"
#include "ui/skin_fixture.h"

namespace ui {
namespace {

class GameInterfaceTest : public SkinTest {
 protected:
  GameInterfaceTest() { Process().Offline = false; }
  ~GameInterfaceTest() override { delete window_; }

  void Open(bool simple = true) {
    platform::Settings().SimpleUI = simple;
    const auto popUp = [this](std::unique_ptr<QMenu> menu, QPoint) {
      menuUp_ = menu->objectName().toStdString();
      Q_EMIT menu->aboutToHide();
    };
    window_ =
        new GameInterface({popUp, [] {}, [] {}, [] {}, {}, [] { return std::vector<MenuRow>{}; }});
    window_->show();
  }
  std::string MenuUp() { return std::exchange(menuUp_, {}); }

  GameListGrid& Grid() { return Find<GameListGrid>(*window_, "GameList"); }
  QString TextAt(int row, int column) {
    return Grid().model()->index(row, column).data().toString();
  }
  QString Opponents() {
    QStringList names;
    for (int row = 0; row < Grid().model()->rowCount(); ++row) names << TextAt(row, 2);
    return names.join(u' ');
  }
  bool Can(const char* button) { return ui::Can(*window_, button); }
  void Press(const char* button) { ui::Press(*window_, button); }
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
  std::string menuUp_;
};

TEST_F(GameInterfaceTest, TheGridShowsTheGamesAsTheyStand) {
  StoreThree();
  Open();
  EXPECT_EQ(Opponents(), u"Zoé Carla <i>Bob</i>"_s);
  EXPECT_EQ(TextAt(0, 3), u"Game <b>2</b>"_s);
  for (const auto& [width, format] :
       {std::pair{2000, QLocale::LongFormat}, std::pair{500, QLocale::ShortFormat}}) {
    Grid().resize(width, 200);
    EXPECT_EQ(TextAt(0, 4), QLocale().toString(QDate(2026, 3, 9), format));
  }
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
      {2, Qt::LeftButton, "2", u"<i>Bob</i> Carla Zoé"_s},
      {2, Qt::LeftButton, "2", u"<i>Bob</i> Carla Zoé"_s},
      {1, Qt::RightButton, "1DESC", u"<i>Bob</i> Carla Zoé"_s},
  };
  for (const auto& click : clicks) {
    ClickHeading(click.column, click.button);
    EXPECT_EQ(std::to_string(Process().GameListSortColumn) + Process().GameListSortOrder,
              click.sorted);
    EXPECT_EQ(Opponents(), click.opponents);
    EXPECT_EQ(Grid().horizontalHeader()->sortIndicatorSection(), click.column);
    EXPECT_EQ(window_->SelectedGame(), Grid().SelectedGame()->GAME_ID);
  }
}

TEST_F(GameInterfaceTest, AnEmptyListSaysHowToBeginAndADamagedOneThatItIs) {
  Open();
  const auto& notice = Find<QLabel>(*window_, "Notice");
  EXPECT_TRUE(notice.text().startsWith(u"There are no games yet."_s));
  EXPECT_FALSE(Can("Toolbar1_1"));
  EXPECT_FALSE(window_->SelectedGame());
  QTest::keyClick(&Grid(), Qt::Key_Delete);
  QTest::keyClick(&Grid(), Qt::Key_Return);
  EXPECT_TRUE(desktop_.boxes.messages.empty());
  desktop_.files.content["/program/Data/Tvgdb.dat"] = "no game\r\n";
  window_->Refill();
  EXPECT_TRUE(notice.text().contains(u"can't be read"_s));
  desktop_.files.content.clear();
  Store(1, store::MoveWaiting, "Anna");
  window_->Refill();
  EXPECT_FALSE(notice.isVisible());
}

TEST_F(GameInterfaceTest, ToolbarButtonsFollowTheConnectionAndBegin) {
  Store(4, store::MoveWaiting, "Anna");
  Process().Offline = true;
  Open(false);
  for (const bool standAlone : {false, true}) {
    Process().StandAlone = standAlone;
    window_->Refill();
    EXPECT_EQ(Can("Toolbar1_2"), standAlone);
    EXPECT_EQ(Can("Toolbar1_4"), standAlone);
    EXPECT_TRUE(Can("Toolbar1_3")) << "the computer needs no mail";
    EXPECT_EQ(Find(*window_, "Toolbar1_2").toolTip().contains(u"mail account"_s), !standAlone);
    EXPECT_EQ(Find(*window_, "NoticeAccount").isHidden(), standAlone);
  }
  desktop_.windows.refusing = {"graphics", "ask new game"};
  Process().SetupGame = Process().ComputerGame = true;
  Process().BoardFromGameList = false;
  desktop_.log.clear();
  Press("Toolbar1_2");
  EXPECT_TRUE(Process().BoardFromGameList);
  EXPECT_FALSE(Process().SetupGame || Process().ComputerGame);
  Press("Toolbar1_4");
  EXPECT_TRUE(Process().SetupGame && !Process().ComputerGame);
  Press("Toolbar1_3");
  EXPECT_TRUE(Process().SetupGame && Process().ComputerGame);
  EXPECT_EQ(desktop_.log, (fakes::EventLog{"graphics", "graphics", "graphics"}));
}

TEST_F(GameInterfaceTest, KeysAndMouseOnAGamePlayDeleteAndPopUp) {
  StoreThree();
  Open();
  desktop_.windows.refusing = {"graphics"};
  QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, RowPlace(1));
  QTest::mouseDClick(Grid().viewport(), Qt::LeftButton, {}, RowPlace(1));
  QTest::keyClick(&Grid(), Qt::Key_Return);
  EXPECT_EQ(std::count(desktop_.log.begin(), desktop_.log.end(), "graphics"), 2);
  const QPoint below(50, Grid().viewport()->height() - 2);
  for (const auto& [place, asked] :
       {std::pair{RowPlace(1), "mnuIntGameListPopupMenu"}, std::pair{below, ""}}) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, Grid().viewport()->mapToGlobal(place));
    QApplication::sendEvent(Grid().viewport(), &event);
    EXPECT_EQ(MenuUp(), asked);
  }

  window_->Refill(1);
  desktop_.boxes.answers = {false, true};
  QTest::keyClick(&Grid(), Qt::Key_Delete);
  EXPECT_EQ(desktop_.LastMessage().second,
            "Are you sure you wish to delete the game titled Game <b>1</b>?");
  EXPECT_EQ(Grid().model()->rowCount(), 3);
  QTest::keyClick(&Grid(), Qt::Key_Backspace);
  EXPECT_EQ(Opponents(), u"Zoé <i>Bob</i>"_s);
  for (const auto key : {Qt::Key_2, Qt::Key_8, Qt::Key_Z}) {
    QTest::keyClick(&Grid(), key, Qt::ControlModifier);
  }
  EXPECT_EQ(Opponents(), u"Zoé Carla <i>Bob</i>"_s) << "sorted the other way, and undeleted";
}

TEST_F(GameInterfaceTest, ColumnsHideAndTheLastOneTakesTheRest) {
  StoreThree();
  Open();
  EXPECT_EQ(TextAt(0, shell::LastMoveColumn), u"1. e4"_s);
  const auto last = [this] {
    const QHeaderView& heading = *Grid().horizontalHeader();
    return heading.logicalIndexAt(heading.viewport()->width() - 3);
  };
  for (const auto& [hidden, lastColumn] :
       {std::pair("", shell::DateColumn), std::pair("Date;", shell::SinceColumn),
        std::pair("Opponent;LastMove;Since;Date;", shell::TitleColumn),
        std::pair("Undate;Date", shell::DateColumn)}) {
    platform::Settings().HiddenColumns = hidden;
    window_->ShowColumns();
    EXPECT_EQ(last(), lastColumn) << hidden;
  }
  platform::Settings().HiddenColumns.clear();
  window_->resize(window_->minimumSize());
  window_->ShowColumns();
  EXPECT_EQ(last(), shell::DateColumn) << "in a small window";
  EXPECT_GE(Grid().columnWidth(shell::DateColumn), 60);
  platform::Settings().HiddenColumns = "Opponent;";
  const std::vector<MenuRow> rows = ColumnRows([this] { window_->ShowColumns(); });
  rows[0].action();
  rows[2].action();
  EXPECT_EQ(platform::Settings().HiddenColumns, "LastMove;");
  EXPECT_TRUE(Grid().isColumnHidden(shell::LastMoveColumn));
  EXPECT_FALSE(Grid().isColumnHidden(shell::OpponentColumn));
}

TEST_F(GameInterfaceTest, TheBoardOfAGameComesWhereItIsPointedAtAndGoesWithAnyKeyOrClick) {
  StoreThree();
  SaveChessSet(folder_.path() + u"/Graphics/Classic Wood"_s);
  Open();
  BringUp(*window_);
  const auto board = [] {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == u"GamePreview"_s && window->isVisible()) return window;
    }
    return static_cast<QWidget*>(nullptr);
  };
  QWidget& games = *Grid().viewport();
  const Action ends[] = {[](QWidget& list) { QTest::keyClick(&list, Qt::Key_Shift); },
                         [](QWidget& list) {
                           QTest::mouseClick(&list, Qt::LeftButton, {}, {5, 5});
                         },
                         [](QWidget& list) {
                           QEvent leave(QEvent::Leave);
                           QApplication::sendEvent(&list, &leave);
                         }};
  int row = 0;
  for (const Action& end : ends) {
    QTest::mouseMove(&games, RowPlace(row++));
    EXPECT_TRUE(QTest::qWaitFor([&] { return board() != nullptr; }));
    EXPECT_TRUE(window_->isActiveWindow());
    end(games);
    EXPECT_FALSE(board());
  }
}

TEST_F(GameInterfaceTest, ACutTextShowsWholeWhereItIsPointedAt) {
  Store(1, store::MoveWaiting,
        "Maximilian <i>von</i> zu Hohenstein\u202E\t" + std::string(5000, 'W'));
  Open();
  EXPECT_TRUE(TextAt(0, 2).contains(u"Hohenstein� WWW"_s));
  QHelpEvent event(QEvent::ToolTip, RowPlace(0), Grid().viewport()->mapToGlobal(RowPlace(0)));
  QApplication::sendEvent(Grid().viewport(), &event);
  ASSERT_NE(ShownTip(), nullptr);
  EXPECT_TRUE(ShownTip()->text().contains(QRegularExpression(u"&lt;i&gt;von&lt;/i&gt;.*WWW"_s)));
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    EXPECT_LT(window->width(), 1000) << window->metaObject()->className();
  }
}

TEST_F(GameInterfaceTest, MenuButtonsPopUpTheirMenusOnThePressInBothLooks) {
  for (const bool simple : {true, false}) {
    Open(simple);
    for (const char* name : {"File", "Sort", "Game", "Help"}) {
      const std::string button = name + std::string(simple ? "Menu_L" : "MenuButton");
      QTest::mousePress(&Find(*window_, button.c_str()), Qt::LeftButton);
      EXPECT_EQ(MenuUp(), std::string("mnuInt") + name + "Menu");
      EXPECT_EQ(window_->focusWidget(), &Grid()) << "the keys are the games' again";
    }
    delete window_;
  }
}

TEST_F(GameInterfaceTest, RetrievingKeepsTheSelectionAndLetsNobodyCloseTheWindow) {
  StoreThree();
  Open();
  window_->Refill(3);
  std::vector<bool> closed;
  platform::TheSeams().hooks.busyPointer = [&](bool busy) {
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

TEST_F(GameInterfaceTest, GamesAreSavedWithTheirAddressesOnlyForWhoWantsThat) {
  StoreThree();
  Open();
  const std::string path = QDir::tempPath().toStdString() + "/three.pgn";
  for (const bool leaveOut : {true, false}) {
    BringUp(*window_);
    desktop_.boxes.answers = {leaveOut};
    OnNextDialog([&](QWidget& dialog) {
      Find<QLineEdit>(dialog, "fileNameEdit").setText(QString::fromStdString(path));
      QMetaObject::invokeMethod(&dialog, "accept");
    });
    QTest::keyClick(window_, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    const std::string text = desktop_.files.content[path];
    EXPECT_NE(text.find("[Black \"Carla\"]"), std::string::npos);
    EXPECT_EQ(text.find("eva@example.org") == std::string::npos, leaveOut);
    EXPECT_EQ(desktop_.LastMessage().second, "3 games saved as " + path + ".");
  }
}

TEST_F(GameInterfaceTest, ImportedGamesComeInOnceAndAskForWhatTheyLack) {
  const TemporaryFolder folder;
  const std::string path = folder / "games.PGN";
  WriteFile(path, "[White \"X\"]\n1. e4 *\n[Event \"T\"]\n1. d4 1-0\n[Event \"T\"]\n1. d5 1-0\n");
  Open();
  std::vector<std::string> seen;
  for (const bool isFirst : {true, false}) {
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, window_, [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (!dialog) return;
      if (dialog->objectName() == u"UnfinishedGames"_s) {
        EXPECT_TRUE(isFirst) << "games that are known need no answer";
        EXPECT_FALSE(ui::Can(*dialog, "OkButton"));
        ui::Press(*dialog, "Black1");
        Field(*dialog, "Address1").setText(u"x@example.org"_s);
        ui::Press(*dialog, "OkButton");
      } else {
        seen.push_back(Find<QPlainTextEdit>(*dialog, "LeftOut").toPlainText().toStdString());
        dialog->close();
      }
    });
    watch.start(10);
    window_->ImportPgnFiles({QString::fromStdString(path)});
    EXPECT_EQ(Grid().model()->rowCount(), 2);
    EXPECT_EQ(window_->SelectedGame(), 1);
  }
  ASSERT_EQ(seen.size(), 2);
  EXPECT_EQ(seen[0], "Game 3, move 1. d5: There is no pawn that can go to d5.");
  EXPECT_EQ(seen[1], "Game 1: already there.\nGame 2: already there.\n" + seen[0]);
}

TEST_F(GameInterfaceTest, HelpAndClosing) {
  Open(false);
  desktop_.log.clear();
  QTest::keyClick(window_, Qt::Key_F1);
  Press("HelpButton");
  EXPECT_EQ(desktop_.log, (fakes::EventLog{"help 3", "help 3"}));
  QTest::keyClick(window_, Qt::Key_Escape);
  EXPECT_TRUE(window_->isMinimized());
  Press("HideButton");
  EXPECT_FALSE(Process().GameListOpen);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window_.isNull());
}

}  // namespace
}  // namespace ui
