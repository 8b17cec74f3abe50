// SPDX-License-Identifier: GPL-3.0-or-later
// What the Board window shows and offers beside the moving of pieces.
#include <QAction>
#include <QClipboard>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableWidget>
#include <QTextEdit>

#include <algorithm>

#include "board_window_fixture.h"
#include "ui/board_menus.h"

namespace ui {
namespace {

TEST_F(BoardWindowTest, UndoTakesTheMoveBack) {
  Open({{"5254", "e4"}, {"4745", "d5"}});
  Drag(54, 45);
  ASSERT_EQ(LastMove(), "exd5");
  QTest::mouseClick(Button(board::UndoButton), Qt::LeftButton);
  EXPECT_EQ(LastMove(), "d5");
  EXPECT_EQ(SeenOn(54), ColourOfCell(6));
  EXPECT_EQ(SeenOn(45), ColourOfCell(22)) << "a black pawn on a light square";
  EXPECT_FALSE(Button(board::UndoButton)->isEnabled());
  Drag(54, 45);
  EXPECT_EQ(LastMove(), "exd5") << "and the piece moves again";
}

struct StateCase {
  const char* name;
  std::vector<PlayedEntry> entries;
  bool offline;
  bool moves;  ///< e2-e4 is played first
  const char* title;
  std::vector<bool> enabled;  ///< undo, send, resend, comment
  const char* closeCaption;
};

TEST_F(BoardWindowTest, TheControlsFollowTheStateOfTheTurn) {
  const PlayedEntry e4{"5254", "e4"}, e5{"5755", "e5"};
  const StateCase rows[] = {
      {"the user's turn",
       {e4, e5},
       false,
       false,
       "Tarvolenix - Awaiting your move",
       {false, false, false, true},
       "&Cancel"},
      {"moved, not sent",
       {},
       false,
       true,
       "Tarvolenix - Awaiting your move",
       {true, true, false, true},
       "&Cancel"},
      {"waiting",
       {e4},
       false,
       false,
       "Tarvolenix - Awaiting Eva <i>Ü</i>'s move",
       {false, false, true, false},
       "&Close"},
      {"offline",
       {e4, e5},
       true,
       false,
       "Tarvolenix - Awaiting Eva <i>Ü</i>'s move",
       {false, false, false, false},
       "&Close"},
  };
  for (const StateCase& row : rows) {
    SCOPED_TRACE(row.name);
    Process().Offline = row.offline;
    Open(row.entries);
    if (row.moves) Drag(52, 54);
    EXPECT_EQ(window_->windowTitle(), QString::fromUtf8(row.title));
    const std::vector<bool> enabled{
        Button(board::UndoButton)->isEnabled(), Button(board::SendButton)->isEnabled(),
        Button(board::ResendButton)->isEnabled(), Comment()->isEnabled()};
    EXPECT_EQ(enabled, row.enabled);
    EXPECT_EQ(Button(board::CloseButton)->text(), QLatin1StringView(row.closeCaption));
    EXPECT_EQ(Find<QTextEdit>("PlayersTag")->toPlainText(), u"You are playing Eva <i>Ü</i>"_s);
    EXPECT_EQ(ShownComment().startsWith(u"You are working offline: "_s), row.offline);
    const auto menu = NewActionsMenu(window_->Logic(), [](int) {});
    const auto actions = menu->actions();
    EXPECT_EQ((std::vector<bool>{actions[3]->isEnabled(), actions[4]->isEnabled(),
                                 actions[5]->isEnabled()}),
              std::vector<bool>(row.enabled.begin(), row.enabled.end() - 1));
  }
}

TEST_F(BoardWindowTest, OfflineACommentIsShownAndMoveFilesNeedNoConnection) {
  Process().Offline = true;
  Open({{"5254", "e4", "hi"}, {"5755", "e5", "<b>ho</b>"}});
  EXPECT_EQ(ShownComment(), u"Eva <i>Ü</i> said: <b>ho</b>"_s);
  Process().StandAlone = true;
  Open({{"5254", "e4"}, {"5755", "e5"}});
  EXPECT_EQ(ShownComment(), QString());
}

TEST_F(BoardWindowTest, ACommentOfManyLinesScrollsAndTheWindowKeepsItsHeight) {
  Open({{"5254", "e4"}, {"5755", "e5"}});
  const int height = window_->height();
  Open({{"5254", "e4"}, {"5755", "e5", std::string(2000, 'W').c_str()}});
  EXPECT_EQ(window_->height(), height);
  EXPECT_GT(Find<QTextEdit>("OpponentComment")->verticalScrollBar()->maximum(), 0);
}

TEST_F(BoardWindowTest, EnterPressesTheButtonWithTheFocus) {
  Open({});
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    const bool before = window_->Logic().CoordsVisible;
    QTest::keyClick(Button(board::CoordinatesButton), key);
    EXPECT_NE(window_->Logic().CoordsVisible, before) << "key " << key;
  }
}

TEST_F(BoardWindowTest, TheMoveListKeepsTenRowsAboveTheSelectedOne) {
  const PlayedEntry around[] = {{"7163", "Nf3"}, {"7866", "Nf6"}, {"6371", "Ng1"}, {"6678", "Ng8"}};
  std::vector<PlayedEntry> entries;
  while (entries.size() < 120) entries.push_back(around[entries.size() % 4]);
  Open(entries);
  auto* list = Find<QTableWidget>("MoveList");
  list->setFixedHeight(list->rowHeight(0) * 16);
  QCoreApplication::processEvents();
  const auto top = [list] { return list->rowAt(0) + 1; };
  const auto press = [&](Qt::Key key, int times, int selected) {
    while (times-- > 0) QTest::keyClick(list, key);
    EXPECT_EQ(window_->Logic().Moves.Selected(), selected);
  };
  press(Qt::Key_Home, 1, 1);
  EXPECT_EQ(top(), 1);
  press(Qt::Key_Down, 1, 2);
  EXPECT_EQ(top(), 1);
  press(Qt::Key_End, 1, 120);
  press(Qt::Key_Up, 5, 115);
  EXPECT_EQ(top(), 105);
  press(Qt::Key_Down, 1, 116);
  press(Qt::Key_Up, 1, 115);
  EXPECT_EQ(top(), 105);

  const QPoint third(8, list->rowHeight(0) * 5 / 2);
  QTest::mousePress(list->viewport(), Qt::LeftButton, {}, third);
  EXPECT_EQ(top(), 105) << "nothing moves under the pointer";
  QTest::mouseMove(list->viewport(), third + QPoint(1, 1));
  QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, third);
  EXPECT_EQ(window_->Logic().Moves.Selected(), 107);
  EXPECT_EQ(list->selectionModel()->selectedRows().value(0).row() + 1, 107);
  EXPECT_EQ(top(), 97);
}

