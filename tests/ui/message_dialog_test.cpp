// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QToolButton>

#include "ui/account_dialog.h"
#include "ui/exchange_pawn.h"
#include "ui/msg_form.h"
#include "ui/qt_message_boxes.h"
#include "ui_fixture.h"

namespace ui {
namespace {

using namespace Qt::StringLiterals;

using Action = std::function<void(QWidget& dialog)>;

Action Key(Qt::Key key) {
  return [key](QWidget& dialog) {
    QWidget* focused = dialog.focusWidget();
    QTest::keyClick(focused ? focused : &dialog, key);
  };
}

Action Click(const QString& name) {
  return [name](QWidget& dialog) {
    auto* button = dialog.findChild<QPushButton*>(name);
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

void CloseWindow(QWidget& dialog) { dialog.close(); }

struct AnswerCase {
  const char* name;
  const char* cancelCaption;
  Action action;
  int timeoutTicks;
  bool answer;
};

TEST(MsgFormTest, Answers) {
  const AnswerCase rows[] = {
      {"OK", "No", Click(u"OKButtonS"_s), 0, true},
      {"Cancel", "No", Click(u"CancelButtonS"_s), 0, false},
      {"Return is OK", "No", Key(Qt::Key_Return), 0, true},
      {"Escape is Cancel where it is offered", "No", Key(Qt::Key_Escape), 0, false},
      {"so is the window's close", "No", CloseWindow, 0, false},
      {"the one button", "", Click(u"OKButtonS"_s), 0, true},
      {"Return with one button", "", Key(Qt::Key_Return), 0, true},
      {"Escape with one button", "", Key(Qt::Key_Escape), 0, true},
      {"the window's close with one button", "", CloseWindow, 0, true},
      {"the third of three ticks declines", "No", Ticks(3), 3, false},
      {"a time-out declines with one button too", "", Ticks(1), 1, false},
  };
  QtMessageBoxes boxes;
  for (const AnswerCase& row : rows) {
    SCOPED_TRACE(row.name);
    OnNextDialog(row.action);
    EXPECT_EQ(boxes.Ask({1, "Title", "Text", "Yes", row.cancelCaption, row.timeoutTicks}),
              row.answer);
  }
}

TEST(MsgFormTest, TheTickerRunsOnlyWhereTheMessageTimesOut) {
  for (const int ticks : {0, 2}) {
    const MsgForm form({1, "Title", "Text", "OK", "", ticks});
    const auto* ticker = form.findChild<QTimer*>(u"TimeoutTicker"_s);
    EXPECT_EQ(ticker ? ticker->interval() : 0, ticks > 0 ? 30000 : 0);
  }
}

TEST(MsgFormTest, TextIsTextAndButtonsStandWhereTheyBelong) {
  for (const char* cancelCaption : {"", "No"}) {
    MsgForm form({5, "<i>Title</i>", "<b>bold</b> &amp; wörd\n\nthird", "Yes", cancelCaption, 0});
    form.show();
    EXPECT_EQ(form.findChild<QTextEdit*>(u"FormCaption"_s)->toPlainText(), u"<i>Title</i>"_s);
    EXPECT_EQ(form.findChild<QTextEdit*>(u"Message"_s)->toPlainText(),
              u"<b>bold</b> &amp; wörd\n\nthird"_s);
    const auto* ok = form.findChild<QPushButton*>(u"OKButtonS"_s);
    const auto* cancel = form.findChild<QPushButton*>(u"CancelButtonS"_s);
    ASSERT_EQ(cancel != nullptr, *cancelCaption != '\0');
    if (cancel) {
      EXPECT_LT(cancel->geometry().right(), ok->geometry().left());
    } else {
      EXPECT_NEAR(ok->geometry().center().x(), form.rect().center().x(), 1);
    }
  }
}

TEST(MsgFormTest, AWordWithoutEndWrapsAndALongTextStaysOnTheScreen) {
  MsgForm form({1, "Title", std::string(4000, 'W') + std::string(400, '\n'), "OK", "", 0});
  form.show();
  EXPECT_LT(form.width(), 700);
  EXPECT_LT(form.height(), form.screen()->availableGeometry().height());
}

TEST(MsgFormTest, TheBusyPointerComesBack) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  OnNextDialog([](QWidget& dialog) {
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    dialog.close();
  });
  QtMessageBoxes boxes;
  boxes.Ask({1, "Title", "Text", "OK", "", 0});
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  QApplication::restoreOverrideCursor();
}

TEST(StatusWindowTest, ComesChangesAndGoes) {
  const auto shown = [] {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == u"StatusWindow"_s && window->isVisible()) {
        return window->findChild<QLabel*>()->text();
      }
    }
    return QString();
  };
  QtMessageBoxes boxes;
  boxes.ShowStatus("Logging on...");
  EXPECT_EQ(shown(), u"Logging on..."_s);
  boxes.ShowStatus("Retrieving games...");
  EXPECT_EQ(shown(), u"Retrieving games..."_s);
  boxes.HideStatus();
  boxes.HideStatus();
  EXPECT_EQ(shown(), QString());
}

struct ChoiceCase {
  const char* name;
  Action action;
  rules::PieceCode white;
};

TEST(ExchangePawnTest, AChoiceIsTheOnlyExit) {
  const auto picture = [](const QString& name) -> Action {
    return [name](QWidget& dialog) {
      QTest::mouseClick(dialog.findChild<QToolButton*>(name), Qt::LeftButton);
    };
  };
  const auto second = [](Qt::Key key) -> Action {
    return [key](QWidget& dialog) {
      Key(Qt::Key_Right)(dialog);
      Key(Qt::Key_Right)(dialog);
      Key(key)(dialog);
    };
  };
  const ChoiceCase rows[] = {{"the first picture", picture(u"PieceButton0"_s), rules::WhiteRook},
                             {"the last picture", picture(u"PieceButton3"_s), rules::WhiteQueen},
                             {"R", Key(Qt::Key_R), rules::WhiteRook},
                             {"N", Key(Qt::Key_N), rules::WhiteKnight},
                             {"B", Key(Qt::Key_B), rules::WhiteBishop},
                             {"Q", Key(Qt::Key_Q), rules::WhiteQueen},
                             {"arrows and Enter", second(Qt::Key_Return), rules::WhiteKnight},
                             {"arrows and Space", second(Qt::Key_Space), rules::WhiteKnight}};
  const ChessGraphics graphics = ColouredGraphics();
  for (const ChoiceCase& row : rows) {
    for (const rules::Side side : {rules::White, rules::Black}) {
      SCOPED_TRACE(row.name);
      OnNextDialog([&row](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Pawn exchange..."_s);
        for (const Action& noExit :
             {Key(Qt::Key_Escape), Key(Qt::Key_Return), Action(CloseWindow)}) {
          noExit(dialog);
          ASSERT_TRUE(dialog.isVisible());
        }
        row.action(dialog);
      });
      EXPECT_EQ(ExchangePawn(graphics, side).Choose(), rules::OfSide(row.white, side));
    }
  }
}

TEST(AccountDialogTest, TakesWhatCannotHarmAMailAndWantsNameAndAddress) {
  const auto fits = [](const std::string& address) { return address == "anna@example.org"; };
  AccountDialog dialog({"root", "", "/post"}, fits);
  dialog.show();
  dialog.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
  const auto* ok = dialog.findChild<QPushButton*>(u"OkButton"_s);
  auto* name = dialog.findChild<QLineEdit*>(u"MyName"_s);
  auto* address = dialog.findChild<QLineEdit*>(u"MyAddress"_s);
  EXPECT_EQ(dialog.focusWidget(), name);
  QTest::keyClicks(name, u" A|nna M"_s);
  name->insert(u"ü|\nller "_s);
  for (const QString& unfit : {u""_s, u"   "_s, u"anna at home"_s}) {
    address->setText(unfit);
    EXPECT_FALSE(ok->isEnabled()) << unfit.toStdString();
  }
  address->clear();
  QTest::keyClicks(address, u" anna@example.org"_s);
  EXPECT_TRUE(ok->isEnabled());
  const AccountAnswer answer = dialog.Answer();
  EXPECT_EQ(answer.name, "Anna Mü ller");
  EXPECT_EQ(answer.address, "anna@example.org");
  EXPECT_EQ(answer.postFolder, "/post/");
  name->clear();
  EXPECT_FALSE(ok->isEnabled());
}

}  // namespace
}  // namespace ui
