// SPDX-License-Identifier: GPL-3.0-or-later
// The hidden window: its menus and what they do, the tray icon, the polling timer, and the windows'
// coming and going.
#include "ui/program/system_tray.h"

#include <QTemporaryDir>

#include "mail/move_mail.h"
#include "platform/polling.h"
#include "platform/registry.h"
#include "shell/shell_hooks.h"
#include "shell/shut_down.h"
#include "ui/ui_fixture.h"

namespace ui {
namespace {

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

  void Store(std::int32_t id, std::int16_t status, const std::string& opponent) {
    StoreGame(id, status, opponent, {{"5254", "e4"}, {"5755", "e5"}});
    platform::TheSeams().tray->BuildGameMenu();
  }
  QMenu& Games() { return *tray_.Menu().findChild<QMenu*>(u"mnuPopupGameList"_s); }
  QAction& Entry(const char* name) {
    return *tray_.Menu().findChild<QAction*>(QLatin1StringView(name));
  }
  void Choose(const char* entry) {
    tray_.Menu().popup({});
    Entry(entry).trigger();
    tray_.Menu().hide();
  }
  BoardWindow* Board() { return tray_.Windows().OpenedBoard(); }
  GameInterface* List() { return tray_.Windows().GameList(); }

  fakes::FakeDesktop desktop_;
  QTemporaryDir folder_;
  bool trayIsThere_ = true;
  int accountChanges_ = 0;
  int heldMailsAsked_ = 0;
  SystemTray tray_{[this](const char*) { ++accountChanges_; }, [this] { ++heldMailsAsked_; },
                   [this] { return trayIsThere_; }};
};

TEST_F(SystemTrayTest, ItsMenuOffersWhatCanBeDone) {
  const struct {
    const char* state;
    bool offline, standAlone, listOpen;
    const char* expected;  ///< open, new game, games, and what retrieving is called
  } rows[] = {
      {"connected", false, false, false, "open new games Retrieve games"},
      {"offline", true, false, false, "open games Logon / Retrieve games"},
      {"stand-alone", true, true, false, "open new games Logon / Retrieve games"},
      {"the list is open", false, false, true, "Retrieve games"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.state);
    Process().Offline = row.offline;
    Process().StandAlone = row.standAlone;
    Process().GameListOpen = row.listOpen;
    tray_.Menu().popup({});
    std::string offers;
    if (Entry("mnuPopupOpen").isEnabled()) offers += "open ";
    if (Entry("mnuPopupNewGame").isEnabled()) offers += "new ";
    if (Games().menuAction()->isVisible()) offers += "games ";
    EXPECT_EQ(offers + Entry("mnuPopupRetrieve").text().toStdString(), row.expected);
    EXPECT_TRUE(Process().TrayMenuOpen) << "ticks are skipped meanwhile";
    tray_.Menu().hide();
    EXPECT_FALSE(Process().TrayMenuOpen);
  }
}

TEST_F(SystemTrayTest, WhileSomethingIsUpTheIconBringsItToTheFrontOnly) {
  Process().CheckTimerHeld = true;
  tray_.Menu().popup({});
  QCoreApplication::processEvents();
  EXPECT_FALSE(tray_.Menu().isVisible() || Process().TrayMenuOpen);
  Q_EMIT tray_.Icon().Opened();
  EXPECT_EQ(List(), nullptr);
}

TEST_F(SystemTrayTest, AGameOfTheMenuOpensAndTheTrayHasTheProgramAgainBehindIt) {
  Store(1, store::WaitingForOpponent, "Tom & \u202EAnna\t");
  Store(2, store::MoveWaiting, "Zoé");
  EXPECT_EQ(Shape(Games()),
            u"[NEW ARRIVALS]|-|Zoé\t\"Game <b>2</b>\"|[]|[AWAITING OPPONENTS MOVE]|"
            u"-|Tom && �Anna \t\"Game <b>1</b>\""_s);
  Games().actions().at(2)->trigger();
  ASSERT_NE(Board(), nullptr);
  EXPECT_EQ(Process().CurrentGameID, 2);
  EXPECT_TRUE(Process().CheckTimerHeld && !Process().BoardFromGameList);
  Board()->close();
  EXPECT_EQ(List(), nullptr);
  EXPECT_TRUE(Process().CheckTimer.Enabled && !Process().CheckTimerHeld && !Process().BoardOpen);
  store::RemoveGame(1);
  store::RemoveGame(2);
  platform::TheSeams().tray->BuildGameMenu();
  EXPECT_EQ(Shape(Games()), u"[No games available]"_s) << "no stale entries";
}

TEST_F(SystemTrayTest, AMenuThatTheDesktopDrawsOpensNoSecondGame) {
  Store(1, store::MoveWaiting, "Anna");
  Store(2, store::MoveWaiting, "Bob");
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
  Choose("mnuPopupOpen");
  List()->Refill(2);
  TakeEntry(*List(), "GameMenu_L", "Play selected");
  ASSERT_NE(Board(), nullptr);
  EXPECT_TRUE(Board()->isVisible() && !List()->isVisible());
  EXPECT_TRUE(Process().BoardOpen && Process().GameListOpen && !Process().CheckTimer.Enabled);
  Board()->close();
  EXPECT_TRUE(List()->isVisible());
  EXPECT_EQ(List()->SelectedGame(), 2);
  tray_.Windows().CloseGameList();
  EXPECT_FALSE(Process().GameListOpen);
}

TEST_F(SystemTrayTest, AFileDroppedOnTheListIsImportedOnceTheBoardIsClosed) {
  Store(1, store::MoveWaiting, "Anna");
  Process().StartupComplete = true;
  Choose("mnuPopupOpen");
  for (const bool whilePlaying : {false, true}) {
    SCOPED_TRACE(whilePlaying);
    if (whilePlaying) TakeEntry(*List(), "GameMenu_L", "Play selected");
    desktop_.boxes.messages.clear();
    QMimeData files;
    files.setUrls({QUrl(u"https://example.org/a"_s), QUrl::fromLocalFile(u"/nowhere/a b.txt"_s)});
    QDragEnterEvent enter({9, 9}, Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, {});
    QCoreApplication::sendEvent(List(), &enter);
    QDropEvent drop({9, 9}, Qt::CopyAction | Qt::MoveAction, &files, Qt::LeftButton, {});
    QCoreApplication::sendEvent(List(), &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "it is its owner's still";
    QCoreApplication::processEvents();
    EXPECT_EQ(desktop_.LastMessage().first, whilePlaying ? "Game import" : "File read error");
    if (!whilePlaying) continue;
    Board()->close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return desktop_.LastMessage().first == "File read error"; }));
  }
}