TEST_F(BoardWindowTest, TurningTheBoardMovesTheSquaresAndKeepsTheirNumbers) {
  for (const bool playsWhite : {true, false}) {
    SCOPED_TRACE(playsWhite ? "White" : "Black");
    Open(playsWhite ? std::vector<PlayedEntry>{} : std::vector<PlayedEntry>{{"5254", "e4"}},
         playsWhite);
    const QPoint a1 = Centre(11), h8 = Centre(88);
    EXPECT_EQ(a1.x() < h8.x() && a1.y() > h8.y(), playsWhite);
    EXPECT_EQ(Button(board::ViewButton)->text(), u"&View opponent"_s);
    Button(board::ViewButton)->click();
    EXPECT_EQ(Button(board::ViewButton)->text(), u"&View"_s);
    EXPECT_EQ(Centre(88), a1);
    EXPECT_EQ(SeenOn(18), ColourOfCell(17)) << "Black's rook on its light corner";
    if (playsWhite) {
      Key(Qt::Key_Return);  // e2
      Key(Qt::Key_Down, 2);
      Key(Qt::Key_Return);
    } else {
      Drag(57, 55);
    }
    EXPECT_EQ(LastMove(), playsWhite ? "e4" : "e5");
  }
}

TEST_F(BoardWindowTest, MenusOfferWhatTheButtonsDo) {
  Open({{"5254", "e4"}, {"5755", "e5"}});
  std::vector<int> clicked;
  const auto captions = [](const QMenu& menu) {
    QStringList texts;
    for (const QAction* action : menu.actions()) texts += action->text();
    return texts;
  };
  const auto menu =
      NewActionsMenu(window_->Logic(), [&](int button) { clicked.push_back(button); });
  EXPECT_EQ(captions(*menu), (QStringList{u"View from opponent"_s, u"Show coordinates"_s, u""_s,
                                          u"Undo current move"_s, u"Send new move"_s,
                                          u"Re-send last move"_s, u""_s, u"Close"_s}));
  for (QAction* action : menu->actions()) action->trigger();
  EXPECT_EQ(clicked,
            (std::vector<int>{board::ViewButton, board::CoordinatesButton, board::CloseButton}))
      << "and nothing that isn't offered";

  const HistoryActions history{[&] { clicked.push_back(0); },
                               [&](int row) { clicked.push_back(row); }};
  clicked.clear();
  const auto historyMenu = NewHistoryMenu(window_->Logic(), history);
  EXPECT_EQ(captions(*historyMenu),
            (QStringList{u"Remove hilight"_s, u""_s, u"First move"_s, u"Last move"_s}));
  for (QAction* action : historyMenu->actions()) action->trigger();
  EXPECT_EQ(clicked, (std::vector<int>{0, 1, 2}));
  Button(board::ViewButton)->click();
  Button(board::CoordinatesButton)->click();
  Click(44);
  EXPECT_EQ(captions(*NewActionsMenu(window_->Logic(), [](int) {})).first(), u"View from me"_s);
  EXPECT_EQ(captions(*NewHistoryMenu(window_->Logic(), history)).first(), u"Show hilight"_s);
}

