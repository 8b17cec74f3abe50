// SPDX-License-Identifier: GPL-3.0-or-later
// What the Board window shows and offers beside the moving of pieces.
#include <QAction>
#include <QClipboard>
#include <QTextEdit>

#include <algorithm>
#include <functional>

#include "ui/board/board_menus.h"
#include "ui/board/board_window_fixture.h"

namespace ui {
namespace {

constexpr const char* e2e4 = "click 52 click 54";
const PlayedEntry e4{"5254", "e4"}, e5{"5755", "e5"};

TEST_F(BoardWindowTest, TheControlsFollowTheStateOfTheTurn) {
  const struct {
    const char* name;
    std::vector<PlayedEntry> entries;
    bool offline;
    const char* gestures;
    std::vector<bool> enabled;  ///< undo, send, resend, comment
    bool isMine;
  } rows[] = {
      {"the user's turn", {e4, e5}, false, "", {false, false, false, true}, true},
      {"moved, not sent", {}, false, e2e4, {true, true, false, true}, true},
      {"waiting", {e4}, false, "", {false, false, true, false}, false},
      {"offline", {e4, e5}, true, "", {false, false, false, false}, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Process().Offline = row.offline;
    Open(row.entries);
    Do(row.gestures);
    EXPECT_EQ(window_->windowTitle(), row.isMine ? u"Tarvolenix - Awaiting your move"_s
                                                 : u"Tarvolenix - Awaiting Eva <i>Ü</i>'s move"_s);
    EXPECT_EQ(Button(board::CloseButton).text(), row.isMine ? u"&Cancel"_s : u"&Close"_s);
    EXPECT_EQ(Find<QTextEdit>("PlayersTag").toPlainText(), u"You are playing Eva <i>Ü</i>"_s);
    std::vector<int> offered;
    const auto menu =
        NewActionsMenu(Game(), {[&](int button) { offered.push_back(button); }, [] {}, {}});
    for (QAction* action : menu->actions()) action->trigger();
    const int buttons[] = {board::UndoButton, board::SendButton, board::ResendButton};
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(Button(buttons[i]).isEnabled(), row.enabled[i]) << i;
      EXPECT_EQ(std::count(offered.begin(), offered.end(), buttons[i]), row.enabled[i]) << i;
    }
    EXPECT_EQ(Comment().isEnabled(), row.enabled[3]);
  }
}

TEST_F(BoardWindowTest, TheCommentTakesOneLineOfTwoHundredCharactersWithoutBars) {
  Open({});
  const auto paste = [this](const QString& text) {
    QApplication::clipboard()->setText(text);
    Comment().paste();
  };
  QTest::keyClicks(&Comment(), u"ab|c"_s);
  QTest::keyClick(&Comment(), Qt::Key_Return);
  paste(u"|ü\r\n<b>\nz|"_s);
  EXPECT_EQ(Game().PlayerComment, "ab/c/ü <b> z/");
  EXPECT_TRUE(ShownTip() && ShownTip()->text().contains(u"becomes"_s));
  paste(u"see http://x"_s);
  EXPECT_TRUE(ShownTip() && ShownTip()->text().contains(u"link"_s));

  Comment().clear();
  paste(u"ü"_s.repeated(150) + u"\U0001F600"_s.repeated(100));
  const QString full = u"ü"_s.repeated(150) + u"\U0001F600"_s.repeated(50);
  EXPECT_EQ(Comment().toPlainText(), full);
  Comment().moveCursor(QTextCursor::Start);
  QTest::keyClicks(&Comment(), u"x"_s);
  EXPECT_EQ(Comment().toPlainText(), full) << "nothing falls off the end";
  Comment().moveCursor(QTextCursor::Right, QTextCursor::KeepAnchor);
  QTest::keyClicks(&Comment(), u"x"_s);
  EXPECT_EQ(Comment().toPlainText(), u"x"_s + full.mid(1)) << "in place of a selected one";
}

TEST_F(BoardWindowTest, ReservedTextInTheCommentIsCleanedOnLeavingTheBox) {
  Open({});
  Do(e2e4);
  Comment().setFocus();
  QTest::keyClicks(&Comment(), u"hi <<TARVOLENIX: there"_s);
  QTest::keyClick(&Comment(), Qt::Key_Tab);
  QCoreApplication::processEvents();
  EXPECT_EQ(desktop_.LastMessage().first, "Illegal characters");
  EXPECT_TRUE(Comment().hasFocus());
  EXPECT_FALSE(Comment().toPlainText().contains(u"TARVOLENIX:"_s));

  QTest::keyClicks(&Comment(), u"<<TARVOLENIX:"_s);
  Click(board::SendButton);
  EXPECT_EQ(desktop_.boxes.messages.size(), 2U);
  ASSERT_TRUE(window_ && window_->isVisible()) << "nothing is sent before the user has seen it";
  EXPECT_TRUE(desktop_.mail.sent.empty());
}

TEST_F(BoardWindowTest, SendingSavesMailsAndClosesOnce) {
  Open({});
  Do(e2e4);
  Comment().insertPlainText(u"Grüße"_s);
  bool waited = false;
  platform::TheSeams().hooks.busyPointer = [&](bool busy) {
    if (!busy || waited) return;
    waited = true;
    window_->close();
    EXPECT_TRUE(window_->isVisible() && !window_->isEnabled()) << "the user cannot act";
  };
  Click(board::SendButton);
  EXPECT_TRUE(waited);
  EXPECT_FALSE(window_->isVisible());
  window_->close();
  ASSERT_EQ(desktop_.mail.sent.size(), 1U);
  EXPECT_NE(desktop_.mail.sent.front().text.find("|e4|Grüße"), std::string::npos);
  EXPECT_EQ(std::count(desktop_.log.begin(), desktop_.log.end(), "bring back game list"), 1)
      << "however often it is closed";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window_.isNull());
}

TEST_F(BoardWindowTest, EveryEntryOfTheMenusHasAKeyThatDoesTheSame) {
  Open({e4, e5});
  for (const bool setup : {false, true}) {
    std::vector<QKeySequence> keys;
    std::vector<MenuRow> rows = setup ? SetupRows(Game(), {}) : ActionsRows(Game(), {});
    if (!setup) std::ranges::copy(HistoryRows(Game(), {}), std::back_inserter(rows));
    for (const MenuRow& row : rows) {
      if (row.caption == "-") continue;
      EXPECT_FALSE(row.key.isEmpty()) << row.caption;
      EXPECT_EQ(std::ranges::count(keys, row.key), 0) << row.caption;
      keys.push_back(row.key);
    }
  }
  const auto press = [this](int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(window_->windowHandle(), static_cast<Qt::Key>(key), modifiers);
  };
  press(Qt::Key_Home, {});
  press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Game().Moves.Count(), 2) << "no draw is offered from the past";
  press(Qt::Key_End, {});
  press(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(LastMove(), "Draw offer");
  press(Qt::Key_G, Qt::ControlModifier);
  EXPECT_TRUE(Game().CoordsVisible);
}

TEST_F(BoardWindowTest, WhatIsCopiedIsTheGameAndTheBoardAsItIsSeen) {
  Open({e4, e5});
  const auto copied = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window_->windowHandle(), key, Qt::ControlModifier | modifiers);
    return QGuiApplication::clipboard()->text();
  };
  EXPECT_TRUE(copied(Qt::Key_C).endsWith(u"1. e4 e5 *\n\n"_s));
  QTest::keyClick(window_->windowHandle(), Qt::Key_Home);
  EXPECT_EQ(copied(Qt::Key_P, Qt::ShiftModifier),
            u"rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq e3 0 1"_s);
  copied(Qt::Key_T);
  copied(Qt::Key_I);
  const QImage image = QGuiApplication::clipboard()->image();
  EXPECT_EQ(image.size(), QSize(800, 800));
  constexpr int whiteRook = 1 + 8;
  EXPECT_EQ(image.pixelColor(750, 50), ColourOfCell(whiteRook)) << "a1 is seen from Black's side";
}

