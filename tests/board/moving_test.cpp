// SPDX-License-Identifier: GPL-3.0-or-later
// From the press on a piece to the pending move, and back.
#include "board/board_fixture.h"
#include "rules/notation.h"

namespace board {
namespace {

struct MoveCase {
  const char* name;
  const char* game;
  const char* move;
  const char* text;
  const char* also;  ///< what else changes on the board
  const char* flags;
};

const MoveCase moveCases[] = {
    {"castling takes the rook along", "Ke1 Ra1 Rh1 ke8|", "e1g1", "0-0", "h1f1", "011101"},
    {"en passant", "Ke1 Pe5 ke8 pd7|e1f1, d7d5|", "e5d6", "exd6ep", ".d5", "111101"},
    {"a pawn takes and becomes a queen", "Ke1 Pe7 ke8 rd8|", "e7d8", "exd8=Q+", "Qd8", "101101"},
    {"a rook is taken at home", "Ke1 Be5 ke8 rh8 pa7|", "e5h8", "Bxh8", "", "101101"},
};

TEST_F(BoardTest, AMoveStaysPendingAndUndoTakesAllOfItBack) {
  for (const MoveCase& row : moveCases) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    const rules::Untouched before;
    const rules::Position start = ThePosition();
    const int count = game->Moves.Count();
    const std::string text = row.text;
    if (const auto sign = text.find('='); sign != text.npos) {
      view->promotion = rules::PieceOfLetter(text[sign + 1]);
    }
    Change(row.move);
    Change(row.also);
    const std::string after = BoardText();
    ThePosition() = start;

    game->PlayerComment = "there!";
    Play(row.move);
    EXPECT_EQ(BoardText(), after);
    EXPECT_EQ(Flags(), row.flags);
    EXPECT_EQ(ThePosition().SideInCheck, text.ends_with('+') ? rules::Black : rules::NobodyInCheck);
    ASSERT_EQ(game->Moves.Count(), count + 1);
    EXPECT_EQ(game->Moves.Last().MoveText, text);
    EXPECT_EQ(game->OpponentComment, "You said: there!");
    EXPECT_EQ(Offers(*game), "undo send comment Cancel");
    ExpectWindowIsUpToDate();

    ToolbarClick(*game, UndoButton);
    EXPECT_EQ(rules::Untouched(), before);
    EXPECT_FALSE(GameIsOver(*game));
    EXPECT_EQ(game->Moves.Count(), count);
    EXPECT_EQ(Offers(*game), count > 0 ? "move surrender comment Cancel" : "move comment Cancel");
    ExpectWindowIsUpToDate();
  }
}

struct RefusedCase {
  const char* name;
  const char* game;
  const char* move;
  bool selfCheck = true;
};

const RefusedCase refusedCases[] = {
    {"a pinned rook", "Ke1 Re2 re8 kh8", "e2d2"},
    {"a promotion, before the choice", "Ke7 Pd7 ra7 kh8", "d7d8"},
    {"castling with a rook that has moved", "Ke1 Rh1 ke8|h1h2, e8e7, h2h1, e7e8", "e1g1", false},
};

TEST_F(BoardTest, ARefusedMoveLeavesEverythingAsItWas) {
  for (const RefusedCase& row : refusedCases) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    const rules::Untouched before;
    const int count = game->Moves.Count();
    Play(row.move);
    EXPECT_TRUE(Told().starts_with("Illegal move: "));
    EXPECT_EQ(rules::Untouched(), before);
    EXPECT_TRUE(ThePosition().MoveAllowed);
    EXPECT_EQ(game->Moves.Count(), count);
    EXPECT_EQ(view->asked, 0);
    EXPECT_EQ(game->SelfCheckFlashes > 0, row.selfCheck);
    EXPECT_FALSE(GameIsOver(*game) || game->LockedForDialog);
    ExpectWindowIsUpToDate();
  }
}

TEST_F(BoardTest, OnlyAnOwnPieceCanBeLiftedAndOnlyOnTurn) {
  const auto lifts = [this](const char* square) {
    return CBoard_MouseDown(*game, rules::Sq(square));
  };
  OpenGame("|e2e4, e7e5");
  EXPECT_FALSE(lifts("e5"));
  EXPECT_TRUE(lifts("g1"));
  MoveList_RowColChange(*game, 1);
  EXPECT_FALSE(lifts("g1")) << "an older row is shown";
  OpenGame("|e2e4");
  EXPECT_FALSE(lifts("g1")) << "waiting for the opponent";
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
