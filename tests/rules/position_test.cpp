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
    {"the empty board", std::string(emptyBoard), ""},
    {"no text at all", "", ""},
    {"separators alone", ";;;;;;;", ""},
    {"rows that end early leave the rest empty", "05;;0201", "Ka1 Na3 Rb3"},
    {"half a code is none", "050", "Ka1"},
    {"codes above 12 are empty", "1305991211", "Kb1 pd1 ke1"},
    {"what isn't two digits is empty", "5 -1+605 50:A006", "Kd1 Ph1"},
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

struct CastleCase {
  const char* name;
  const char* pieces;
  const char* moved;  ///< for a, e and h of White, then of Black: "+" has moved
  char leaves = '.';  ///< the piece that leaves column x then, if any
  int x = 1;
  Side sideToMove = White;
};

const CastleCase castleCases[] = {
    {"the start position keeps every right", "start", "------"},
    {"an empty board keeps none", "", "++++++"},
    {"a king off his home has moved", "start e1e2", "-+----"},
    {"a rook off its corner has moved", "start a8a6", "---+--"},
    {"the other side's rook is none of one's own", "start a8h1", "--++--"},
    {"king and queen changed places", "Kd1 Qe1 kd8 qe8", "++++++"},
    {"White's rook of column 1", "start", "+-----", 'R', 1},
    {"White's rook of column 8, taken by Black", "start", "--+---", 'R', 8, Black},
    {"Black's rook of column 1", "start", "---+--", 'r', 1, Black},
    {"Black's rook of column 8, taken by White", "start", "-----+", 'r', 8},
    {"a rook of another column", "start", "------", 'R', 4},
    {"the king, from any column", "start", "-+----", 'K', 3},
    {"White's king while Black moves", "start", "------", 'K', 5, Black},
    {"Black's king", "start", "----+-", 'k', 5, Black},
    {"Black's king while White moves", "start", "------", 'k', 5},
    {"a queen in the corner", "start", "------", 'Q', 1},
    {"a flag that is set stays set", "", "++++++", 'R', 1},
};

TEST(PositionTest, CastlingIsLostByTheStartBoardOrByLeavingAColumn) {
  for (const CastleCase& row : castleCases) {
    SCOPED_TRACE(row.name);
    Place(row.pieces);
    ThePosition().SideToMove = row.sideToMove;
    LogCastleState(CodeOf(row.leaves), row.x);
    std::string moved;
    for (const Side side : {White, Black}) {
      for (const CastleKind kind : {Column1Rook, KingItself, Column8Rook}) {
        moved += ThePosition().HasMoved(side, kind) ? '+' : '-';
      }
    }
    EXPECT_EQ(moved, row.moved);
  }
}

TEST(PositionTest, SquaresAnswerForSidesTargetsAndShades) {
  Place("Ke1 Pe2 ke8 pe7 Kd5");
  EXPECT_EQ(SideOf(Sq("e4")), NoSide);
  EXPECT_EQ(SideOf(Sq("e2")), White);
  EXPECT_EQ(SideOf(Sq("e7")), Black);
  for (const char* beside : {"`4", "i4", "e0", "e9"}) {
    EXPECT_FALSE(IsTargetSquare(White, Sq(beside))) << beside;
  }
  EXPECT_TRUE(IsTargetSquare(White, Sq("e4")));
  EXPECT_TRUE(IsTargetSquare(White, Sq("e7")));
  EXPECT_FALSE(IsTargetSquare(Black, Sq("e7")));
  for (const Side side : {White, Black}) {
    EXPECT_FALSE(IsTargetSquare(side, Sq("e1"))) << "kings are never a target";
    EXPECT_FALSE(IsTargetSquare(side, Sq("e8")));
  }
  EXPECT_EQ(FindPiece(WhiteKing), Sq("e1")) << "row 1 is searched before row 5";
  EXPECT_EQ(FindPiece(NoPiece), Sq("a1"));
  EXPECT_EQ(FindPiece(WhiteQueen), Square{}) << "{0, 0} is no square";
  for (int i = 0; i < 64; ++i) {
    const Square square = SquareAt(i);
    EXPECT_EQ(SquareShade(square), (square.x + square.y) % 2 == 0 ? 8 : 0) << NameOf(square);
    EXPECT_EQ(FromNumber(NumberOf(square)), square);
  }
}

TEST(PositionTest, PawnsPromoteOnTheLastRowOfTheSideToMove) {
  for (const Side side : {White, Black}) {
    ThePosition().SideToMove = side;
    EXPECT_EQ(IsPromotion(WhitePawn, 8), side == White);
    EXPECT_EQ(IsPromotion(BlackPawn, 1), side == Black);
    EXPECT_FALSE(IsPromotion(WhiteQueen, 8));
  }
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