TEST_F(BoardWindowTest, TheCommentTakesOneLineOfTwoHundredCharactersWithoutBars) {
  Open({});
  const auto paste = [this](const QString& text) {
    QApplication::clipboard()->setText(text);
    Comment()->paste();
  };
  QTest::keyClicks(Comment(), u"ab|c"_s);
  QTest::keyClick(Comment(), Qt::Key_Return);
  QTest::keyClick(Comment(), Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_EQ(Comment()->toPlainText(), u"abc"_s);
  paste(u"|ü\r\n<b>\nz|"_s);
  EXPECT_EQ(Comment()->toPlainText(), u"abcü <b> z"_s);
  EXPECT_EQ(window_->Logic().PlayerComment, "abcü <b> z");

  Comment()->clear();
  paste(u"ü"_s.repeated(150) + u"\U0001F600"_s.repeated(100));
  EXPECT_EQ(Comment()->toPlainText(), u"ü"_s.repeated(150) + u"\U0001F600"_s.repeated(50));
  QTest::keyClicks(Comment(), u"x"_s);
  EXPECT_TRUE(Comment()->toPlainText().endsWith(u"\U0001F600"_s)) << "the 201st character";
  Comment()->moveCursor(QTextCursor::Start);
  QTest::keyClicks(Comment(), u"x"_s);
  EXPECT_TRUE(Comment()->toPlainText().startsWith(u"ü"_s)) << "nothing falls off the end";
  Comment()->moveCursor(QTextCursor::Right, QTextCursor::KeepAnchor);
  QTest::keyClicks(Comment(), u"x"_s);
  EXPECT_TRUE(Comment()->toPlainText().startsWith(u"xü"_s)) << "in place of a selected one";
}

TEST_F(BoardWindowTest, ReservedTextInTheCommentIsCleanedOnLeavingTheBox) {
  Open({});
  Drag(52, 54);
  Comment()->setFocus();
  QTest::keyClicks(Comment(), u"hi <<TARVOLENIX: there"_s);
  QTest::keyClick(Comment(), Qt::Key_Tab);
  QCoreApplication::processEvents();
  EXPECT_EQ(desktop_.LastMessage().first, "Illegal characters");
  EXPECT_TRUE(Comment()->hasFocus());
  EXPECT_FALSE(Comment()->toPlainText().contains(u"TARVOLENIX:"_s));

  QTest::keyClicks(Comment(), u"<<TARVOLENIX:"_s);
  QTest::keyClick(window_, Qt::Key_S, Qt::AltModifier);
  Button(board::SendButton)->click();
  EXPECT_EQ(desktop_.boxes.messages.size(), 2U);
  ASSERT_TRUE(window_ && window_->isVisible()) << "nothing is sent before the user has seen it";
  EXPECT_TRUE(desktop_.mail.sent.empty());
}

TEST_F(BoardWindowTest, SendingSavesMailsAndCloses) {
  Open({});
  Drag(52, 54);
  Comment()->insertPlainText(u"Grüße"_s);
  Button(board::SendButton)->click();
  EXPECT_FALSE(window_->isVisible());
  window_->close();
  ASSERT_EQ(desktop_.mail.sent.size(), 1U);
  EXPECT_NE(desktop_.mail.sent.front().text.find("|e4|Grüße"), std::string::npos);
  EXPECT_EQ(std::count(desktop_.hooksCalled.begin(), desktop_.hooksCalled.end(), "boardClosed"), 1)
      << "however often it is closed";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window_.isNull());
}

