// SPDX-License-Identifier: GPL-3.0-or-later
// What the Board window shows and offers beside the moving of pieces.
#include <QAction>
#include <QClipboard>
#include <QTextEdit>

#include <algorithm>

#include "board/controls.h"
#include "board_window_fixture.h"
#include "ui/board/board_menus.h"

namespace ui {
namespace {

constexpr const char* e2e4 = "click 52 click 54";

struct StateCase {
  const char* name;
  std::vector<PlayedEntry> entries;
  bool offline;
  const char* gestures;
  const char* turn;
  std::vector<bool> enabled;  ///< undo, send, resend, comment
  const char* closeCaption;
};

TEST_F(BoardWindowTest, TheControlsFollowTheStateOfTheTurn) {
  const PlayedEntry e4{"5254", "e4"}, e5{"5755", "e5"};
  const char *own = "your move", *evas = "Eva <i>Ü</i>'s move";
  const StateCase rows[] = {
      {"the user's turn", {e4, e5}, false, "", own, {false, false, false, true}, "&Cancel"},
      {"moved, not sent", {}, false, e2e4, own, {true, true, false, true}, "&Cancel"},
      {"waiting", {e4}, false, "", evas, {false, false, true, false}, "&Close"},
      {"offline", {e4, e5}, true, "", evas, {false, false, false, false}, "&Close"},
  };
  for (const StateCase& row : rows) {
    SCOPED_TRACE(row.name);
    Process().Offline = row.offline;
    Open(row.entries);
    Do(row.gestures);
    EXPECT_EQ(window_->windowTitle(), u"Tarvolenix - Awaiting "_s + QString::fromUtf8(row.turn));
    EXPECT_EQ(Button(board::CloseButton)->text(), QLatin1StringView(row.closeCaption));
    EXPECT_EQ(Find<QTextEdit>("PlayersTag")->toPlainText(), u"You are playing Eva <i>Ü</i>"_s);
    std::vector<int> offered;
    const auto menu =
        NewActionsMenu(window_->Logic(), {[&](int button) { offered.push_back(button); }, [] {}});
    for (QAction* action : menu->actions()) action->trigger();
    const int buttons[] = {board::UndoButton, board::SendButton, board::ResendButton};
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(Button(buttons[i])->isEnabled(), row.enabled[i]) << i;
      EXPECT_EQ(std::count(offered.begin(), offered.end(), buttons[i]), row.enabled[i]) << i;
    }
    EXPECT_EQ(Comment()->isEnabled(), row.enabled[3]);
  }
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
  paste(u"|ü\r\n<b>\nz|"_s);
  EXPECT_EQ(Comment()->toPlainText(), u"abcü <b> z"_s);
  EXPECT_EQ(window_->Logic().PlayerComment, "abcü <b> z");

  Comment()->clear();
  paste(u"ü"_s.repeated(150) + u"\U0001F600"_s.repeated(100));
  const QString full = u"ü"_s.repeated(150) + u"\U0001F600"_s.repeated(50);
  EXPECT_EQ(Comment()->toPlainText(), full);
  QTest::keyClicks(Comment(), u"x"_s);
  Comment()->moveCursor(QTextCursor::Start);
  QTest::keyClicks(Comment(), u"x"_s);
  EXPECT_EQ(Comment()->toPlainText(), full) << "nothing falls off the end";
  Comment()->moveCursor(QTextCursor::Right, QTextCursor::KeepAnchor);
  QTest::keyClicks(Comment(), u"x"_s);
  EXPECT_EQ(Comment()->toPlainText(), u"x"_s + full.mid(1)) << "in place of a selected one";
}

TEST_F(BoardWindowTest, ReservedTextInTheCommentIsCleanedOnLeavingTheBox) {
  Open({});
  Do(e2e4);
  Comment()->setFocus();
  QTest::keyClicks(Comment(), u"hi <<TARVOLENIX: there"_s);
  QTest::keyClick(Comment(), Qt::Key_Tab);
  QCoreApplication::processEvents();
  EXPECT_EQ(desktop_.LastMessage().first, "Illegal characters");
  EXPECT_TRUE(Comment()->hasFocus());
  EXPECT_FALSE(Comment()->toPlainText().contains(u"TARVOLENIX:"_s));

  QTest::keyClicks(Comment(), u"<<TARVOLENIX:"_s);
  Button(board::SendButton)->click();
  EXPECT_EQ(desktop_.boxes.messages.size(), 2U);
  ASSERT_TRUE(window_ && window_->isVisible()) << "nothing is sent before the user has seen it";
  EXPECT_TRUE(desktop_.mail.sent.empty());
}

TEST_F(BoardWindowTest, SendingSavesMailsAndClosesOnce) {
  Open({});
  Do(e2e4);
  Comment()->insertPlainText(u"Grüße"_s);
  bool waited = false;
  platform::TheDesktop().hooks.busyPointer = [&](bool busy) {
    if (!busy || waited) return;
    waited = true;
    window_->close();
    EXPECT_TRUE(window_->isVisible() && !window_->isEnabled()) << "the user cannot act";
  };
  Button(board::SendButton)->click();
  EXPECT_TRUE(waited);
  EXPECT_FALSE(window_->isVisible());
  window_->close();
  ASSERT_EQ(desktop_.mail.sent.size(), 1U);
  EXPECT_NE(desktop_.mail.sent.front().text.find("|e4|Grüße"), std::string::npos);
  EXPECT_EQ(std::count(desktop_.hooksCalled.begin(), desktop_.hooksCalled.end(), "boardClosed"), 1)
      << "however often it is closed";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window_.isNull());
}

TEST_F(BoardWindowTest, AGameThatCannotBeReadClosesItsWindowAtTheNextTick) {
  Process().CurrentGameID = 1;
  desktop_.files.content["/program/Data/Tvgdb.dat"] = "no game\r\n";
  window_ = new BoardWindow(graphics_);
  EXPECT_EQ(desktop_.LastMessage().first, "Database error.");
  window_->show();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !window_; }));
}

}  // namespace
}  // namespace ui
