// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/piece_moves.h"

#include "fakes/fake_desktop.h"
#include "platform/setting_variables.h"
#include "rules/rules_fixture.h"

namespace rules {
namespace {

enum How {
  Quiet,  // judged as a move to an empty square, whatever is told of it
  Takes,  // judged as a capture of the piece told
  Attack  // judged as a capture of nothing told
};

struct MoveCase {
  const char* name;
  const char* board;
  const char* move;
  const char* refusal;  ///< as it begins; nothing where the move is allowed
  How how;
  int sideInCheck = NobodyInCheck;
  const char* lastMove = "";
};

const MoveCase moveCases[] = {
    {"beyond column h, before all else", "Ke1", "e1i5", "Dropping a piece", Takes},
    {"Black takes Black", "rb8 pb5", "b8b5", "You cannot take your own", Takes},
    {"White takes White", "Rb1 Pb5", "b1b5", "You cant take your own", Takes},
    {"Black takes White's king", "rb8 Kb5", "b8b5", "You cannot take your opponents King", Takes},
    {"a rook doesn't jump", "Ra1 pa3 pa5", "a1a5", "The Rook", Takes},
    {"a bishop doesn't go straight", "bc1", "c1c4", "The Bishop", Quiet},
    {"a queen is no knight", "Qd1", "d1e3", "The Queen", Quiet},
    {"a knight doesn't go two and two", "Nb1", "b1d3", "Although the Knights", Quiet},
    {"a king is no knight", "Ke1", "e1f3", "The King can only", Quiet},
    {"two rows are no castling", "Ke1", "e1e3", "The only time the King", Quiet},
    {"castling onto a piece", "Ke1 Rh1 ng1", "e1g1", "If you are trying to Castle, you cannot take",
     Takes},
    {"a king doesn't attack two squares away", "Ke1 Rh1", "e1g1",
     "If you are trying to Castle, you cannot take", Attack},
    {"three squares are no castling", "Ke1 Ra1", "e1b1", "If you are trying to Castle, you must",
     Quiet},
    {"castling in check", "Ke1 Rh1 re8", "e1g1", "If you are trying to Castle, you cannot because",
     Quiet, White},
    {"where nobody told of the check, the crossed square decides", "Ke1 Rh1 re8", "e1g1", "",
     Quiet},
    {"castling through a pawn's attack", "ke8 ra8 Pc7", "e8c8", "Moving the King to that", Quiet},
    {"a pawn back", "Pe3", "e3e2", "Pawns can only move forwards", Quiet},
    {"a pawn three ahead", "Pe2", "e2e5", "The Pawn can only move one", Quiet},
    {"a pawn two ahead later", "Pe3", "e3e5", "The Pawn has already moved", Quiet},
    {"a pawn two ahead over a piece", "Pe2 ne3", "e2e4", "Although it's the pawns first", Quiet},
    {"a pawn aslant without a capture", "Pe4", "e4d5", "You can only move a Pawn diagonally",
     Quiet},
    {"Black takes a double step en passant", "pd4 Pc4", "d4c3", "", Quiet, -1, "c2c4"},
    {"not on another column", "Pd5 pe5 pc5", "d5c6", "You can only move a Pawn diagonally", Quiet,
     -1, "e7e5"},
    {"not a queen's two steps", "Pd5 qe5", "d5e6", "You can only move a Pawn diagonally", Quiet, -1,
     "e7e5"},
    {"not what came from another column", "Pd5 pe5", "d5e6", "You can only move a Pawn diagonally",
     Quiet, -1, "c7e5"},
    {"a pawn doesn't take ahead", "Pe4 pe5", "e4e5", "The Pawn can only take in a", Takes},
    {"a pawn doesn't take two columns away", "Pe4 pc5", "e4c5", "The Pawn can only take adjasent",
     Takes},
};

struct PieceMovesTest : ::testing::Test {
  fakes::FakeDesktop desktop;

  static bool Ask(const MoveCase& row, bool verbose) {
    const LastMove move = Move(row.move);
    const PieceCode piece = ThePosition().BoardState.At(move.from);
    std::optional<PieceCode> taken;
    if (row.how != Attack && IsOnBoard(move.to)) taken = ThePosition().BoardState.At(move.to);
    return ValidMove(SideOfPiece(piece), piece, move.from, move.to, row.how != Quiet,
                     row.sideInCheck, taken, verbose, After(row.lastMove));
  }
};

TEST_F(PieceMovesTest, EveryRefusalIsToldInItsOwnWords) {
  platform::Settings().Verbose = true;
  for (const MoveCase& row : moveCases) {
    SCOPED_TRACE(row.name);
    desktop.boxes.messages.clear();
    desktop.sounds.played.clear();
    Place(row.board);
    const Untouched before;
    const bool allowed = *row.refusal == 0;

    EXPECT_EQ(Ask(row, false), allowed);
    EXPECT_TRUE(desktop.boxes.messages.empty()) << "a quiet question says nothing";
    EXPECT_TRUE(desktop.sounds.played.empty()) << "and plays nothing";

    EXPECT_EQ(Ask(row, true), allowed);
    EXPECT_EQ(Untouched(), before);
    const std::string told = desktop.LastMessage().second;
    EXPECT_EQ(told.empty(), allowed);
    EXPECT_TRUE(told.starts_with(row.refusal)) << told;
    EXPECT_EQ(desktop.sounds.played.size(), allowed ? 0u : 1u);
  }
}

}  // namespace
}  // namespace rules