TEST_F(BoardWindowTest, PairsAreDrawnOverTheListThatStays) {
  platform::Settings().Pairs = true;
  Open({e4, e5, {"7163", "Nf3"}});
  auto& list = Find<QTableWidget>("MoveList");
  EXPECT_EQ(list.rowCount(), 2);
  const struct {
    int row, column, selected;
  } presses[] = {{0, 4, 2}, {0, 1, 1}, {1, 4, 1}, {1, 2, 3}};
  for (const auto& [row, column, selected] : presses) {
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualRect(list.model()->index(row, column)).center());
    EXPECT_EQ(Game().Moves.Selected(), selected) << row << " " << column;
    EXPECT_EQ(list.currentIndex().data().toString().toStdString(),
              Game().Moves.Row(selected).MoveText);
  }
  list.setFocus();
  for (const int selected : {2, 1, 1}) {
    QTest::keyClick(&list, Qt::Key_Left);
    EXPECT_EQ(Game().Moves.Selected(), selected);
  }
  platform::Settings().Pairs = false;
  Click(board::CoordinatesButton);
  EXPECT_EQ(list.rowCount(), 3);
}

TEST_F(BoardWindowTest, TheConversationEndsWithTheNewestWords) {
  Open({{"5254", "e4", "Hello <b>"}, {"5755", "e5", "Hi"}});
  QString words;
  QTimer::singleShot(0, window_, [&words] {
    auto* form = QApplication::activeModalWidget();
    ASSERT_TRUE(form);
    auto& list = ui::Find<QTableWidget>(*form, "Conversation");
    words = list.item(0, 2)->text() + list.item(list.currentRow(), 2)->text();
    QTest::keyClick(&list, Qt::Key_Escape);
  });
  Click("EarlierComments");
  EXPECT_EQ(words, u"Hello <b>Hi"_s);
  QTest::keyClicks(&Comment(), u"Ha"_s);
  Do("click 42 click 44");
  EXPECT_EQ(Find<QTextEdit>("OpponentComment").toPlainText(),
            u"Eva <i>Ü</i> said: Hi\nYou said: Ha"_s);
}

