// SPDX-License-Identifier: GPL-3.0-or-later
// The window's timer: kings that flash.
#include "board/board_fixture.h"
#include "platform/desktop.h"

namespace board {
namespace {

const Case flashCases[] = {
    {"White in check", "Ke1 re8 kh8", "e1 13 8"},
    {"Black in check", "Ke1 Rh2 ka8|h2h8 Rh8+", "a8 21 0"},
    {"who surrendered, whoever is in check", "Ke1 Rh8 ka8|e1e1 0-1", "e1 15 8"},
};

TEST_F(BoardTest, AKingInDangerFlashesUntilTheDangerEnds) {
  for (const Case& row : flashCases) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    board->CheckTimer();
    EXPECT_EQ(CellOf(row.expected), std::stoi(row.expected + 6));
    EXPECT_EQ(view->interval, 250);
    board->CheckTimer();
    EXPECT_EQ(CellOf(row.expected), std::stoi(row.expected + 3));
    EXPECT_EQ(view->interval, 650);
    board->CheckTimer();
    ThePosition().SideInCheck = rules::NobodyInCheck;
    ThePosition().CheckmateFlag = board->Surrendered = false;
    view->Refresh();
    board->CheckTimer();
    ExpectWindowIsUpToDate();
  }
}

/// Lets the timer tick while a message is up, as a modal dialog does.
struct TickingBoxes : fakes::RecordingMessageBoxes {
  bool Ask(const platform::Message&) override {
    board->UnloadPending = true;
    board->CheckTimer();
    board->UnloadPending = false;
    ++asked;
    return true;
  }
  Board* board = nullptr;
  int asked = 0;
};

TEST_F(BoardTest, ATickDuringTheWindowsOwnMessageDoesNothing) {
  OpenGame("Ke1 Re2 re8 kh8");
  TickingBoxes boxes;
  boxes.board = &*board;
  platform::TheDesktop().messageBoxes = &boxes;
  Play("e2d2");
  EXPECT_EQ(boxes.asked, 1);
  EXPECT_EQ(view->closed, 0);
}

}  // namespace
}  // namespace board
