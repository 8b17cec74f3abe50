// SPDX-License-Identifier: GPL-3.0-or-later
// The ways in which a user moves a piece on the Board window.
#include "ui/board/board_window_fixture.h"

namespace ui {
namespace {

using MovingTest = BoardWindowTest;

struct GestureCase {
  const char* name;
  const char* gestures;
};

TEST_F(MovingTest, EveryWayOfMovingAPieceGivesTheSameMove) {
  const GestureCase rows[] = {
      {"dragging", "drag 52 54"},
      {"clicking the piece and its target", "click 52 click 54"},
      {"selecting another piece first", "click 71 click 52 click 54"},
      {"dragging a piece that was selected", "click 52 drag 52 54"},
      {"the keyboard, which begins on e2", "return up up space"},
      {"past the edge of the board",
       "up down left left left left left right right right right "
       "enter up up enter"},
      {"clicking the piece and Enter on its target", "click 52 up up enter"},
  };
  for (const GestureCase& row : rows) {
    SCOPED_TRACE(row.name);
    Open({});
    Do(row.gestures);
    EXPECT_EQ(LastMove(), "e4");
    EXPECT_EQ(SeenOn(52), ColourOfCell(16)) << "a light square, empty";
    EXPECT_EQ(SeenOn(54), ColourOfCell(6)) << "a white pawn on a light square";
    EXPECT_EQ(Heard().back(), '4');
    EXPECT_TRUE(desktop_.boxes.messages.empty());
    EXPECT_EQ(Find<QTableWidget>("MoveList").item(0, 2)->text(), u"e4"_s);
    Click(board::UndoButton);
    EXPECT_EQ(SeenOn(52), ColourOfCell(6)) << "and back again";
  }
}

TEST_F(MovingTest, ARefusedMovePutsThePieceBackAndTellsWhy) {
  const GestureCase rows[] = {
      {"dragged too far", "drag 52 55"},
      {"dropped beside the board", "drag 52 frame"},
      {"clicked too far", "click 52 click 55"},
      {"lifted an opponent's piece", "click 57"},
  };
  for (const GestureCase& row : rows) {
    SCOPED_TRACE(row.name);
    Open({});
    const QImage before = Seen();
    Do(row.gestures);
    EXPECT_TRUE(Seen() == before);
    EXPECT_EQ(desktop_.boxes.messages.size(), 1U);
    EXPECT_FALSE(desktop_.LastMessage().second.empty());
    EXPECT_EQ(Game().Moves.Count(), 0);
  }
}

TEST_F(MovingTest, AQuietRefusalIsALineUntilTheUserDoesSomethingElse) {
  platform::Settings().Verbose = false;
  Open({});
  Do("drag 52 55");
  EXPECT_TRUE(Find<QTextEdit>("OpponentComment").toPlainText().startsWith(u"The Pawn can only"_s));
  EXPECT_TRUE(desktop_.boxes.messages.empty());
  Do("up");
  EXPECT_EQ(Find<QTextEdit>("OpponentComment").toPlainText(), QString());
  Do("drag 52 55 drag 52 54");
  EXPECT_EQ(Find<QTextEdit>("OpponentComment").toPlainText(), QString());
}

TEST_F(MovingTest, ALiftedPieceShowsWhereItMayGoUnlessThatIsOff) {
  for (const bool shows : {true, false}) {
    platform::Settings().ShowMoves = shows;
    Open({});
    const QColor before = SeenOn(54);
    Do("click 52");
    EXPECT_EQ(SeenOn(54) != before, shows);
    EXPECT_EQ(SeenOn(55), ColourOfCell(24)) << "too far";
    Do("click 54");
    EXPECT_EQ(SeenOn(53), ColourOfCell(24)) << "no mark outlives the move";
  }
}

TEST_F(MovingTest, KeysSendUndoAndBrowse) {
  Open({{"5254", "e4"}, {"5755", "e5"}});
  QTest::keyClick(&Find("CBoard"), Qt::Key_Home);
  EXPECT_EQ(Game().Moves.Selected(), 1);
  QTest::keyClick(&Find("MoveList"), Qt::Key_Right);
  EXPECT_TRUE(Game().Moves.AtEnd());
  const std::pair<const char*, int> browsing[] = {
      {"left", 1},     {"right right", 2}, {"up left", 2},      {"escape left", 1},
      {"click 42", 1}, {"right", 2},       {"click 42 left", 2}};
  for (const auto& [keys, selected] : browsing) {
    Do(keys);
    EXPECT_EQ(Game().Moves.Selected(), selected)
        << keys << ": the ring has the keys while it shows";
  }
  QTest::keyClick(&Find("CBoard"), Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Game().Moves.Selected(), 1);
  Do("escape escape right");
  Do("drag 42 44");
  Comment().setFocus();
  QTest::keyClick(&Comment(), Qt::Key_A);
  QTest::keyClick(&Comment(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Game().Moves.Count(), 3) << "only the comment's letter is undone";
  QTest::keyClick(&Comment(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Game().Moves.Count(), 2);
  Do("drag 42 44");
  Comment().setFocus();
  QTest::keyClick(&Comment(), Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(desktop_.mail.sent.size(), 1U);
}

TEST_F(MovingTest, APieceThatIsPutDownAgainIsNoMove) {
  const GestureCase rows[] = {
      {"dragged away and back", "press 52 move 54 release 52"},
      {"clicked twice", "click 52 click 52"},
      {"clicked, then beside the board", "click 52 click frame"},
      {"Escape in the middle of a drag", "press 52 move 54 escape release 54"},
      {"Escape behind a click", "click 52 escape"},
  };
  for (const GestureCase& row : rows) {
    SCOPED_TRACE(row.name);
    Open({});
    Do(row.gestures);
    Do("up");  // a hand that still held the pawn would move it now
    EXPECT_FALSE(window_->isMinimized());
    EXPECT_EQ(SeenOn(52), ColourOfCell(6));
    EXPECT_EQ(Game().Moves.Count(), 0);
    EXPECT_TRUE(desktop_.boxes.messages.empty());
    EXPECT_EQ(Heard(), "34");
  }
  Do("escape escape");
  EXPECT_TRUE(window_->isMinimized()) << "with an empty hand and no ring";
}

TEST_F(MovingTest, WhileAPieceIsDraggedItsSquareShowsEmpty) {
  Open({});
  Do("press 52 move 54");
  EXPECT_EQ(SeenOn(52), ColourOfCell(16));
  EXPECT_EQ(SeenOn(54), QColor(Qt::red)) << "the floating icon";
}

TEST_F(MovingTest, ASelectionDoesNotOutliveThePositionThatItBelongsTo) {
  Open({{"5254", "e4"}, {"5755", "e5"}});
  Do("click 42");  // removes the highlight and selects
  ChooseEntry(0);
  EXPECT_EQ(SeenOn(55), ColourOfCell(24)) << "the pawn's move isn't played yet";
  Do("click 44");
  EXPECT_EQ(Game().Moves.Count(), 2);
  EXPECT_EQ(desktop_.LastMessage().second, "You are not allowed to make a move right now.");
}

TEST_F(MovingTest, TheFirstClickOnAMarkedBoardOnlyCleansIt) {
  for (const char* click : {"click 57", "click frame"}) {
    Open({{"5254", "e4"}, {"5755", "e5"}});
    Click(board::CoordinatesButton);
    ASSERT_TRUE(Game().HilightVisible && Game().CoordsVisible);
    Do(click);
    EXPECT_FALSE(Game().HilightVisible || Game().CoordsVisible) << click;
    EXPECT_TRUE(desktop_.boxes.messages.empty());
  }
  Open({{"5254", "e4"}, {"5755", "e5"}});
  Do("click 47");
  EXPECT_EQ(desktop_.LastMessage().second, "That is not one of your pieces!") << "nothing to clean";
  platform::Settings().Coordinates = true;
  Open({});
  Do("click 52 click 54");
  EXPECT_TRUE(Game().CoordsVisible && Game().Moves.Count() == 1) << "left on for good";
}

TEST_F(MovingTest, TurningTheBoardMovesTheSquaresAndKeepsTheirNumbers) {
  Open({});
  const QPoint a1 = PointOf("11"), h8 = PointOf("88");
  EXPECT_TRUE(a1.x() < h8.x() && a1.y() > h8.y());
  Click(board::ViewButton);
  EXPECT_EQ(PointOf("88"), a1);
  EXPECT_EQ(SeenOn(18), ColourOfCell(17)) << "Black's rook on its light corner";
  Find("CBoard").setFocus();
  Do("return down down return");
  EXPECT_EQ(LastMove(), "e4");
}

}  // namespace
}  // namespace ui
