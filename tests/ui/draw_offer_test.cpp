// SPDX-License-Identifier: GPL-3.0-or-later
// What the Board window offers beside moves, in both looks: a draw and its answer, a surrender, and
// the question whether an odd position shall be played.
#include <QAbstractButton>
#include <QMenu>
#include <QPointer>
#include <QTableWidget>
#include <QTextEdit>

#include "board/controls.h"
#include "rules/position.h"
#include "skin_fixture.h"
#include "store/queries.h"
#include "ui/board/board_window.h"

namespace ui {
namespace {

const PlayedEntry e4{"5254", "e4"}, e5{"5755", "e5"};
const PlayedEntry evasOffer{"5858", "Draw offer"}, ownOffer{"5151", "Draw offer"};

using Action = std::function<void()>;

class DrawOfferTest : public SkinTest {
 protected:
  ~DrawOfferTest() override { delete window_; }

  void Open(const std::vector<PlayedEntry>& entries) {
    desktop_.files.content.clear();
    desktop_.mail.sent.clear();
    StoreGame(1, store::MoveWaiting, "Eva", entries);
    Process().CurrentGameID = 1;
    OpenWindow();
  }

  void OpenWindow() {
    delete window_;
    Process().Offline = false;
    window_ = new BoardWindow(graphics_);
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_));
  }

  /// By its name in the skin, which the plain look makes its own.
  QAbstractButton& Button(QString name) const {
    if (platform::Settings().SimpleUI) {
      name = name.startsWith(u"Toolbar1"_s) ? name.replace(u"Toolbar1"_s, u"Toolbar1S"_s)
                                            : name + u'S';
    }
    auto* button = window_->findChild<QAbstractButton*>(name);
    EXPECT_NE(button, nullptr) << name.toStdString();
    return *button;
  }
  QAbstractButton& Undo() const { return Button(u"Toolbar1_3"_s); }
  QAbstractButton& Send() const { return Button(u"Toolbar1_4"_s); }

  static void Click(QAbstractButton& button) { QTest::mouseClick(&button, Qt::LeftButton); }

  /// Takes an entry of the menu of actions, which the user opens in the way of the look.
  void ChooseAction(const QString& caption) {
    QTimer::singleShot(0, window_, [caption] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      for (QAction* action : menu->actions()) {
        if (action->text() != caption) continue;
        EXPECT_TRUE(action->isEnabled());
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
      }
      menu->close();
    });
    if (platform::Settings().SimpleUI) {
      auto* picture = window_->findChild<QWidget*>(u"CBoard"_s);
      Q_EMIT picture->customContextMenuRequested(picture->rect().center());
    } else {
      QTest::mousePress(&Button(u"Menu1Button"_s), Qt::LeftButton);
    }
  }

  /// Whether both buttons of an answer are there, or neither.
  bool IsAsked() const {
    const bool asked = Button(u"AcceptDraw"_s).isVisible();
    EXPECT_EQ(Button(u"DeclineDraw"_s).isVisible(), asked);
    return asked;
  }

  /// Sends the pending entry; what is in the mail and in the store then.
  void ExpectSent(const std::string& text, const std::string& comment, std::int16_t status) {
    Click(Send());
    EXPECT_FALSE(window_ && window_->isVisible());
    ASSERT_EQ(desktop_.mail.sent.size(), 1U);
    EXPECT_NE(desktop_.mail.sent.front().text.find('|' + text + '|' + comment), std::string::npos)
        << desktop_.mail.sent.front().text;
    store::GameRecords games;
    store::MoveRecords moves;
    ASSERT_TRUE(store::SelectGames(games, "Game_ID;1") && store::SelectMoves(moves, 1));
    EXPECT_EQ(games.front().GAME_STATUS, status);
    EXPECT_EQ(moves.back().MoveText, text);
    EXPECT_EQ(moves.back().MoveComment, comment);
  }

  const ChessGraphics graphics_ = ColouredGraphics();
  QPointer<BoardWindow> window_;
};

TEST_F(DrawOfferTest, AnOfferIsAnsweredByItsButtonsAndTheAnswerCanBeTakenBack) {
  const struct {
    const char* button;
    const char* otherButton;
    const char* entry;
    std::int16_t status;
  } rows[] = {{"AcceptDraw", "DeclineDraw", "1/2-1/2", store::GameDrawn},
              {"DeclineDraw", "AcceptDraw", "Decline", store::DrawOfferSent}};
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const auto& row : rows) {
      SCOPED_TRACE(row.entry);
      Open({e4, evasOffer});
      ASSERT_TRUE(IsAsked());
      EXPECT_FALSE(Send().isEnabled()) << "before an answer is given";
      Click(Button(QLatin1StringView(row.otherButton)));
      EXPECT_FALSE(IsAsked());
      Click(Undo());
      ASSERT_TRUE(IsAsked());
      EXPECT_FALSE(Send().isEnabled());
      Button(QLatin1StringView(row.button)).setFocus();
      QTest::keyClick(window_->focusWidget(), Qt::Key_Return);
      EXPECT_FALSE(IsAsked());
      ExpectSent(row.entry, "", row.status);
    }
  }
}

