// SPDX-License-Identifier: GPL-3.0-or-later
// The ways in which a user moves a piece on the Board window.
#include <QTableWidget>

#include "board_window_fixture.h"

namespace ui {
namespace {

const std::string promotionBoard =
    "0000000000000500;0000000000000000;0000000000000000;0000000000000000;"
    "0000000000000000;0000000000000000;0600000000000000;0000000000001100";

using MovingTest = BoardWindowTest;

TEST_F(MovingTest, EveryWayOfMovingAPieceGivesTheSameMove) {
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"dragging", [this] { Drag(52, 54); }},
      {"clicking the piece and its target",
       [this] {
         Click(52);
         Click(54);
       }},
      {"selecting another piece first",
       [this] {
         Click(71);
         Click(52);
         Click(54);
       }},
      {"dragging a piece that was selected",
       [this] {
         Click(52);
         Drag(52, 54);
       }},
      {"the keyboard",
       [this] {
         Key(Qt::Key_Return);  // the cursor begins on e2
         Key(Qt::Key_Up, 2);
         Key(Qt::Key_Space);
       }},
      {"the keyboard, past the edge of the board and back",
       [this] {
         Key(Qt::Key_Left, 9);
         Key(Qt::Key_Right, 4);
         Key(Qt::Key_Enter);
         Key(Qt::Key_Up, 2);
         Key(Qt::Key_Enter);
       }},
      {"clicking the piece and Enter on its target",
       [this] {
         Click(52);
         Key(Qt::Key_Up, 2);
         Key(Qt::Key_Enter);
       }},
  };
  for (const auto& [name, move] : rows) {
    SCOPED_TRACE(name);
    Open({});
    move();
    EXPECT_EQ(LastMove(), "e4");
    EXPECT_EQ(window_->Logic().Moves.Count(), 1);
    EXPECT_EQ(CellOn(52), 16) << "a light square, empty";
    EXPECT_EQ(CellOn(54), 6) << "a white pawn on a light square";
    EXPECT_EQ(SeenOn(52), ColourOfCell(16));
    EXPECT_EQ(SeenOn(54), ColourOfCell(6));
    EXPECT_EQ(desktop_.sounds.played.back(), "/program/Data/Cs004.tvs");
    EXPECT_TRUE(desktop_.boxes.messages.empty());
    auto* list = Find<QTableWidget>("MoveList");
    EXPECT_EQ(list->item(0, 0)->text(), u"5254"_s);
    EXPECT_EQ(list->item(0, 2)->text(), u"e4"_s);
    EXPECT_TRUE(list->isColumnHidden(0) && list->isColumnHidden(3));
  }
}

TEST_F(MovingTest, ARefusedMovePutsThePieceBackAndTellsWhy) {
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"dragged too far", [this] { Drag(52, 55); }},
      {"dragged onto an own piece", [this] { Drag(11, 12); }},
      {"dropped beside the board", [this] { Drag(52, 0); }},
      {"clicked too far",
       [this] {
         Click(52);
         Click(55);
       }},
      {"lifted an opponent's piece", [this] { Press(57), Release(57); }},
  };
  for (const auto& [name, move] : rows) {
    SCOPED_TRACE(name);
    Open({});
    desktop_.boxes.messages.clear();
    const QImage before = window_->grab().toImage();
    move();
    Settle();
    EXPECT_EQ(desktop_.boxes.messages.size(), 1U);
    EXPECT_FALSE(desktop_.LastMessage().second.empty());
    EXPECT_EQ(window_->Logic().Moves.Count(), 0);
    EXPECT_TRUE(window_->grab().toImage() == before);
  }
}

