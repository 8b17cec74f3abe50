// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/attack.h"

#include <algorithm>
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
    {"the start position for White", "start", White, neither},
    {"the start position for Black", "start", Black, neither},
    {"fool's mate", "start f2f3 e7e5 g2g4 d8h4", White, mate},
    {"with the pawn left at home the queen can be blocked", "start f2f3 e7e5 d8h4", White, check},
    {"smothered mate", "kh8 rg8 pg7 ph7 Nf7 Kg1", Black, mate},
    {"the smothering knight is taken", "kh8 rg8 pg7 ph7 Nf7 bd5 Kg1", Black, check},
    {"a knight's check isn't blocked", "kh8 bg8 pg7 Ng6 Nf8 Ka1", Black, mate},
    {"a protected queen before the king", "kh8 Qg7 Kf6", Black, mate},
    {"an unprotected queen before the king", "kh8 Qg7 Kf5", Black, check},
    {"only the king could take the protected queen", "kh8 Qg7 Pf6 Ka1", Black, mate},
    {"another piece takes the protected queen", "kh8 Qg7 Pf6 ra7 Ka1", Black, check},
    {"of a double check one attacker can be taken", "kh8 rf8 pg7 ng8 Nf7 Rh1 Ka1", Black, mate},
    {"of a double check the king steps out", "kh8 rf8 pg7 Nf7 Rh1 Ka1", Black, check},
    {"back row mate", "kg8 pf7 pg7 ph7 Re8 Ka1", Black, mate},
    {"the rook on the back row is taken from afar", "kg8 pf7 pg7 ph7 Re8 ba4 Ka1", Black, check},
    {"the rook on the back row is blocked", "kg8 pf7 pg7 ph7 Ra8 ba6 Ka1", Black, check},
    {"the rook on the back row is protected", "kg8 pf7 pg7 ph7 Re8 Rd8 qd7 Ka1", Black, check},
    {"a bishop steps between", "kh8 bh6 Ra8 Pf6 Bd3 Ka1", Black, check},
    {"a pinned bishop doesn't", "kh8 bh6 Ra8 Rh1 Pf6 Bd3 Ka1", Black, mate},
    {"a pinned piece gives check all the same", "Kh1 Bg2 rh8 rg8 ka8", White, check},
    {"a pawn steps between", "Ka3 Pa2 Pd2 rh3 rh4 be5 kh8", White, check},
    {"a pawn steps two between", "Ka4 Pa5 Pb5 Pd2 rh4 rc3 kh8", White, check},
    {"a pawn doesn't jump between", "Ka4 Pa5 Pb5 Pd2 nd3 rh4 rc3 kh8", White, mate},
    {"a pawn doesn't step aslant between", "Kh1 Rg1 Pg2 Pg4 rh8 ka8", White, mate},
    {"a pawn takes the attacker aslant", "Kh1 Rg1 Pg2 Pg4 rh5 ka8", White, check},
    {"a pawn's double step is taken en passant", passing, White, check, "g7g5"},
    {"and from its other side", "Kh4 Ph5 pg5 ph6 rg1 nf2 ka8", White, check, "g7g5"},
    {"not without knowing of it", passing, White, mate},
    {"a single step isn't", passing, White, mate, "g6g5"},
    {"en passant would uncover the king", "Kh4 Pf5 pg5 ph6 rg1 nf2 be8 qe7 ka8", White, mate,
     "g7g5"},
    {"kings side by side", "Ke4 ke5", White, check},
    {"a pawn attacks ahead", "Ke4 pd5", White, check},
    {"a pawn doesn't attack behind", "Ke4 pd3", White, neither},
    {"a pawn doesn't attack straight ahead", "Ke4 pe5", White, neither},
    {"a side without a king", "Ra1 Qh2 kh8", White, neither},
    {"of several kings the first counts", "Ka1 Ke8 re7", White, neither},
    {"an empty board", "", Black, neither},
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
int AttackersByWalking(Side side) {
  const Square king = FindPiece(OfSide(WhiteKing, side));
  const Side other = OtherSide(side);
  int attackers = 0;
  for (int i = 0; i < 64; ++i) {
    const PieceCode piece = ThePosition().BoardState[i];
    attackers += SideOfPiece(piece) == other &&
                 ValidMove(other, piece, SquareAt(i), king, true, NoSide, {}, false);
  }
  return attackers;
}

/// Any pieces anywhere: with no king, one or several of a side, and pawns on every row.
void PlaceAtRandom(std::mt19937& random) {
  ThePosition() = {};
  const auto below = [&](unsigned n) { return static_cast<int>(random() % n); };
  BoardSquares& board = ThePosition().BoardState;
  for (int pieces = 3 + below(30); pieces > 0; --pieces) {
    board.Put(SquareAt(below(64)), 1 + below(12));
  }
  for (const Side side : {White, Black}) {
    if (below(4) != 0) board.Put(SquareAt(below(64)), OfSide(WhiteKing, side));
  }
}

TEST(AttackTest, ChecksOnRandomBoardsAreWhatAWalkFinds) {
  std::mt19937 random(20260309);
  int found[3] = {};
  for (int i = 0; i < 5000; ++i) {
    PlaceAtRandom(random);
    const Untouched before;
    for (const Side side : {White, Black}) {
      const int attackers = AttackersByWalking(side);
      ++found[std::min(attackers, 2)];
      const Standing standing = GameState(side, true, NobodyInCheck);
      ASSERT_EQ(IsInCheck(side), attackers > 0) << before << " side " << side;
      ASSERT_EQ(GameState(side, false, NobodyInCheck), attackers > 0 ? check : neither) << before;
      ASSERT_EQ(standing != neither, attackers > 0) << before << " side " << side;
      ASSERT_EQ(Untouched(), before);
    }
  }
  for (const int boards : found) EXPECT_GT(boards, 1000) << "too few for a comparison";
}

}  // namespace
}  // namespace rules
