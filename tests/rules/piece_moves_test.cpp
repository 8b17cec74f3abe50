// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/piece_moves.h"

#include "fakes/fake_desktop.h"
#include "platform/messages.h"
#include "platform/setting_variables.h"
#include "rules/rules_fixture.h"

namespace rules {
namespace {

enum How {
  Quiet,  // judged as a move to an empty square, whatever is told of it
  Takes,  // judged as a capture of the piece told
  Attack  // judged as a capture of nothing told
};

struct Words {
  const char* text;
  const char* title = "Illegal move";
  int sound = 5;
};

constexpr Words fine{""};  // no refusal
constexpr Words own{"You cannot take your own pieces."};
constexpr Words ownOfWhite{"You cant take your own pieces."};
constexpr Words theKing{"You cannot take your opponents King.  That would be too easy!"};
constexpr Words offBoard{"Dropping a piece of the board won't help.", "Tarvolenix information", 6};
constexpr Words rook{"The Rook can only move in unobstructed stright lines."};
constexpr Words bishop{"The Bishop can only move in unobstructed diagonal lines."};
constexpr Words queen{"The Queen can only move in unobstructed straight or diagonal lines."};
constexpr Words knight{
    "Although the Knights path does not have to be unobstructed, it can only move in L shaped "
    "moves; two along and one to the side."};
constexpr Words king{"The King can only move in straight or diagonal directions.",
                     "Move validation"};
constexpr Words kingRows{
    "The only time the King can move more than one space is when it's Castling and that is a "
    "horizontal move."};
constexpr Words castleTakes{"If you are trying to Castle, you cannot take a piece as you do it."};
constexpr Words castleNot{
    "If you are trying to Castle, you must move the king two space left or right."};
constexpr Words inCheck{"If you are trying to Castle, you cannot because you are in check."};
constexpr Words through{"Moving the King to that position would leave you in check."};
constexpr Words forwards{"Pawns can only move forwards."};
constexpr Words enPassant{
    "You can only move a Pawn diagonally when performing an En Passon manouver."};
constexpr Words oneOrTwo{"The Pawn can only move one space at a time or two as its first move."};
constexpr Words hasMoved{"The Pawn has already moved so it can now only move one space at a time."};
constexpr Words jumps{
    "Although it's the pawns first move and it can move two spaces, it can never jump over another "
    "piece."};
constexpr Words takesAhead{"The Pawn can only take in a diagonal line."};
constexpr Words takesFar{"The Pawn can only take adjasent pieces."};

struct MoveCase {
  const char* name;
  const char* board;
  const char* move;
  const Words& refusal;
  How how;
  int sideInCheck = NobodyInCheck;
  const char* lastMove = "";
};

const MoveCase moveCases[] = {
    {"beyond column h, before all else", "Ke1", "e1i5", offBoard, Takes},
    {"Black takes Black", "rb8 pb5", "b8b5", own, Takes},
    {"White takes White", "Rb1 Pb5", "b1b5", ownOfWhite, Takes},
    {"Black takes White's king", "rb8 Kb5", "b8b5", theKing, Takes},
    {"a rook doesn't jump", "Ra1 pa3 pa5", "a1a5", rook, Takes},
    {"a bishop doesn't go straight", "bc1", "c1c4", bishop, Quiet},
    {"a queen is no knight", "Qd1", "d1e3", queen, Quiet},
    {"a knight doesn't go two and two", "Nb1", "b1d3", knight, Quiet},
    {"a king is no knight", "Ke1", "e1f3", king, Quiet},
    {"two rows are no castling", "Ke1", "e1e3", kingRows, Quiet},
    {"castling onto a piece", "Ke1 Rh1 ng1", "e1g1", castleTakes, Takes},
    {"a king doesn't attack two squares away", "Ke1 Rh1", "e1g1", castleTakes, Attack},
    {"three squares are no castling", "Ke1 Ra1", "e1b1", castleNot, Quiet},
    {"castling in check", "Ke1 Rh1 re8", "e1g1", inCheck, Quiet, White},
    {"where nobody told of the check, the crossed square decides", "Ke1 Rh1 re8", "e1g1", fine,
     Quiet},
    {"castling through a pawn's attack", "ke8 ra8 Pc7", "e8c8", through, Quiet},
    {"a pawn back", "Pe3", "e3e2", forwards, Quiet},
    {"a pawn three ahead", "Pe2", "e2e5", oneOrTwo, Quiet},
    {"a pawn two ahead later", "Pe3", "e3e5", hasMoved, Quiet},
    {"a pawn two ahead over a piece", "Pe2 ne3", "e2e4", jumps, Quiet},
    {"a pawn aslant without a capture", "Pe4", "e4d5", enPassant, Quiet},
    {"Black takes a double step en passant", "pd4 Pc4", "d4c3", fine, Quiet, -1, "c2c4"},
    {"not on another column", "Pd5 pe5 pc5", "d5c6", enPassant, Quiet, -1, "e7e5"},
    {"not a queen's two steps", "Pd5 qe5", "d5e6", enPassant, Quiet, -1, "e7e5"},
    {"not what came from another column", "Pd5 pe5", "d5e6", enPassant, Quiet, -1, "c7e5"},
    {"a pawn doesn't take ahead", "Pe4 pe5", "e4e5", takesAhead, Takes},
    {"a pawn doesn't take two columns away", "Pe4 pc5", "e4c5", takesFar, Takes},
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
    const bool allowed = &row.refusal == &fine;

    EXPECT_EQ(Ask(row, false), allowed);
    EXPECT_TRUE(desktop.boxes.messages.empty()) << "a quiet question says nothing";
    EXPECT_TRUE(desktop.sounds.played.empty()) << "and plays nothing";

    EXPECT_EQ(Ask(row, true), allowed);
    EXPECT_EQ(Untouched(), before);
    if (allowed) {
      EXPECT_TRUE(desktop.boxes.messages.empty());
      continue;
    }
    const auto told = std::pair<std::string, std::string>(row.refusal.title, row.refusal.text);
    EXPECT_EQ(desktop.LastMessage(), told);
    EXPECT_EQ(desktop.sounds.played, std::vector{platform::SoundPath(row.refusal.sound)});
  }
}

}  // namespace
}  // namespace rules
