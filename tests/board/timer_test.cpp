// SPDX-License-Identifier: GPL-3.0-or-later
// The window's timer: kings that flash, flicker and fall.
#include "board/board_fixture.h"
#include "platform/desktop.h"

namespace board {
namespace {

const Case cellCases[] = {
    {"an empty light square", "Ke1 ke8", "b1 16"},
    {"an empty dark square", "Ke1 ke8", "a1 24"},
    {"a White knight on a light square", "", "b1 2"},
    {"a White rook on a dark square", "", "a1 9"},
    {"a Black rook on a light square", "", "a8 17"},
    {"a Black pawn on a dark square", "", "a7 30"},
    {"a king in check stands", "Ke1 Rh8 ka8", "a8 21"},
    {"a mated king lies", "Ke1 Rh8 ka8|e1f1 Kf1++", "a8 23"},
    {"his opponent stands", "Ke1 Rh8 ka8|e1f1 Kf1++", "f1 5"},
    {"White surrendered", "|e1e1 0-1", "e1 15"},
    {"Black's king stands on", "|e1e1 0-1", "e8 21"},
    {"Black surrendered", "|e2e4, e8e8 Surrender", "e8 23"},
};

TEST_F(BoardTest, ASquaresCellTellsPieceShadeAndFall) {
  for (const Case& row : cellCases) {
    OpenGame(row.game);
    EXPECT_EQ(CellOf(row.expected), std::stoi(row.expected + 3)) << row.name;
  }
}

const Case flashCases[] = {
    {"White in check", "Ke1 re8 kh8", "e1 13 8"},
    {"Black in check", "Ke1 Rh2 ka8|h2h8 Rh8+", "a8 21 0"},
    {"Black mated", "Ke1 Rh2 ka8|h2h8 Rh8++", "a8 23 0"},
    {"who surrendered, whoever is in check", "Ke1 Rh8 ka8|e1e1 0-1", "e1 15 8"},
    {"Black surrendered", "|e2e4, e8e8 1-0", "e8 23 0"},
};

TEST_F(BoardTest, AKingInDangerFlashesUntilTheDangerEnds) {
  for (const Case& row : flashCases) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    for (int round = 0; round < 2; ++round) {
      board->CheckTimer();
      EXPECT_EQ(CellOf(row.expected), std::stoi(row.expected + 6));
      EXPECT_EQ(view->interval, 250);
      board->CheckTimer();
      EXPECT_EQ(CellOf(row.expected), std::stoi(row.expected + 3));
      EXPECT_EQ(view->interval, 650);
    }
    board->CheckTimer();
    ThePosition().SideInCheck = rules::NobodyInCheck;
    ThePosition().CheckmateFlag = board->Surrendered = false;
    view->Refresh();
    board->CheckTimer();
    EXPECT_EQ(view->interval, 250);
    EXPECT_TRUE(board->FlashPhase);
    ExpectWindowIsUpToDate();
    view->painted = 0;
    board->CheckTimer();
    EXPECT_EQ(view->painted, 0) << "a king out of danger is left alone";
  }
}

TEST_F(BoardTest, ACheckAnsweredByACheckLeavesNoKingOutOfSight) {
  OpenGame("Ke1 Bd2 Rf1 re8 kh8 pg7");
  board->CheckTimer();
  EXPECT_EQ(CellOf("e1"), 8);
  ThePosition().SideInCheck = rules::Black;
  board->CheckTimer();
  EXPECT_EQ(CellOf("e1"), 13);
}

TEST_F(BoardTest, AKingFlickersForACountOfTicks) {
  struct {
    const char* name;
    const char* game;
    const char* move;
    const char* king;
    int ticks;
  } const rows[] = {{"the own king behind a refused move", "Ke1 Re2 re8 kh8", "e2d2", "e1", 10},
                    {"the stalemated king", "Kf6 Qa2 kh8", "a2f7", "h8", 15}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    Play(row.move);
    for (int left = row.ticks; left >= 1; --left) {
      board->CheckTimer();
      EXPECT_EQ(CellOf(row.king) != 8, left % 2 == 1) << left;
      EXPECT_EQ(view->interval, left == 1 ? 250 : 100) << left;
    }
    ExpectWindowIsUpToDate();
  }
}

TEST_F(BoardTest, AMoveEndsTheFlickerAndShowsTheKing) {
  OpenGame("Ke1 Re2 re8 kh8");
  Play("e2d2");
  board->CheckTimer();
  Play("e2e8");
  EXPECT_EQ(board->SelfCheckFlashes, 0);
  EXPECT_EQ(view->interval, 250);
  ExpectWindowIsUpToDate();
}

/// Lets the timer tick while a message is up, as a modal dialog does.
struct TickingBoxes : fakes::RecordingMessageBoxes {
  bool Ask(const platform::Message&) override {
    tick();
    return true;
  }
  std::function<void()> tick;
};

TEST_F(BoardTest, ATickDuringTheWindowsOwnMessageDoesNothing) {
  OpenGame("Ke1 Re2 re8 kh8");
  TickingBoxes boxes;
  int ticks = 0;
  boxes.tick = [&] {
    board->UnloadPending = true;
    board->CheckTimer();
    board->UnloadPending = false;
    ++ticks;
  };
  platform::TheDesktop().messageBoxes = &boxes;
  Play("e2d2");
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(view->closed, 0);
}

}  // namespace
}  // namespace board
