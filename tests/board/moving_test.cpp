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
  std::string told = "";
};

const std::string stalemate = "Stalemate!: This move will force a draw.";
const std::string forced =
    "Forced draw: This move will force a draw because you cannot checkmate with only ";

const MoveCase moveCases[] = {
    {"castling takes the rook along", "Ke1 Ra1 Rh1 ke8|", "e1g1", "0-0", "h1f1", "011101"},
    {"en passant", "Ke1 Pe5 ke8 pd7|e1f1, d7d5|", "e5d6", "exd6ep", ".d5", "111101"},
    {"a pawn takes and becomes a queen", "Ke1 Pe7 ke8 rd8|", "e7d8", "exd8=Q+", "Qd8", "101101"},
    {"Black castles", "Ke1 ke8 ra8 rh8|e1e2|guest", "e8g8", "0-0", "h8f8", "111011"},
    {"a rook is taken at home", "Ke1 Be5 ke8 rh8 pa7|", "e5h8", "Bxh8", "", "101101"},
    {"a mate", "Ke1 Ra1 kg8 pf7 pg7 ph7|", "a1a8", "Ra8++", "", "101111"},
    {"stalemate", "Kf6 Qa2 kh8|", "a2f7", "Qf7 1/2-1/2", "", "111111", stalemate},
    {"kings alone", "Ke1 kd5 pe2|", "e1e2", "Kxe2 1/2-1/2", "", "111111", forced + "a king each."},
};

TEST_F(BoardTest, AMoveStaysPendingAndUndoTakesAllOfItBack) {
  for (const MoveCase& row : moveCases) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    const rules::Untouched before;
    const rules::Position start = ThePosition();
    const int count = game->Moves.Count();
    const std::string text = row.text;
    const bool check = text.find('+') != text.npos;
    const bool mate = text.ends_with("++");
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
    EXPECT_EQ(Told(), row.told);
    EXPECT_EQ(ThePosition().SideInCheck, check ? rules::OtherSide(start.SideToMove) : -1);
    EXPECT_EQ(ThePosition().CheckmateFlag, mate);
    EXPECT_EQ(game->GameDrawn, text.ends_with(" 1/2-1/2"));
    ASSERT_EQ(game->Moves.Count(), count + 1);
    EXPECT_EQ(game->Moves.Last().MoveText, text);
    EXPECT_EQ(game->OpponentComment, "You said: there!");
    EXPECT_EQ(Offers(*game), "undo send comment Cancel");
    if (!mate) ExpectWindowIsUpToDate();

    ToolbarClick(*game, UndoButton);
    EXPECT_EQ(rules::Untouched(), before);
    EXPECT_FALSE(GameIsOver(*game));
    EXPECT_EQ(game->Moves.Count(), count);
    EXPECT_EQ(Offers(*game), count > 0 ? "move surrender comment Cancel" : "move comment Cancel");
    ExpectWindowIsUpToDate();
  }
}

const Case refusedCases[] = {
    {"a pinned rook", "Ke1 Re2 re8 kh8", "e2d2 Rook"},
    {"castling into an attack", "Ke1 Rh1 rg8 kh8", "e1g1 King"},
    {"a promotion, before the choice", "Ke7 Pd7 ra7 kh8", "d7d8 Pawn"},
    {"castling with a rook that has moved", "Ke1 Rh1 ke8|h1h2, e8e7, h2h1, e7e8",
     "e1g1 Illegal move: If you are trying to Castle, you must move the king two space left or "
     "right."},
    {"a drop beside the board", "",
     "e2i2 Tarvolenix information: Dropping a piece of the board won't help."},
    {"a drop on its own square says nothing", "", "e2e2 "},
};

TEST_F(BoardTest, ARefusedMoveLeavesEverythingAsItWas) {
  for (const Case& row : refusedCases) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    const rules::Untouched before;
    const int count = game->Moves.Count();
    std::string told = std::string(row.expected).substr(5);
    const bool selfCheck = !told.empty() && told.find(':') == told.npos;
    if (selfCheck) {
      told = "Illegal move: You cannot move the " + told +
             " there because it will leave you in check.";
    }
    for (const bool verbose : {true, false}) {
      platform::Settings().Verbose = verbose;
      Play(std::string(row.expected).substr(0, 4));
      EXPECT_EQ(Told(), verbose ? told : "");
      EXPECT_EQ(rules::Untouched(), before);
      EXPECT_TRUE(ThePosition().MoveAllowed);
      EXPECT_EQ(game->Moves.Count(), count);
      EXPECT_EQ(view->asked, 0);
      EXPECT_EQ(game->SelfCheckFlashes, selfCheck ? 10 : 0);
      EXPECT_FALSE(GameIsOver(*game) || game->LockedForDialog);
      ExpectWindowIsUpToDate();
    }
  }
}

const Case liftingCases[] = {
    {"an own piece", "|e2e4, e7e5", "g1 "},
    {"the opponent's piece", "|e2e4, e7e5", "e5 Illegal move: That is not one of your pieces!"},
    {"waiting for the opponent", "|e2e4", "g1 not now"},
    {"an older row is shown", "|e2e4, e7e5|browse", "g1 not now"},
};

TEST_F(BoardTest, OnlyAnOwnPieceCanBeLiftedAndOnlyOnTurn) {
  for (const Case& row : liftingCases) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    if (std::string_view(row.game).ends_with("browse")) MoveList_RowColChange(*game, 1);
    RemoveHilight(*game);
    std::string told = row.expected + 3;
    if (told == "not now") {
      told = "Tarvolenix information: You are not allowed to make a move right now.";
    }
    EXPECT_EQ(CBoard_MouseDown(*game, rules::Sq(row.expected)), told.empty());
    EXPECT_EQ(Told(), told);
  }
}

}  // namespace
}  // namespace board