TEST_F(BoardWindowTest, AMoveIsExplainedOnTheBoardWhichStaysAsItWas) {
  platform::Settings().SearchDepth = ai::deepestSearch;  // so that closing breaks it off
  for (const Look look : {Look::Plain, Look::Skinned}) {
    const auto ask = [this] { QTest::keyClick(window_, Qt::Key_Y, Qt::ControlModifier); };
    const auto seen = [this] { return Find("CBoard").grab().toImage(); };
    platform::Settings().WhyInMailGames = false;
    Open({e4, e5}, look);
    ask();
    ASSERT_EQ(desktop_.boxes.messages.size(), 1U) << "an unfair one goes on";
    platform::Settings().WhyInMailGames = true;
    const QImage before = seen();
    OnNextDialog([&](QWidget& form) {
      auto& moves = ui::Find<QTableWidget>(form, "BestMoves");
      EXPECT_TRUE(QTest::qWaitFor([&] { return moves.rowCount() == 6; }));
      EXPECT_EQ(moves.item(0, 1)->text(), u"e5"_s);
      const QImage played = seen();
      EXPECT_NE(played, before) << "no arrow";
      QTest::keyClick(&moves, Qt::Key_Down);
      EXPECT_NE(seen(), played) << "not the other move";
      QTest::keyClick(&moves, Qt::Key_Escape);
    });
    ask();
    EXPECT_EQ(seen(), before);
    EXPECT_EQ(desktop_.boxes.messages.size(), 1U);
  }
  platform::Settings().WhyInMailGames = false;
}

/// As the desktop asks for it.
void CloseByFrame(QWidget& window) {
  QCloseEvent event;
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(window.windowHandle(), &event);
}

TEST_F(BoardWindowTest, OnlyAClickOnTheButtonClosesWithoutAQuestion) {
  const struct {
    const char* name;
    std::function<void()> close;
    bool asks;
  } rows[] = {
      {"the mouse", [this] { Click(board::CloseButton); }, false},
      {"a key", [this] { QTest::keyClick(&Button(board::CloseButton), Qt::Key_Return); }, true},
      {"the frame's button", [this] { CloseByFrame(*window_); }, true},
      {"the end of the session",
       [this] {
         Process().Stopping = true;
         CloseByFrame(*window_);
       },
       false},
  };
  for (const Look look : {Look::Plain, Look::Skinned}) {
    for (const auto& row : rows) {
      SCOPED_TRACE(row.name);
      Process().Stopping = false;
      Open({}, look);
      Do(e2e4);
      for (const bool stays : {true, false}) {
        if (!row.asks && stays) continue;
        if (row.asks) desktop_.boxes.answers = {stays};
        row.close();
        EXPECT_EQ(window_ && window_->isVisible(), stays);
      }
      EXPECT_EQ(desktop_.boxes.messages.size(), row.asks ? 2U : 0U);
    }
  }
}

TEST_F(BoardWindowTest, AGameThatCannotBeReadClosesItsWindowAtTheNextTick) {
  platform::Settings().SimpleUI = true;
  Process().CurrentGameID = 1;
  desktop_.files.content["/program/Data/Tvgdb.dat"] = "no game\r\n";
  window_ = new BoardWindow(graphics_);
  EXPECT_EQ(desktop_.LastMessage().first, "Database error.");
  window_->show();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !window_; }));
}

}  // namespace
}  // namespace ui
