// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/temporary_folder.h"
#include "ui/board/board_window_fixture.h"
#include "ui/study/study_desk.h"

namespace ui {
namespace {

class StudyTest : public BoardWindowTest {
 protected:
  StudyTest() {
    Process().DataPath = folder_ / "";
    study_ = &desk_;
  }

  /// Tries moves: words are keys, of the board first. "play" and "back" leave.
  void Try(std::vector<Qt::Key> keys, const char* leave) {
    QTimer::singleShot(0, [&] {
      QWidget* form = QApplication::activeModalWidget();
      ASSERT_TRUE(form && form->objectName() == QLatin1StringView("TryForm"));
      EXPECT_FALSE(window_->isVisible());
      for (const Qt::Key key : keys) QTest::keyClick(form->windowHandle(), key);
      QTest::mouseClick(&ui::Find(*form, leave), Qt::LeftButton);
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
    Try(d4d5, "BackToGameButton");
    EXPECT_EQ(LastMove(), "e5");
    EXPECT_FALSE(Button(board::SendButton).isEnabled());
    EXPECT_EQ(desktop_.files.content, content);
    Try({Qt::Key_PageDown, Qt::Key_PageDown}, "PlayButton");  // the line was kept
    EXPECT_EQ(LastMove(), "d4");
    EXPECT_TRUE(Button(board::SendButton).isEnabled());
    EXPECT_TRUE(desktop_.mail.sent.empty());
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

}  // namespace
}  // namespace ui
