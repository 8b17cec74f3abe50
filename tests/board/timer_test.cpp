// SPDX-License-Identifier: GPL-3.0-or-later
// The window's timer: kings that flash.
#include "board/board_fixture.h"

namespace board {
namespace {

const Case flashCases[] = {
    {"White in check", "Ke1 re8 kh8", "e1 13 8"},
    {"Black in check", "Ke1 Rh2 ka8|h2h8 Rh8+", "a8 21 0"},
    {"who surrendered, whoever is in check", "Ke1 Rh8 ka8|e1e1 0-1", "e1 15 8"},
    {"a mated king has fallen", "Ke1 Ra1 kg8 pf7 pg7 ph7|a1a8 Ra8++", "g8 23 0"},
};

TEST_F(BoardTest, AKingInDangerFlashesUntilTheDangerEnds) {
  for (const Case& row : flashCases) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    CheckTimer(*game);
    EXPECT_EQ(CellOf(row.expected), std::stoi(row.expected + 6));
    EXPECT_EQ(view->interval, 250);
    CheckTimer(*game);
    EXPECT_EQ(CellOf(row.expected), std::stoi(row.expected + 3));
    EXPECT_EQ(view->interval, 650);
    CheckTimer(*game);
    ThePosition().SideInCheck = rules::NobodyInCheck;
    ThePosition().CheckmateFlag = game->Surrendered = false;
    view->Refresh();
    CheckTimer(*game);
    ExpectWindowIsUpToDate();
  }
}

struct FlickerCase {
  const char* name;
  const char* game;
  const char* move;
  const char* king;
  int ticks;
};

const FlickerCase flickerCases[] = {
    {"a refused self-check", "Ke1 Re2 re8 kh8", "e2d2", "e1", 10},
    {"a stalemate", "Kf6 Qa2 kh8", "a2f7", "h8", 15},
};

TEST_F(BoardTest, AKingFlickersAndComesToRest) {
  for (const FlickerCase& row : flickerCases) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    Play(row.move);
    const Square king = rules::Sq(row.king);
    for (int left = row.ticks; left > 0; --left) {
      CheckTimer(*game);
      EXPECT_EQ(CellOf(row.king),
                left % 2 == 0 ? rules::SquareShade(king) : SquareCell(*game, king));
      EXPECT_EQ(view->interval, left == 1 ? 250 : 100);
    }
    Tick();
    ExpectWindowIsUpToDate();
  }
}

TEST_F(BoardTest, ATickDuringTheWindowsOwnMessageDoesNothing) {
  OpenGame("Ke1 Re2 re8 kh8");
  desktop.boxes.whileUp = [this] {
    game->UnloadPending = true;
    CheckTimer(*game);
    game->UnloadPending = false;
  };
  Play("e2d2");
  EXPECT_FALSE(desktop.boxes.whileUp);
  EXPECT_EQ(view->closed, 0);
}

}  // namespace
}  // namespace board
