// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTextEdit>

#include "ui/board/exchange_pawn.h"
#include "ui/program/msg_form.h"
#include "ui/program/qt_message_boxes.h"
#include "ui/skin_fixture.h"

namespace ui {
namespace {

using MsgFormTest = SkinTest;
using ExchangePawnTest = SkinTest;

void ReturnInTheWindow(QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); }

TEST_F(MsgFormTest, Answers) {
  const struct {
    const char* name;
    const char* cancelCaption;
    Action action;
    int timeoutTicks;
    bool answer;
  } rows[] = {
      {"OK", "No", Click("OkButton"), 0, true},
      {"Cancel", "No", Click("CancelButton"), 0, false},
      {"Return is OK", "No", ReturnInTheWindow, 0, true},
      {"Escape is Cancel where it is offered", "No", Key(Qt::Key_Escape), 0, false},
      {"so is the window's close", "No", CloseWindow, 0, false},
      {"Escape with one button", "", Key(Qt::Key_Escape), 0, true},
      {"the third of three ticks declines", "No", Ticks<MsgForm>(3), 3, false},
      {"a time-out declines with one button too", "", Ticks<MsgForm>(1), 1, false},
  };
  QtMessageBoxes boxes;
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const auto& row : rows) {
      SCOPED_TRACE(row.name);
      OnNextDialog(row.action);
      EXPECT_EQ(boxes.Ask({1, "Title", "Text", "Yes", row.cancelCaption, row.timeoutTicks}),
                row.answer);
    }
  }
}

TEST_F(MsgFormTest, TheTickerRunsOnlyWhereTheMessageTimesOut) {
  for (const int ticks : {0, 2}) {
    const MsgForm form({1, "Title", "Text", "OK", "", ticks});
    const auto* ticker = form.findChild<QTimer*>(u"TimeoutTicker"_s);
    EXPECT_EQ(ticker ? ticker->interval() : 0, ticks > 0 ? 30000 : 0);
  }
}

TEST_F(MsgFormTest, TextIsText) {
  const MsgForm form({5, "<i>Title</i>", "<b>bold</b> &amp; wörd\n\nthird", "Yes", "", 0});
  EXPECT_EQ(Find<QTextEdit>(form, "FormCaption").toPlainText(), u"<i>Title</i>"_s);
  EXPECT_EQ(Find<QTextEdit>(form, "Message").toPlainText(), u"<b>bold</b> &amp; wörd\n\nthird"_s);
}

TEST_F(ExchangePawnTest, AChoiceIsTheOnlyExit) {
  const Action byArrows = [](QWidget& dialog) {
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Left, Qt::Key_Return}) Key(key)(dialog);
  };
  const std::tuple<Action, rules::Side, rules::PieceCode> rows[] = {
      {Click("PieceButton0"), rules::White, rules::WhiteRook},
      {Key(Qt::Key_N), rules::Black, rules::BlackKnight},
      {Key(Qt::Key_B), rules::White, rules::WhiteBishop},
      {Key(Qt::Key_Q), rules::Black, rules::BlackQueen},
      {Key(Qt::Key_Return), rules::White, rules::WhiteQueen},
      {byArrows, rules::White, rules::WhiteKnight}};
  const boards::ChessGraphics graphics = ColouredGraphics();
  for (const auto& [action, side, piece] : rows) {
    SCOPED_TRACE(piece);
    OnNextDialog([&choose = action](QWidget& dialog) {
      for (const Action& noExit : {Key(Qt::Key_Escape), Action(CloseWindow)}) {
        noExit(dialog);
        ASSERT_TRUE(dialog.isVisible());
      }
      choose(dialog);
    });
    EXPECT_EQ(ExchangePawn(graphics, side).Choose(), piece);
  }
}

}  // namespace
}  // namespace ui
