// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/attack.h"

#include <random>

#include "rules/piece_moves.h"
#include "rules/rules_fixture.h"

namespace rules {
namespace {

struct StandingCase {
  const char* name;
  const char* board;
  Side side;
  Standing standing;
  const char* lastMove = "";
};

constexpr Standing check = Standing::Check;
constexpr Standing mate = Standing::Checkmate;
constexpr Standing neither = Standing::Neither;

// White takes f5xg6 en passant, or nothing helps.
constexpr const char* passing = "Kh4 Pf5 pg5 ph6 rg1 nf2 qe8 ka8";

const StandingCase standingCases[] = {
    {"fool's mate", "start f2f3 e7e5 g2g4 d8h4", White, mate},
    {"with the pawn left at home the queen can be blocked", "start f2f3 e7e5 d8h4", White, check},
    {"smothered mate", "kh8 rg8 pg7 ph7 Nf7 Kg1", Black, mate},
    {"only the king could take the protected queen", "kh8 Qg7 Pf6 Ka1", Black, mate},
    {"another piece takes the protected queen", "kh8 Qg7 Pf6 ra7 Ka1", Black, check},
    {"of a double check one attacker can be taken", "kh8 rf8 pg7 ng8 Nf7 Rh1 Ka1", Black, mate},
    {"of a double check the king steps out", "kh8 rf8 pg7 Nf7 Rh1 Ka1", Black, check},
    {"a bishop steps between", "kh8 bh6 Ra8 Pf6 Bd3 Ka1", Black, check},
    {"a pinned bishop doesn't", "kh8 bh6 Ra8 Rh1 Pf6 Bd3 Ka1", Black, mate},
    {"a pinned piece gives check all the same", "Kh1 Bg2 rh8 rg8 ka8", White, check},
    {"a pawn steps two between", "Ka4 Pa5 Pb5 Pd2 rh4 rc3 kh8", White, check},
    {"a pawn doesn't jump between", "Ka4 Pa5 Pb5 Pd2 nd3 rh4 rc3 kh8", White, mate},
    {"a pawn takes the attacker aslant", "Kh1 Rg1 Pg2 Pg4 rh5 ka8", White, check},
    {"a pawn's double step is taken en passant", passing, White, check, "g7g5"},
    {"not without knowing of it", passing, White, mate},
    {"en passant would uncover the king", "Kh4 Pf5 pg5 ph6 rg1 nf2 be8 qe7 ka8", White, mate,
     "g7g5"},
    {"a side without a king", "Ra1 Qh2 kh8", White, neither},
};

TEST(AttackTest, APositionIsCheckOrMateOrNeither) {
  for (const StandingCase& row : standingCases) {
    SCOPED_TRACE(row.name);
    Place(row.board);
    const Untouched before;
    EXPECT_EQ(GameState(row.side, true, NobodyInCheck, After(row.lastMove)), row.standing);
    EXPECT_EQ(GameState(row.side, false, NobodyInCheck),
              row.standing == mate ? check : row.standing)
        << "without looking for mate";
    EXPECT_EQ(IsInCheck(row.side), row.standing != neither);
    EXPECT_EQ(Untouched(), before);
  }
}

/// The plainest answer: every piece on every square is asked whether it could capture the king.
bool IsAttackedByWalking(Side side) {
  const Square king = FindPiece(OfSide(WhiteKing, side));
  const Side other = OtherSide(side);
  for (int i = 0; i < 64; ++i) {
    const PieceCode piece = ThePosition().BoardState[i];
    if (SideOfPiece(piece) == other &&
        ValidMove(other, piece, SquareAt(i), king, true, NoSide, {}, false)) {
      return true;
    }
  }
  return false;
}

// Any pieces anywhere: with no king, one or several of a side, and pawns on every row.
TEST(AttackTest, ChecksOnRandomBoardsAreWhatAWalkFinds) {
  std::mt19937 random(20260309);
  int found[2] = {};
  for (int i = 0; i < 5000; ++i) {
    ThePosition() = {};
    for (int piece = 0; piece < 20; ++piece) {
      const int square = static_cast<int>(random() % 64);
      ThePosition().BoardState.Put(SquareAt(square), 1 + static_cast<int>(random() % 12));
    }
    const Untouched before;
    for (const Side side : {White, Black}) {
      const bool attacked = IsAttackedByWalking(side);
      ++found[attacked];
      ASSERT_EQ(IsInCheck(side), attacked) << before << " side " << side;
      ASSERT_EQ(GameState(side, true, NobodyInCheck) != neither, attacked) << before;
      ASSERT_EQ(Untouched(), before);
    }
  }
  for (const int boards : found) EXPECT_GT(boards, 500) << "too few for a comparison";
}

}  // namespace
}  // namespace rules
