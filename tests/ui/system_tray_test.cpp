// SPDX-License-Identifier: GPL-3.0-or-later
// The hidden window: its menus and what they do, the tray icon, the polling timer, and the windows'
// coming and going.
#include "ui/program/system_tray.h"

#include <QTemporaryDir>

#include "platform/polling.h"
#include "shell/shell_hooks.h"
#include "shell/shut_down.h"
#include "ui/help/help_window.h"
#include "ui_fixture.h"

namespace ui {
namespace {

using namespace Qt::StringLiterals;
using platform::Process;

/// The captions of a menu, a bar between two of them; "-" for a line, brackets where it is off.
QString Shape(const QMenu& menu) {
  QStringList shape;
  for (const QAction* action : menu.actions()) {
    if (!action->isVisible()) continue;
    const QString caption = action->isSeparator() ? u"-"_s : action->text();
    shape << (action->isEnabled() ? caption : u'[' + caption + u']');
  }
  return shape.join(u'|');
}

class SystemTrayTest : public testing::Test {
 protected:
  SystemTrayTest() {
    platform::Settings().SimpleUI = true;
    Process().Offline = false;
    Process().ProgramFolder = folder_.path().toStdString() + "/";
    SaveChessSet(folder_.path() + u"/Graphics/Classic Wood"_s);
    shell::FillHooks();
  }

  static void Store(std::int32_t id, std::int16_t status, const std::string& opponent) {
    StoreGame(id, status, opponent, {{"5254", "e4"}, {"5755", "e5"}});
  }
  QMenu& Games() { return *tray_.Menu().findChild<QMenu*>(u"mnuPopupGameList"_s); }
  ProgramWindows& Windows() { return tray_.Windows(); }
  void Open(const char* menu) {
    tray_.Menu().popup({});
    tray_.Menu().findChild<QAction*>(QLatin1StringView(menu))->trigger();
    tray_.Menu().hide();
  }

