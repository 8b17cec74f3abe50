// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/game_end.h"

#include "rules/attack.h"
#include "rules/rules_fixture.h"
#include "rules/test_moves.h"

namespace rules {
namespace {

struct StalemateCase {
  const char* name;
  const char* board;
  Side side;
  bool noLegalMoves;
  const char* lastMove = "";
};

const StalemateCase stalemateCases[] = {
    {"the queen a knight's leap from the cornered king", "kh8 Qf7 Kf6", Black, true},
    {"a pawn of the last row stands for ever", "kh8 Qf7 Kf6 pa1", Black, true},
    {"only en passant is left", "ka8 Qb6 pe4 Pe3 Pd4 Kh1", Black, false, "d2d4"},
    {"en passant is over", "ka8 Qb6 pe4 Pe3 Pd4 Kh1", Black, true, ""},
    {"a pinned knight can't move", "kh8 ng8 Ra8 Kg6", Black, true},
    {"a knight's only leap is onto the king", "kh8 Qf7 nh1 pf2 Bf1 Kg3", Black, true},
    {"a side without pieces isn't stalemated", "Ke1", Black, false},
    {"pawns without a king can be stuck too", "Pe4 pe5", White, true},
};

TEST(GameEndTest, StalemateIsASideWithPiecesAndNoMove) {
  for (const StalemateCase& row : stalemateCases) {
    SCOPED_TRACE(row.name);
    Place(row.board);
    const Untouched before;
    EXPECT_EQ(NoLegalMoves(row.side, After(row.lastMove), NobodyInCheck), row.noLegalMoves);
    EXPECT_EQ(Untouched(), before);
    if (row.noLegalMoves) {
      EXPECT_EQ(GameState(row.side, true, NobodyInCheck), Standing::Neither);
    }
  }
}

struct TargetsCase {
  const char* name;
  const char* board;
  const char* from;
  const char* targets;
  const char* lastMove = "";
};

const TargetsCase targetsCases[] = {
    {"a pinned rook stays on its line", "Ke1 Re2 re8", "e2", "e3 e4 e5 e6 e7 e8"},
    {"a king castles, and steps out of no attack", "Ke1 Rh1 rd8", "e1", "f1 g1 e2 f2"},
    {"a pawn takes in passing", "Ke1 Pd5 pe5", "d5", "d6 e6", "e7e5"},
    {"a pawn that would lay its king open by that doesn't", "Ka5 Pd5 pe5 rh5", "d5", "d6", "e7e5"},
    {"a king is no prey", "Ke1 Pe2 kd3 pf3", "e2", "e3 e4 f3"},
};

TEST(GameEndTest, APieceMayGoWhereItsMoveWouldBeTaken) {
  for (const TargetsCase& row : targetsCases) {
    SCOPED_TRACE(row.name);
    Place(row.board);
    const Untouched before;
    Bitboard expected = 0;
    platform::FieldWalk walk(row.targets, ' ');
    for (std::string_view word = walk.Next(); !word.empty(); word = walk.Next()) {
      expected |= Bitboard{1} << IndexOf(Sq(word));
    }
    EXPECT_EQ(LegalTargets(White, Sq(row.from), After(row.lastMove)), expected);
    EXPECT_EQ(Untouched(), before);
  }
}

struct ForcedDrawCase {
  const char* name;
  const char* board;
  ForcedDraw type;
};

const ForcedDrawCase forcedDrawCases[] = {
    {"kings alone", "Ke1 ke8", ForcedDraw::KingsAlone},
    {"a bishop against a bare king", "Ke1 Bc1 ke8", ForcedDraw::OneMinorPiece},
    {"a black knight against a bare king", "Ke1 ke8 ng8", ForcedDraw::OneMinorPiece},
    {"a pawn", "Ke1 Pe2 ke8", ForcedDraw::None},
    {"bishops on dark squares", "Ke1 Bc1 ke8 bf8", ForcedDraw::BishopsOfOneColour},
    {"bishops on dark squares, and a pawn", "Ke1 Bc1 Pa2 ke8 bf8", ForcedDraw::None},
    {"bishops on different colours", "Ke1 Bc1 ke8 bc8", ForcedDraw::None},
    {"two bishops of one side on one colour", "Ke1 Ba1 Bc1 ke8", ForcedDraw::None},
    {"two knights", "Ke1 Nb1 Ng1 ke8", ForcedDraw::None},
    {"bishop against knight", "Ke1 Bc1 ke8 nb8", ForcedDraw::None},
};

TEST(GameEndTest, TooLittleMaterialForcesADraw) {
  for (const ForcedDrawCase& row : forcedDrawCases) {
    SCOPED_TRACE(row.name);
    Place(row.board);
    EXPECT_EQ(ForcedDrawType(), row.type);
  }
}

}  // namespace
}  // namespace rules
