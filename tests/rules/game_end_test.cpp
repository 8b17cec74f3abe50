// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/game_end.h"

#include "rules/attack.h"
#include "rules/rules_fixture.h"

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
    {"the start position", "start", Black, false},
    {"the queen a knight's leap from the cornered king", "kh8 Qf7 Kf6", Black, true},
    {"the other side may still move", "kh8 Qf7 Kf6", White, false},
    {"the cornered king may take the queen", "kh8 Qg7 Kb2", Black, false},
    {"a free pawn still moves", "kh8 Qf7 Kf6 pa7", Black, false},
    {"a blocked pawn doesn't", "kh8 Qf7 Kf6 pa7 Pa6", Black, true},
    {"a pawn takes aslant", "kh8 Qf7 Kf6 pa7 Pa6 Nb6", Black, false},
    {"a pawn of the last row stands for ever", "kh8 Qf7 Kf6 pa1", Black, true},
    {"only en passant is left", "ka8 Qb6 pe4 Pe3 Pd4 Kh1", Black, false, "d2d4"},
    {"en passant is over", "ka8 Qb6 pe4 Pe3 Pd4 Kh1", Black, true, ""},
    {"en passant would uncover the king", "ka4 pe4 Pd4 Pe3 Pa2 Nc2 Rh4 Rh5 Kh1", Black, true,
     "d2d4"},
    {"a pinned knight can't move", "kh8 ng8 Ra8 Kg6", Black, true},
    {"a pinned rook moves along the pin", "kh8 rg8 Ra8 Kg6", Black, false},
    {"a bishop hemmed in by its own pawns", "kh8 Qf7 Kf6 ba8 pb7 Pb6", Black, true},
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
    {"a rook", "Ke1 ke8 ra8", ForcedDraw::None},
    {"a queen", "Ke1 Qd1 ke8", ForcedDraw::None},
    {"bishops on dark squares", "Ke1 Bc1 ke8 bf8", ForcedDraw::BishopsOfOneColour},
    {"bishops on light squares", "Ke1 Bf1 ke8 bc8", ForcedDraw::BishopsOfOneColour},
    {"bishops on different colours", "Ke1 Bc1 ke8 bc8", ForcedDraw::None},
    {"two bishops of one side on one colour", "Ke1 Ba1 Bc1 ke8", ForcedDraw::None},
    {"two knights", "Ke1 Nb1 Ng1 ke8", ForcedDraw::None},
    {"bishop against knight", "Ke1 Bc1 ke8 nb8", ForcedDraw::None},
    {"bishops of one colour with a pawn", "Ke1 Bc1 ke8 bf8 pa7", ForcedDraw::None},
    {"the start position", "start", ForcedDraw::None},
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