  fakes::FakeDesktop desktop_;
  QTemporaryDir folder_;
  bool trayIsThere_ = true;
  int accountChanges_ = 0;
  int heldMailsAsked_ = 0;
  SystemTray tray_{[this] { ++accountChanges_; }, [this] { ++heldMailsAsked_; },
                   [this] { return trayIsThere_; }};
};

TEST_F(SystemTrayTest, ItsMenusReadAsTold) {
  tray_.SettleMenus();
  tray_.Menu().Refresh();
  EXPECT_EQ(
      Shape(tray_.Menu()),
      u"&Open|&New game...|&Games|-|&Retrieve games|Mail account...|Mails set aside...|[O&ptions...]|Help|-|E&xit"_s
          .replace(u"&Retrieve"_s, u"Retrieve"_s));
  EXPECT_EQ(Shape(*tray_.Menu().findChild<QMenu*>(u"mnuPopupHelpMenu"_s)),
            u"&Help|Help &Contents...|Help &Topics|-|&About..."_s);
  const QString shapes[] = {
      u"Retrieve games|Import game|[Options...]|Mail account...|Mails set aside...|-|-|"
      u"[Print game...]|[Print game notation...]|-|Hide interface|-|Exit Tarvolenix"_s,
      u"Game status|Opponents name|Game title|First move date|-|Ascending|Descending"_s,
      u"[New game...]|[New setup game...]|-|[Play selected]|[Delete selected]"_s,
      u"Contents|Index...|Help|-|About..."_s,
      u"Play selected game|Delete selected game...|-|[Print selected game...]"_s,
  };
  for (int menu = 0; menu < interfaceMenuCount; ++menu) {
    EXPECT_EQ(Shape(tray_.ListMenus().Menu(static_cast<InterfaceMenu>(menu))), shapes[menu]);
  }
  tray_.ListMenus().EnableNewGames(true);
  EXPECT_TRUE(
      Shape(tray_.ListMenus().Menu(GameMenu)).startsWith(u"New game...|New setup game..."_s));
  platform::Settings().SimpleUI = false;
  platform::Settings().SystrayStartup = false;
  tray_.SettleMenus();
  EXPECT_FALSE(Shape(tray_.ListMenus().Menu(HelpMenu)).contains(u"|Help|"_s));
  EXPECT_FALSE(Shape(tray_.ListMenus().Menu(FileMenu)).contains(u"Hide interface"_s));
}

struct MenuCase {
  const char* state;
  bool offline, standAlone, listOpen;
  const char* expected;  ///< open, new game, games, and what retrieving is called
};

TEST_F(SystemTrayTest, ItsMenuOffersWhatCanBeDone) {
  const MenuCase rows[] = {
      {"connected", false, false, false, "open new games Retrieve games"},
      {"offline", true, false, false, "open games Logon / Retrieve games"},
      {"stand-alone", true, true, false, "open new games Logon / Retrieve games"},
      {"the list is open", false, false, true, "Retrieve games"},
  };
  for (const MenuCase& row : rows) {
    SCOPED_TRACE(row.state);
    Process().Offline = row.offline;
    Process().StandAlone = row.standAlone;
    Process().GameListOpen = row.listOpen;
    tray_.Menu().popup({});
    const auto entry = [this](const char* name) {
      return tray_.Menu().findChild<QAction*>(QLatin1StringView(name));
    };
    std::string offers;
    if (entry("mnuPopupOpen")->isEnabled()) offers += "open ";
    if (entry("mnuPopupNewGame")->isEnabled()) offers += "new ";
    if (Games().menuAction()->isVisible()) offers += "games ";
    EXPECT_EQ(offers + entry("mnuPopupRetrieve")->text().toStdString(), row.expected);
    EXPECT_TRUE(Process().TrayMenuOpen) << "ticks are skipped meanwhile";
    tray_.Menu().hide();
    EXPECT_FALSE(Process().TrayMenuOpen);
  }
}

TEST_F(SystemTrayTest, WhileSomethingIsUpTheIconBringsItToTheFrontOnly) {
  Process().CheckTimerHeld = true;
  tray_.Menu().popup({});
  QCoreApplication::processEvents();
  EXPECT_FALSE(tray_.Menu().isVisible());
  EXPECT_FALSE(Process().TrayMenuOpen);
  Q_EMIT tray_.Icon().Opened();
  EXPECT_EQ(Windows().GameList(), nullptr);
}

TEST_F(SystemTrayTest, AGameOfTheMenuOpensAndTheTrayHasTheProgramAgainBehindIt) {
  Store(1, store::WaitingForOpponent, "Tom & \u202EAnna\t");
  Store(2, store::MoveWaiting, "Zoé");
  platform::TheDesktop().hooks.buildTrayGameMenu();
  EXPECT_EQ(Shape(Games()),
            u"[NEW ARRIVALS]|-|Zoé\t\"Game <b>2</b>\"|[]|[AWAITING OPPONENTS MOVE]|"
            u"-|Tom && �Anna \t\"Game <b>1</b>\""_s);
  Games().actions().at(2)->trigger();
  ASSERT_NE(Windows().OpenedBoard(), nullptr);
  EXPECT_EQ(Process().CurrentGameID, 2);
  EXPECT_TRUE(Process().CheckTimerHeld && !Process().BoardFromGameList);
  Windows().OpenedBoard()->close();
  EXPECT_EQ(Windows().GameList(), nullptr);
  EXPECT_TRUE(Process().CheckTimer.Enabled && !Process().CheckTimerHeld && !Process().BoardOpen);
  store::RemoveGame(1);
  store::RemoveGame(2);
  platform::TheDesktop().hooks.buildTrayGameMenu();
  EXPECT_EQ(Shape(Games()), u"[No games available]"_s) << "no stale entries";
}

TEST_F(SystemTrayTest, AMenuThatTheDesktopDrawsOpensNoSecondGame) {
  Store(1, store::MoveWaiting, "Anna");
  Store(2, store::MoveWaiting, "Bob");
  platform::TheDesktop().hooks.buildTrayGameMenu();
  Games().actions().at(2)->trigger();
  Q_EMIT tray_.Menu().aboutToShow();
  EXPECT_FALSE(Process().TrayMenuOpen) << "its host may never say that it has closed";
  for (QAction* entry : tray_.Menu().findChildren<QAction*>()) {
    entry->setEnabled(true);
    entry->trigger();
  }
  EXPECT_EQ(Process().CurrentGameID, 1);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(accountChanges_ + heldMailsAsked_, 0);
}

TEST_F(SystemTrayTest, TheBoardTakesThePlaceOfTheListAndGivesItBack) {
  Store(1, store::MoveWaiting, "Anna");
  Store(2, store::WaitingForOpponent, "Bob");
  Open("mnuPopupOpen");
  GameInterface& list = *Windows().GameList();
  list.Refill(2);
  tray_.ListMenus().Menu(GameMenu).Entry(entries::Play).trigger();
  ASSERT_NE(Windows().OpenedBoard(), nullptr);
  EXPECT_TRUE(Windows().OpenedBoard()->isVisible() && !list.isVisible());
  EXPECT_TRUE(Process().BoardOpen && Process().GameListOpen && !Process().CheckTimer.Enabled);
  Windows().OpenedBoard()->close();
  EXPECT_TRUE(list.isVisible());
  EXPECT_EQ(list.SelectedGame(), 2);
  Windows().CloseGameList();
  EXPECT_FALSE(Process().GameListOpen);
}

TEST_F(SystemTrayTest, ANewMoveOpensBehindTheOneThatCloses) {
  Store(1, store::MoveWaiting, "Anna");
  Store(2, store::MoveWaiting, "Bob");
  Games();
  platform::TheDesktop().hooks.buildTrayGameMenu();
  Games().actions().at(2)->trigger();
  const QPointer<BoardWindow> first = Windows().OpenedBoard();
  Process().PendingGames = "2;";
  Process().NewMoveArrived = true;
  OnNextDialog([](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), u"NotifyForm"_s);
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  first->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(first.isNull());
  ASSERT_NE(Windows().OpenedBoard(), nullptr);
  EXPECT_TRUE(Windows().OpenedBoard()->isVisible());
  EXPECT_EQ(Process().CurrentGameID, 2);
  EXPECT_TRUE(Process().BoardOpen && Process().CheckTimerHeld && !Process().CheckTimer.Enabled);
  EXPECT_EQ(Process().PendingGames, "");
}

TEST_F(SystemTrayTest, TheSortMenuKeepsWhatItDoesNotChange) {
  Open("mnuPopupOpen");
  IndexedMenu& sort = tray_.ListMenus().Menu(SortMenu);
  const auto sorted = [] {
    return std::to_string(Process().GameListSortColumn) + Process().GameListSortOrder;
  };
  sort.Entry(entries::Descending).trigger();
  EXPECT_EQ(sorted(), "1DESC");
  sort.Entry(entries::ByDate).trigger();
  EXPECT_EQ(sorted(), "4DESC");
  sort.Entry(entries::Ascending).trigger();
  EXPECT_EQ(sorted(), "4");
  tray_.ListMenus().Menu(FileMenu).Entry(entries::MailAccount).trigger();
  EXPECT_EQ(accountChanges_, 1);
  tray_.ListMenus().Menu(FileMenu).Entry(entries::HeldMails).trigger();
  Open("mnuPopupHeldMails");
  EXPECT_EQ(heldMailsAsked_, 2);
}

TEST_F(SystemTrayTest, ATrayIsWaitedForAndStillTakenWhenItComesLate) {
  trayIsThere_ = false;
  int missing = 0;
  int come = 0;
  QObject::connect(&tray_.Icon(), &TrayIcon::Missing, [&] { ++missing; });
  QObject::connect(&tray_.Icon(), &TrayIcon::Come, [&] { ++come; });
  platform::TheDesktop().tray->Notify(platform::TrayOperation::Add, 1, "Tarvolenix - Nothing new");
  for (int i = 0; i < 39; ++i) tray_.Icon().Look();
  EXPECT_EQ(missing, 0) << "it may be on its way";
  tray_.Icon().Look();
  tray_.Icon().Look();
  EXPECT_EQ(missing, 1);
  EXPECT_TRUE(Process().GameListOpen) << "never invisible";
  EXPECT_EQ(desktop_.LastMessage().first, "No system tray");
  trayIsThere_ = true;
  tray_.Icon().Look();
  EXPECT_EQ(come, 1);
  EXPECT_TRUE(platform::Settings().SystrayStartup);
  EXPECT_EQ(tray_.Icon().Tip(), u"Tarvolenix - Nothing new"_s);
  trayIsThere_ = false;
  for (int i = 0; i < 5; ++i) tray_.Icon().Look();
  EXPECT_EQ(missing, 2) << "it may go away again";
}

TEST_F(SystemTrayTest, TheLastStopClosesEveryWindow) {
  Store(1, store::MoveWaiting, "Anna");
  Open("mnuPopupOpen");
  tray_.ListMenus().Menu(GameMenu).Entry(entries::Play).trigger();
  const QPointer<BoardWindow> board = Windows().OpenedBoard();
  const QPointer<GameInterface> list = Windows().GameList();
  int stops = 0;
  platform::TheDesktop().hooks.stopped = [&] { ++stops; };
  Process().StartupComplete = true;
  Open("mnuPopupExit");
  EXPECT_EQ(stops, 0) << "not over an open board";
  shell::ExitProgram();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(board.isNull() && list.isNull());
  EXPECT_EQ(stops, 1);
}

TEST_F(SystemTrayTest, WhoHasNoGameIsShownTheWaysToOne) {
  const auto welcome = [] {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == u"Welcome"_s && window->isVisible()) return window;
    }
    return static_cast<QWidget*>(nullptr);
  };
  Store(1, store::MoveWaiting, "Anna");
  platform::TheDesktop().hooks.handedOver();
  EXPECT_EQ(welcome(), nullptr);
  store::RemoveGame(1);
  platform::TheDesktop().hooks.handedOver();
  ASSERT_NE(welcome(), nullptr);
  welcome()->close();
}

}  // namespace
}  // namespace ui