TEST_F(BoardWindowTest, WhileAMailIsOnItsWayTheUserCannotAct) {
  Open({});
  Drag(52, 54);
  platform::TheDesktop().hooks.busyPointer = [this](bool busy) {
    if (!busy) return;
    EXPECT_FALSE(window_->isEnabled());
    window_->close();
    EXPECT_TRUE(window_->isVisible());
  };
  desktop_.mail.failing = {"Send"};
  Button(board::SendButton)->click();
  EXPECT_EQ(desktop_.LastMessage().first, "Transmission error.");
  EXPECT_FALSE(window_->isVisible()) << "the move is stored all the same";
}

TEST_F(BoardWindowTest, AGameThatCannotBeReadClosesItsWindowAtTheNextTick) {
  Open({});
  desktop_.files.content["/program/Data/Tvgdb.dat"] = "no game\r\n";
  delete window_;
  window_ = new BoardWindow(graphics_);
  EXPECT_EQ(desktop_.LastMessage().first, "Database error.");
  window_->show();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !window_; }));
}

TEST_F(BoardWindowTest, ToolTipsShowOnlyWhereTheyAreWanted) {
  for (const bool wanted : {true, false}) {
    platform::Settings().ShowToolTips = wanted;
    Open({});
    EXPECT_EQ(Button(board::UndoButton)->toolTip(),
              wanted ? u"UNDO - Reverse your last move"_s : QString());
    EXPECT_EQ(Comment()->toolTip(), wanted ? u"Type a comment here"_s : QString());
  }
}

TEST_F(BoardWindowTest, TheCurrentSquareIsDescribedToThoseWhoDoNotSeeIt) {
  Open({});
  EXPECT_EQ(Picture()->accessibleDescription(), u"e2, white pawn"_s);
  Key(Qt::Key_Up);
  EXPECT_EQ(Picture()->accessibleDescription(), u"e3"_s);
  Key(Qt::Key_Up, 5);
  EXPECT_EQ(Picture()->accessibleDescription(), u"e8, black king"_s);
}

}  // namespace
}  // namespace ui
