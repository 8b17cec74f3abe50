// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/rules_fixture.h"

namespace rules {
namespace {

struct BoardTextCase {
  const char* name;
  std::string text;
  std::string pieces;  ///< as Place reads them
};

const BoardTextCase boardTextCases[] = {
    {"the start position", std::string(normalStart), "start"},
    {"separators alone", ";;;;;;;", ""},
    {"rows that end early leave the rest empty", "05;;0201", "Ka1 Na3 Rb3"},
    {"half a code is none", "050", "Ka1"},
    {"codes above 12 are empty", "1305991211", "Kb1 pd1 ke1"},
    {"columns and rows beyond the eighth are not read",
     "000000000000000105;;;;;;;05;0505050505050505", "Rh1 Ka8"},
};

TEST(PositionTest, BoardTextsReadAndWriteBack) {
  for (const BoardTextCase& row : boardTextCases) {
    SCOPED_TRACE(row.name);
    Place(row.pieces);
    const BoardSquares board = ReadBoardText(row.text);
    const std::string written = WriteBoardText(board);
    EXPECT_EQ(written, WriteBoardText(ThePosition().BoardState));
    EXPECT_EQ(written.size(), 135u);
    EXPECT_EQ(ReadBoardText(written), board);
    EXPECT_TRUE(SetsInStep(board));
  }
  const BoardSquares start = ReadBoardText(normalStart);
  EXPECT_TRUE(start[0] == 1 && start[4] == 5 && start[60] == 11 && start[63] == 7);
}

TEST(PositionTest, OnlyFourDigitsAreAPreviousMove) {
  for (const char* none : {"", "0000", "575", "57555", "57 5", "+575", "5e55", "-1-1"}) {
    EXPECT_FALSE(LastMove::FromText(none)) << none;
  }
  const LastMove move = LastMove::FromText("5755");
  EXPECT_TRUE(move);
  EXPECT_EQ(move.from, Sq("e7"));
  EXPECT_EQ(move.to, Sq("e5"));
}

}  // namespace
}  // namespace rules
