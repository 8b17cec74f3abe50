// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QLineEdit>
#include <QTextEdit>

#include "skin_fixture.h"
#include "ui/board/exchange_pawn.h"
#include "ui/program/msg_form.h"
#include "ui/program/qt_message_boxes.h"

namespace ui {
namespace {

using Action = std::function<void(QWidget& dialog)>;

Action Key(Qt::Key key) {
  return [key](QWidget& dialog) {
    QWidget* focused = dialog.focusWidget();
    QTest::keyClick(focused ? focused : &dialog, key);
  };
}

/// One of the button's names, which differ by the look.
Action Click(const QString& name, const QString& plainName) {
  return [=](QWidget& dialog) {
    const bool simple = platform::Settings().SimpleUI;
    auto* button = dialog.findChild<QAbstractButton*>(simple ? plainName : name);
    ASSERT_NE(button, nullptr);
    QTest::mouseClick(button, Qt::LeftButton);
  };
}

Action Ticks(int count) {
  return [count](QWidget& dialog) {
    for (int i = 0; i < count; ++i) {
      ASSERT_TRUE(dialog.isVisible()) << "gone before tick " << i + 1;
      static_cast<MsgForm&>(dialog).Tick();
    }
  };
}

void ReturnInTheWindow(QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); }

void CloseWindow(QWidget& dialog) { dialog.close(); }

struct AnswerCase {
  const char* name;
  const char* cancelCaption;
  Action action;
  int timeoutTicks;
  bool answer;
};

using MsgFormTest = SkinTest;
using ExchangePawnTest = SkinTest;

TEST_F(MsgFormTest, Answers) {
  const AnswerCase rows[] = {
      {"OK", "No", Click(u"OkButton"_s, u"OKButtonS"_s), 0, true},
      {"Cancel", "No", Click(u"CancelButton"_s, u"CancelButtonS"_s), 0, false},
      {"Return is OK", "No", Key(Qt::Key_Return), 0, true},
      {"wherever the keyboard is", "No", ReturnInTheWindow, 0, true},
      {"Escape is Cancel where it is offered", "No", Key(Qt::Key_Escape), 0, false},
      {"so is the window's close", "No", CloseWindow, 0, false},
      {"Escape with one button", "", Key(Qt::Key_Escape), 0, true},
      {"the window's close with one button", "", CloseWindow, 0, true},
      {"the third of three ticks declines", "No", Ticks(3), 3, false},
      {"a time-out declines with one button too", "", Ticks(1), 1, false},
  };
  QtMessageBoxes boxes;
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const AnswerCase& row : rows) {
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
  EXPECT_EQ(form.findChild<QTextEdit*>(u"FormCaption"_s)->toPlainText(), u"<i>Title</i>"_s);
  EXPECT_EQ(form.findChild<QTextEdit*>(u"Message"_s)->toPlainText(),
            u"<b>bold</b> &amp; wörd\n\nthird"_s);
}

TEST_F(ExchangePawnTest, AChoiceIsTheOnlyExit) {
  const Action first = [](QWidget& dialog) {
    QTest::mouseClick(dialog.findChild<QAbstractButton*>(u"PieceButton0"_s), Qt::LeftButton);
  };
  const Action second = [](QWidget& dialog) {
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Return}) Key(key)(dialog);
  };
  const std::tuple<const char*, Action, rules::PieceCode> rows[] = {
      {"the first picture", first, rules::WhiteRook},
      {"R", Key(Qt::Key_R), rules::WhiteRook},
      {"N", Key(Qt::Key_N), rules::WhiteKnight},
      {"B", Key(Qt::Key_B), rules::WhiteBishop},
      {"Q", Key(Qt::Key_Q), rules::WhiteQueen},
      {"arrows and Enter", second, rules::WhiteKnight}};
  const ChessGraphics graphics = ColouredGraphics();
  for (const auto& [name, action, white] : rows) {
    for (const rules::Side side : {rules::White, rules::Black}) {
      SCOPED_TRACE(name);
      platform::Settings().SimpleUI = side == rules::White;
      OnNextDialog([&choose = action](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Pawn exchange..."_s);
        for (const Action& noExit :
             {Key(Qt::Key_Escape), Key(Qt::Key_Return), Action(CloseWindow)}) {
          noExit(dialog);
          ASSERT_TRUE(dialog.isVisible());
        }
        choose(dialog);
      });
      EXPECT_EQ(ExchangePawn(graphics, side).Choose(), rules::OfSide(white, side));
    }
  }
}

}  // namespace
}  // namespace ui
