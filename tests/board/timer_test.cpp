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
    CheckTimer(*game);
    EXPECT_EQ(CellOf(row.expected), std::stoi(row.expected + 3));
    CheckTimer(*game);
    ThePosition().SideInCheck = rules::NobodyInCheck;
    ThePosition().CheckmateFlag = game->Surrendered = false;
    view->Refresh();
    CheckTimer(*game);
    ExpectWindowIsUpToDate();
  }
}

}  // namespace
}  // namespace board