TEST_F(MovingTest, APieceThatIsPutDownAgainIsNoMove) {
  const std::pair<const char*, std::function<void()>> rows[] = {
      {"dragged away and back",
       [this] {
         Press(52);
         MoveTo(54);
         Release(52);
       }},
      {"clicked twice",
       [this] {
         Click(52);
         Click(52);
       }},
      {"clicked, then beside the board",
       [this] {
         Click(52);
         Click(0);
       }},
      {"Escape in the middle of a drag",
       [this] {
         Press(52);
         MoveTo(54);
         Key(Qt::Key_Escape);
         Release(54);
       }},
      {"Escape behind a click",
       [this] {
         Click(52);
         Key(Qt::Key_Escape);
       }},
      {"the right button",
       [this] {
         Click(52);
         QTest::mousePress(Picture(), Qt::RightButton, {}, Centre(54));
       }},
  };
  for (const auto& [name, move] : rows) {
    SCOPED_TRACE(name);
    Open({});
    move();
    // A hand that still held the pawn would move it now.
    QTest::keyClick(Picture(), Qt::Key_Up);
    EXPECT_FALSE(window_->isMinimized());
    EXPECT_EQ(SeenOn(52), ColourOfCell(6));
    EXPECT_EQ(SeenOn(54), ColourOfCell(16));
    EXPECT_EQ(window_->Logic().Moves.Count(), 0);
    EXPECT_TRUE(desktop_.boxes.messages.empty());
    EXPECT_EQ(desktop_.sounds.played,
              (std::vector<std::string>{"/program/Data/Cs003.tvs", "/program/Data/Cs004.tvs"}));
  }
  Key(Qt::Key_Escape);
  EXPECT_TRUE(window_->isMinimized()) << "with an empty hand";
}

TEST_F(MovingTest, WhileAPieceIsDraggedItsSquareShowsEmpty) {
  Open({});
  Press(52);
  EXPECT_EQ(window_->grab().toImage().pixelColor(Picture()->mapTo(window_, Centre(52))),
            QColor(Qt::red))
      << "the floating icon, still in its place";
  MoveTo(54);
  EXPECT_EQ(SeenOn(52), ColourOfCell(16));
  EXPECT_EQ(SeenOn(54), QColor(Qt::red));
  EXPECT_EQ(CellOn(52), 6) << "the window's own copy doesn't move";
}

TEST_F(MovingTest, ASelectionDoesNotOutliveThePositionThatItBelongsTo) {
  Open({{"5254", "e4"}, {"5755", "e5"}});
  Click(42);  // removes the highlight and selects
  QTest::mouseClick(Find<QTableWidget>("MoveList")->viewport(), Qt::LeftButton, {},
                    Find<QTableWidget>("MoveList")
                        ->visualItemRect(Find<QTableWidget>("MoveList")->item(0, 2))
                        .center());
  ASSERT_EQ(window_->Logic().Moves.Selected(), 1);
  EXPECT_EQ(SeenOn(55), ColourOfCell(24)) << "the pawn's move isn't played yet";
  Click(44);
  EXPECT_EQ(window_->Logic().Moves.Count(), 2);
  EXPECT_EQ(desktop_.LastMessage().second, "You are not allowed to make a move right now.");
}

TEST_F(MovingTest, TheFirstClickOnAMarkedBoardOnlyCleansIt) {
  for (const int square : {57, 44, 0}) {
    Open({{"5254", "e4"}, {"5755", "e5"}});
    Button(board::CoordinatesButton)->click();
    ASSERT_TRUE(window_->Logic().HilightVisible && window_->Logic().CoordsVisible);
    Click(square);
    EXPECT_FALSE(window_->Logic().HilightVisible || window_->Logic().CoordsVisible) << square;
    EXPECT_TRUE(desktop_.boxes.messages.empty());
  }
}

TEST_F(MovingTest, APawnOnTheLastRowBecomesWhatTheDialogGives) {
  Open({{"7172", "Kg2"}, {"7877", "Kg7"}}, true, promotionBoard);
  OnNextDialog([this](QWidget& dialog) {
    EXPECT_EQ(SeenOn(17), ColourOfCell(14)) << "the picture waits: a white pawn on a dark square";
    QTest::keyClick(&dialog, Qt::Key_Q);
  });
  Drag(17, 18);
  EXPECT_EQ(LastMove(), "a8=Q");
  EXPECT_EQ(SeenOn(18), ColourOfCell(4)) << "a white queen on a light square";
}

}  // namespace
}  // namespace ui