TEST_F(DrawOfferTest, TheButtonsAndTheSignComeOnlyWithAnOfferOfTheOpponents) {
  const auto choose = [this](int row) {
    auto* list = window_->findChild<QTableWidget*>(u"MoveList"_s);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row, 2)).center());
  };
  const struct {
    const char* name;
    std::vector<PlayedEntry> entries;
    Action action;
    bool asked, sign;
  } rows[] = {
      {"a move", {e4, e5}, [] {}, false, false},
      {"an offer", {e4, evasOffer}, [] {}, true, true},
      {"his own offer", {e4, e5, ownOffer}, [] {}, false, false},
      {"an offer that was declined", {e4, evasOffer, {"5151", "Decline"}}, [] {}, false, false},
      {"he looks at an earlier move", {e4, evasOffer}, [&] { choose(0); }, false, true},
      {"and comes back",
       {e4, evasOffer},
       [&] {
         choose(0);
         choose(1);
       },
       true,
       true},
  };
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const auto& row : rows) {
      SCOPED_TRACE(row.name);
      Open(row.entries);
      row.action();
      EXPECT_EQ(IsAsked(), row.asked);
      if (simple) continue;
      EXPECT_EQ(window_->findChild<QWidget*>(u"DrawLogo"_s)->isVisible(), row.sign);
      EXPECT_EQ(window_->findChild<QWidget*>(u"TVLogo"_s)->isVisible(), !row.sign);
    }
  }
}

TEST_F(DrawOfferTest, TheUserOffersADrawOrSurrenders) {
  const auto fromMenu = [this](const QString& caption) {
    return [this, caption] { ChooseAction(caption); };
  };
  const struct {
    const char* name;
    Action action;
    const char* entry;
    std::int16_t status;
    bool inSkinOnly;
  } rows[] = {
      {"offer", fromMenu(u"Offer a draw"_s), "Draw offer", store::DrawOfferSent, false},
      {"surrender", fromMenu(u"Surrender game"_s), "0-1", store::GameLost, false},
      {"by the button", [this] { Click(Button(u"Toolbar1_6"_s)); }, "0-1", store::GameLost, true},
  };
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const auto& row : rows) {
      if (simple && row.inSkinOnly) continue;
      SCOPED_TRACE(row.name);
      Open({e4, e5});
      QTest::keyClicks(window_->findChild<QWidget*>(u"PlayerComment"_s), u"Thank you"_s);
      row.action();
      EXPECT_EQ(window_->Logic().Moves.Last().MoveText, row.entry);
      EXPECT_FALSE(board::Controls(window_->Logic()).surrender) << "one such entry is enough";
      Click(Undo());
      EXPECT_EQ(window_->Logic().Moves.Last().MoveText, "e5");
      row.action();
      ExpectSent(row.entry, "Thank you", row.status);
    }
  }
}

TEST_F(DrawOfferTest, AnOddPositionIsPlayedOnlyWhereTheUserAgrees) {
  const auto press = [](Qt::Key key) {
    return [key](QWidget& dialog) { QTest::keyClick(dialog.focusWidget(), key); };
  };
  const auto click = [](const QString& name, const QString& plainName) {
    return [=](QWidget& dialog) {
      const bool simple = platform::Settings().SimpleUI;
      Click(*dialog.findChild<QAbstractButton*>(simple ? plainName : name));
    };
  };
  const struct {
    const char* name;
    std::function<void(QWidget& dialog)> answer;
    bool played;
  } rows[] = {
      {"OK", click(u"OkButton"_s, u"OKButtonS"_s), true},
      {"Return is OK", press(Qt::Key_Return), true},
      {"wherever the keyboard is", [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Enter); },
       true},
      {"Cancel", click(u"CancelButton"_s, u"CancelButtonS"_s), false},
      {"Return on Cancel",
       [&](QWidget& dialog) {
         QTest::keyClick(dialog.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
         press(Qt::Key_Return)(dialog);
       },
       false},
      {"Escape is Cancel", press(Qt::Key_Escape), false},
      {"so is the window's close", [](QWidget& dialog) { dialog.close(); }, false},
  };
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    for (const auto& row : rows) {
      SCOPED_TRACE(row.name);
      Process().CurrentGameID = -1;
      Process().SetupGame = true;
      OpenWindow();
      rules::ThePosition().BoardState.Put({5, 3}, rules::WhitePawn);
      OnNextDialog([&answer = row.answer](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QTextEdit*>(u"WarningMessage"_s)->toPlainText(),
                  u"White warnings\n      To many pawns"_s);
        answer(dialog);
        EXPECT_FALSE(dialog.isVisible());
        dialog.close();
      });
      Click(Button(u"Toolbar1_6"_s));
      EXPECT_EQ(Process().BoardSetupMode, !row.played);
    }
  }
}

}  // namespace
}  // namespace ui