TEST_F(SystemTrayTest, GamesThatCameWithAMoveWaitUntilItsBoardIsClosed) {
  Process().StartupComplete = true;
  const store::GameRecord game{7,
                               "090320260805",
                               0,
                               "Sunday game",
                               "09/03/2026",
                               "anna@example.org",
                               "",
                               "Anna",
                               true,
                               "Anna",
                               2,
                               false,
                               ""};
  desktop_.files.content["/move.txt"] = mail::BuildMailBody(game, {{1, "5254", "e4", ""}});
  OnNextDialog([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
  tray_.Windows().Files().Give({"/nowhere/games.pgn", "/move.txt"});
  ASSERT_NE(Board(), nullptr);
  EXPECT_EQ(List(), nullptr) << "it would take the board's place";
  Board()->close();
  EXPECT_TRUE(QTest::qWaitFor([&] { return List() != nullptr; }));
}

TEST_F(SystemTrayTest, ANewMoveOpensBehindTheOneThatCloses) {
  Store(1, store::MoveWaiting, "Anna");
  Store(2, store::MoveWaiting, "Bob");
  Games().actions().at(2)->trigger();
  const QPointer<BoardWindow> first = Board();
  Process().PendingGames = {2};
  Process().NewMoveArrived = true;
  OnNextDialog([](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), u"NotifyForm"_s);
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  first->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(first.isNull());
  ASSERT_NE(Board(), nullptr);
  EXPECT_EQ(Process().CurrentGameID, 2);
  EXPECT_TRUE(Process().BoardOpen && Process().CheckTimerHeld && !Process().CheckTimer.Enabled);
  EXPECT_TRUE(Process().PendingGames.empty());
}

TEST_F(SystemTrayTest, TheMenusOfTheListDoWhatTheySay) {
  Store(1, store::MoveWaiting, "Anna");
  Choose("mnuPopupOpen");
  const std::pair<const char*, const char*> sorts[] = {
      {"Descending", "1DESC"}, {"First move date", "4DESC"}, {"Ascending", "4"}};
  for (const auto& [entry, sorted] : sorts) {
    TakeEntry(*List(), "SortMenu_L", entry);
    EXPECT_EQ(std::to_string(Process().GameListSortColumn) + Process().GameListSortOrder, sorted);
  }
  TakeEntry(*List(), "FileMenu_L", "Mail account...");
  EXPECT_EQ(accountChanges_, 1);
  TakeEntry(*List(), "FileMenu_L", "Mails set aside...");
  Choose("mnuPopupHeldMails");
  EXPECT_EQ(heldMailsAsked_, 2);
  for (const char* entry :
       {"Print game...", "Print game notation...", "Print travel sheet...", "Print postcard..."}) {
    TakeEntry(*List(), "FileMenu_L", entry);
    EXPECT_EQ(desktop_.printers.sent.size(), static_cast<std::size_t>(desktop_.printers.asked));
  }
  EXPECT_EQ(desktop_.printers.asked, 4);
}

TEST_F(SystemTrayTest, ATrayIsWaitedForAndStillTakenWhenItComesLate) {
  trayIsThere_ = false;
  int missing = 0;
  int come = 0;
  platform::TheSeams().hooks.handedOver();
  QObject::connect(&tray_.Icon(), &TrayIcon::Missing, [&] { ++missing; });
  QObject::connect(&tray_.Icon(), &TrayIcon::Come, [&] { ++come; });
  platform::TheSeams().tray->Notify(platform::TrayOperation::Add, 1, "Tarvolenix - Nothing new");
  tray_.Icon().Look();
  EXPECT_EQ(missing, 0) << "it may be on its way";
  for (int i = 0; i < 60; ++i) tray_.Icon().Look();
  EXPECT_EQ(missing, 1);
  EXPECT_FALSE(Process().GameListOpen) << "a newcomer chooses first";
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == u"Welcome"_s) window->close();
  }
  EXPECT_TRUE(QTest::qWaitFor([] { return Process().GameListOpen; }));
  EXPECT_TRUE(Process().GameListOpen) << "never invisible";
  EXPECT_EQ(desktop_.LastMessage().first, "No system tray");
  trayIsThere_ = true;
  tray_.Icon().Look();
  EXPECT_EQ(come, 1);
  EXPECT_EQ(tray_.Icon().Tip(), u"Tarvolenix - Nothing new"_s);
  trayIsThere_ = false;
  for (int i = 0; i < 60; ++i) tray_.Icon().Look();
  EXPECT_EQ(missing, 2) << "it may go away again";
}

