// SPDX-License-Identifier: GPL-3.0-or-later
// The ways in which a user moves a piece on the Board window.
#include <QTableWidget>

#include "board/controls.h"
#include "board_window_fixture.h"

namespace ui {
namespace {

using MovingTest = BoardWindowTest;

struct GestureCase {
  const char* name;
  const char* gestures;
};

TEST_F(MovingTest, EveryWayOfMovingAPieceGivesTheSameMove) {
  const GestureCase rows[] = {
      {"dragging", "press 52 move 54 release 54"},
      {"clicking the piece and its target", "click 52 click 54"},
      {"selecting another piece first", "click 71 click 52 click 54"},
      {"dragging a piece that was selected", "click 52 press 52 move 54 release 54"},
      {"the keyboard, which begins on e2", "return 1 up 2 space 1"},
      {"past the edge of the board and back", "left 9 right 4 enter 1 up 2 enter 1"},
      {"clicking the piece and Enter on its target", "click 52 up 2 enter 1"},
  };
  for (const GestureCase& row : rows) {
    SCOPED_TRACE(row.name);
    Open({});
    Do(row.gestures);
    EXPECT_EQ(LastMove(), "e4");
    EXPECT_EQ(window_->Logic().Moves.Count(), 1);
    EXPECT_EQ(SeenOn(52), ColourOfCell(16)) << "a light square, empty";
    EXPECT_EQ(SeenOn(54), ColourOfCell(6)) << "a white pawn on a light square";
    EXPECT_EQ(desktop_.sounds.played.back(), "/program/Data/Cs004.tvs");
    EXPECT_TRUE(desktop_.boxes.messages.empty());
    EXPECT_EQ(Find<QTableWidget>("MoveList")->item(0, 2)->text(), u"e4"_s);
    Button(board::UndoButton)->click();
    EXPECT_EQ(SeenOn(52), ColourOfCell(6)) << "and back again";
  }
}

TEST_F(MovingTest, ARefusedMovePutsThePieceBackAndTellsWhy) {
  const GestureCase rows[] = {
      {"dragged too far", "press 52 move 55 release 55"},
      {"dragged onto an own piece", "press 11 move 12 release 12"},
      {"dropped beside the board", "press 52 move 0 release 0"},
      {"clicked too far", "click 52 click 55"},
      {"lifted an opponent's piece", "click 57"},
  };
  for (const GestureCase& row : rows) {
    SCOPED_TRACE(row.name);
    Open({});
    const QImage before = window_->grab().toImage();
    Do(row.gestures);
    EXPECT_EQ(SeenOn(52), ColourOfCell(6));
    EXPECT_TRUE(window_->grab().toImage() == before);
    EXPECT_EQ(desktop_.boxes.messages.size(), 1U);
    EXPECT_FALSE(desktop_.LastMessage().second.empty());
    EXPECT_EQ(window_->Logic().Moves.Count(), 0);
  }
}

TEST_F(MovingTest, APieceThatIsPutDownAgainIsNoMove) {
  const GestureCase rows[] = {
      {"dragged away and back", "press 52 move 54 release 52"},
      {"clicked twice", "click 52 click 52"},
      {"clicked, then beside the board", "click 52 click 0"},
      {"Escape in the middle of a drag", "press 52 move 54 escape 1 release 54"},
      {"Escape behind a click", "click 52 escape 1"},
      {"the right button", "click 52 rightclick 54"},
  };
  for (const GestureCase& row : rows) {
    SCOPED_TRACE(row.name);
    Open({});
    Do(row.gestures);
    Do("up 1");  // a hand that still held the pawn would move it now
    EXPECT_FALSE(window_->isMinimized());
    EXPECT_EQ(SeenOn(52), ColourOfCell(6));
    EXPECT_EQ(SeenOn(54), ColourOfCell(16));
    EXPECT_EQ(window_->Logic().Moves.Count(), 0);
    EXPECT_TRUE(desktop_.boxes.messages.empty());
    EXPECT_EQ(desktop_.sounds.played,
              (std::vector<std::string>{"/program/Data/Cs003.tvs", "/program/Data/Cs004.tvs"}));
  }
  Do("escape 1");
  EXPECT_TRUE(window_->isMinimized()) << "with an empty hand";
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
  auto* list = Find<QTableWidget>("MoveList");
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualItemRect(list->item(0, 2)).center());
  ASSERT_EQ(window_->Logic().Moves.Selected(), 1);
  EXPECT_EQ(SeenOn(55), ColourOfCell(24)) << "the pawn's move isn't played yet";
  Do("click 44");
  EXPECT_EQ(window_->Logic().Moves.Count(), 2);
  EXPECT_EQ(desktop_.LastMessage().second, "You are not allowed to make a move right now.");
}

TEST_F(MovingTest, TheFirstClickOnAMarkedBoardOnlyCleansIt) {
  for (const int square : {57, 0}) {
    Open({{"5254", "e4"}, {"5755", "e5"}});
    QTest::keyClick(Button(board::CoordinatesButton), Qt::Key_Return);
    ASSERT_TRUE(window_->Logic().HilightVisible && window_->Logic().CoordsVisible);
    Do("click " + std::to_string(square));
    EXPECT_FALSE(window_->Logic().HilightVisible || window_->Logic().CoordsVisible) << square;
    EXPECT_TRUE(desktop_.boxes.messages.empty());
  }
}

TEST_F(MovingTest, TurningTheBoardMovesTheSquaresAndKeepsTheirNumbers) {
  Open({});
  const QPoint a1 = Centre(11), h8 = Centre(88);
  EXPECT_TRUE(a1.x() < h8.x() && a1.y() > h8.y());
  Button(board::ViewButton)->click();
  EXPECT_EQ(Centre(88), a1);
  EXPECT_EQ(SeenOn(18), ColourOfCell(17)) << "Black's rook on its light corner";
  Do("return 1 down 2 return 1");
  EXPECT_EQ(LastMove(), "e4");
}

}  // namespace
}  // namespace ui
