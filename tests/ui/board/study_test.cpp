// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/temporary_folder.h"
#include "ui/board/board_picture.h"
#include "ui/board/board_window_fixture.h"
#include "ui/study/study_desk.h"

namespace ui {

using namespace Qt::StringLiterals;
namespace {

class StudyTest : public BoardWindowTest {
 protected:
  StudyTest() {
    Process().DataPath = folder_ / "";
    study_ = &desk_;
  }

  /// Tries moves by keys, of the board first, and leaves by a button or, without one, by Escape.
  void Try(std::vector<Qt::Key> keys, const char* leave) {
    Try([&](QWidget& form) {
      for (const Qt::Key key : keys) QTest::keyClick(form.windowHandle(), key);
      if (leave) QTest::mouseClick(&ui::Find(form, leave), Qt::LeftButton);
      if (!leave) QTest::keyClick(form.windowHandle(), Qt::Key_Escape);
      EXPECT_FALSE(form.isVisible());
    });
  }
  void Try(const Action& work) {
    OnNextDialog([&](QWidget& form) {
      ASSERT_EQ(form.objectName().toStdString(), "TryForm");
      EXPECT_FALSE(window_->isVisible());
      work(form);
    });
    QTest::keyClick(window_.data(), Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
  }

  TemporaryFolder folder_;
  StudyDesk desk_{graphics_};
};

/// The cursor begins on e2.
const std::vector<Qt::Key> d4d5{Qt::Key_Left,  Qt::Key_Enter, Qt::Key_Up,   Qt::Key_Up,
                                Qt::Key_Enter, Qt::Key_Up,    Qt::Key_Up,   Qt::Key_Up,
                                Qt::Key_Enter, Qt::Key_Down,  Qt::Key_Down, Qt::Key_Enter};

TEST_F(StudyTest, TriedMovesStayOutOfTheGameUntilTheFirstOfThemIsPlayed) {
  for (const Look look : {Look::Plain, Look::Skinned}) {
    Open({{"5254", "e4"}, {"5755", "e5"}}, look);
    const auto content = desktop_.files.content;
    Try(d4d5, look == Look::Plain ? nullptr : "BackToGameButton");
    EXPECT_EQ(LastMove(), "e5");
    EXPECT_FALSE(Button(board::SendButton).isEnabled());
    EXPECT_EQ(desktop_.files.content, content);
    Try({Qt::Key_PageDown, Qt::Key_PageDown}, "PlayButton");  // the line was kept
    EXPECT_EQ(LastMove(), "d4");
    EXPECT_TRUE(Button(board::SendButton).isEnabled());
    EXPECT_TRUE(desktop_.mail.sent.empty());
  }
}

TEST_F(StudyTest, APieceInTheHandIsLetGoWhenItsPositionGoes) {
  Open({{"5254", "e4"}, {"5755", "e5"}, {"7163", "Nf3"}, {"8776", "h6"}});
  const std::vector<Qt::Key> knightThenBack{Qt::Key_Right,  Qt::Key_Up,     Qt::Key_Enter,
                                            Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_Up,
                                            Qt::Key_Enter};
  Try(knightThenBack, "BackToGameButton");
  EXPECT_EQ(LastMove(), "h6");
}

const std::vector<PlayedEntry> beforePromotion{{"5254", "e4"},   {"4745", "d5"},   {"5445", "exd5"},
                                               {"3736", "c6"},   {"4536", "dxc6"}, {"7866", "Nf6"},
                                               {"3627", "cxb7"}, {"1716", "a6"}};

TEST_F(StudyTest, APromotionIsAskedForOnceAndPlayedAsTried) {
  for (const bool drags : {true, false}) {
    Open(beforePromotion);
    Try([&](QWidget& form) {
      auto& board = *form.findChild<BoardPicture*>();
      const auto at = [&board](rules::Square square) {
        return board.RectOf(square).center().toPoint();
      };
      QTest::mousePress(&board, Qt::LeftButton, {}, at({2, 7}));
      if (!drags) QTest::mouseRelease(&board, Qt::LeftButton, {}, at({2, 7}));
      OnNextDialog([](QWidget& choice) { QTest::keyClick(&choice, Qt::Key_N); });
      if (!drags) QTest::mousePress(&board, Qt::LeftButton, {}, at({1, 8}));
      if (drags) QTest::mouseRelease(&board, Qt::LeftButton, {}, at({1, 8}));
      QTest::mouseClick(&ui::Find(form, "PlayButton"), Qt::LeftButton);
    });
    EXPECT_EQ(LastMove(), "bxa8=N");
  }
}

TEST_F(StudyTest, ATriedMoveIsExplainedOnItsBoardWhereThatIsFair) {
  const std::vector<Qt::Key> d4(d4d5.begin(), d4d5.begin() + 5);
  for (const bool tries : {false, true}) {
    platform::Settings().WhyInMailGames = false;
    Open({{"5254", "e4"}, {"5755", "e5"}});
    Try([&](QWidget& form) {
      for (const Qt::Key key : tries ? d4 : std::vector<Qt::Key>{}) {
        QTest::keyClick(form.windowHandle(), key);
      }
      const auto ask = [&form] { QTest::keyClick(&form, Qt::Key_Y, Qt::ControlModifier); };
      const auto seen = [board = form.findChild<BoardPicture*>()] {
        board->MoveCursor(board->Cursor(), false);  // its ring comes and goes with the focus
        return board->grab().toImage();
      };
      ask();
      ASSERT_EQ(desktop_.boxes.messages.size(), 1U);
      platform::Settings().WhyInMailGames = true;
      auto& floating = *form.findChild<FloatingPiece*>();
      EXPECT_TRUE(QTest::qWaitFor([&floating] { return !floating.IsSettling(); }));
      const QImage before = seen();
      OnNextDialog([&](QWidget& why) {
        auto& moves = ui::Find<QTableWidget>(why, "BestMoves");
        EXPECT_TRUE(QTest::qWaitFor([&] { return moves.rowCount() == (tries ? 6 : 5); }));
        EXPECT_EQ(moves.item(0, 0)->text() == u"Tried", tries);
        EXPECT_NE(seen(), before) << "no arrow";
        QTest::keyClick(&moves, Qt::Key_Escape);
      });
      ask();
      EXPECT_EQ(seen(), before);
      QTest::keyClick(&form, Qt::Key_Escape);
    });
  }
}

TEST_F(StudyTest, ANoteIsSeenBesideTheBoardAndOnlyOnItsPosition) {
  Open({{"5254", "e4"}, {"5755", "e5"}});
  EXPECT_FALSE(Shows("NoteMark"));
  QTest::keyClick(window_.data(), Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
  Find<QPlainTextEdit>("PositionNote").setPlainText(QStringLiteral("hold <e5>\nor lose"));
  EXPECT_EQ(Find<QAbstractButton>("NoteMark").accessibleName().toStdString(),
            "Note: hold <e5> or lose");
  ChooseEntry(0);
  EXPECT_FALSE(Shows("NoteMark"));
  EXPECT_EQ(Find<QPlainTextEdit>("PositionNote").toPlainText().toStdString(), "");
  Find<QPlainTextEdit>("GameNote").insertPlainText(QString(10050, u'x'));
  EXPECT_EQ(Find<QPlainTextEdit>("GameNote").toPlainText().size(), 10000);
  EXPECT_TRUE(Shows("NoteMark"));
}

TEST_F(StudyTest, WhatCannotBeReadOrKeptWaitsForItsFileUnderTheNameOfItsGame) {
  const auto note = [this]() -> QPlainTextEdit& {
    QTest::keyClick(window_.data(), Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    return Find<QPlainTextEdit>("GameNote");
  };
  Open({{"5254", "e4"}, {"5755", "e5"}});
  StoreGame(2, store::MoveWaiting, "Eva", {{"5254", "e4"}, {"5755", "e5"}});
  const auto go = [this](int game) { OpenGame(game, Look::Plain); };
  for (const int game : {2, 1}) {
    go(game);
    note().setPlainText(QString(u"old %1"_s).arg(game));
  }
  go(1);
  desktop_.files.content[study::NotesPath()] = "is on the disk";
  auto other = std::make_unique<study::NotesDatabase>(study::NotesPath(), false);
  other->Run("BEGIN EXCLUSIVE");
  note().setPlainText(u"newer"_s);
  for (const auto& [game, shown] : {std::pair{2, ""}, std::pair{1, "newer"}}) {
    go(game);
    EXPECT_TRUE(note().isReadOnly());
    EXPECT_EQ(note().toPlainText().toStdString(), shown);
  }
  other.reset();
  ChooseEntry(0);  // reads again
  note().insertPlainText(u"still "_s);
  for (const auto& [game, shown] : {std::pair{2, "old 2"}, std::pair{1, "still newer"}}) {
    go(game);
    EXPECT_EQ(note().toPlainText().toStdString(), shown);
  }
}

}  // namespace
}  // namespace ui