TEST_F(SystemTrayTest, TheLastStopClosesEveryWindow) {
  Store(1, store::MoveWaiting, "Anna");
  Choose("mnuPopupOpen");
  TakeEntry(*List(), "GameMenu_L", "Play selected");
  const QPointer<BoardWindow> board = Board();
  const QPointer<GameInterface> list = List();
  int stops = 0;
  platform::TheSeams().hooks.stopped = [&] { ++stops; };
  Process().StartupComplete = true;
  Choose("mnuPopupExit");
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
  platform::TheSeams().hooks.handedOver();
  EXPECT_EQ(welcome(), nullptr);
  store::RemoveGame(1);
  platform::TheSeams().hooks.handedOver();
  ASSERT_NE(welcome(), nullptr);
  EXPECT_FALSE(platform::Settings().Verbose) << "he comes from an earlier version";
  welcome()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  platform::WriteRegistry(platform::productSection, "Greeted", "False");
  platform::TheSeams().hooks.handedOver();
  EXPECT_TRUE(platform::Settings().Verbose);
  welcome()->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  platform::WriteRegistry(platform::productSection, "Greeted", "False");
  platform::WriteRegistry(platform::mailSection, "MyAddress", "a@example.org");
  platform::TheSeams().hooks.handedOver();
  EXPECT_EQ(welcome(), nullptr) << "who has a mailbox by now goes on to his opponent";
  OnNextDialog([](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), u"NewGameInfo"_s);
    dialog.close();
  });
  EXPECT_TRUE(QTest::qWaitFor(welcome)) << "he may have wanted something else";
  platform::Settings().Verbose = false;
  Process().Offline = true;
  desktop_.mail.failing = {"SignOn"};
  for (const auto& [way, kind, asked] : {std::tuple("ByMail", "", 1),
                                         {"ByMail", "Imap", 0},
                                         {"OnThisMachine", "Imap", 1},
                                         {"OnThisMachine", "Post", 0},
                                         {"ByMail", "Post", 1}}) {
    accountChanges_ = 0;
    const bool hasAccount = *kind != 0;
    platform::WriteRegistry(platform::mailSection, "MyAddress", hasAccount ? "a@example.org" : "");
    platform::WriteRegistry(platform::mailSection, "MailKind", kind);
    Press(*welcome(), way);
    QCoreApplication::processEvents();
    EXPECT_EQ(accountChanges_, asked) << way << " with " << kind;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    platform::TheSeams().hooks.handedOver();
    ASSERT_NE(welcome(), nullptr);
  }
  EXPECT_FALSE(platform::Settings().Verbose) << "that was the user's choice";
  welcome()->close();
}

}  // namespace
}  // namespace ui
