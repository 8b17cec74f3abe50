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
    {"left of column a", "Ra1", "a1`1", offBoard, Quiet},
    {"beyond column h, before all else", "Ke1", "e1i5", offBoard, Takes},
    {"above row 8", "Pa8", "a8a9", offBoard, Attack},
    {"Black takes Black", "rb8 pb5", "b8b5", own, Takes},
    {"White takes White", "Rb1 Pb5", "b1b5", ownOfWhite, Takes},
    {"Black takes White's king", "rb8 Kb5", "b8b5", theKing, Takes},
    {"a king out of reach is refused as a king", "Qb1 kc5", "b1c5", theKing, Takes},
    {"a rook takes at the end of its line", "Ra1 pa5", "a1a5", fine, Takes},
    {"a rook's quiet move needs an empty end", "Ra1 Pa5", "a1a5", rook, Quiet},
    {"a rook doesn't jump", "Ra1 pa3 pa5", "a1a5", rook, Takes},
    {"a rook doesn't go aslant", "Ra1", "a1c3", rook, Quiet},
    {"a rook attacks its own side's squares", "Ra1 Pa5", "a1a5", fine, Attack},
    {"a bishop on its diagonal", "bh8", "h8a1", fine, Quiet},
    {"a bishop doesn't go straight", "bc1", "c1c4", bishop, Quiet},
    {"a bishop doesn't jump", "Bc1 Pd2", "c1e3", bishop, Quiet},
    {"a queen is no knight", "Qd1", "d1e3", queen, Quiet},
    {"a queen doesn't jump", "Qd1 Pd2", "d1d3", queen, Attack},
    {"a knight jumps", "start", "g1f3", fine, Quiet},
    {"a knight doesn't go two and two", "Nb1", "b1d3", knight, Quiet},
    {"a king is no knight", "Ke1", "e1f3", king, Quiet},
    {"two squares over a piece", "Ke1 Rh1 Bf1", "e1g1", king, Quiet},
    {"two rows are no castling", "Ke1", "e1e3", kingRows, Quiet},
    {"castling onto a piece", "Ke1 Rh1 ng1", "e1g1", castleTakes, Takes},
    {"a king doesn't attack two squares away", "Ke1 Rh1", "e1g1", castleTakes, Attack},
    {"three squares are no castling", "Ke1 Ra1", "e1b1", castleNot, Quiet},
    {"castling over the rook's neighbour", "Ke1 Ra1 Nb1", "e1c1", castleNot, Quiet},
    {"castling with a rook from elsewhere", "Ke1 Rh2", "e1g1", castleNot, Quiet},
    {"castling in check", "Ke1 Rh1 re8", "e1g1", inCheck, Quiet, White},
    {"where nobody told of the check, the crossed square decides", "Ke1 Rh1 re8", "e1g1", fine,
     Quiet},
    {"castling while the other side is in check", "Ke1 Rh1 ke8", "e1g1", fine, Quiet, Black},
    {"castling through check", "Ke1 Rh1 rf8", "e1g1", through, Quiet},
    {"castling through a pawn's attack", "ke8 ra8 Pc7", "e8c8", through, Quiet},
    {"castling into check is for others to see", "Ke1 Rh1 rg8", "e1g1", fine, Quiet},
    {"a pawn one ahead", "Pe2", "e2e3", fine, Quiet},
    {"a pawn two ahead from its first row", "pe7", "e7e5", fine, Quiet},
    {"a pawn back", "Pe3", "e3e2", forwards, Quiet},
    {"a pawn three ahead", "Pe2", "e2e5", oneOrTwo, Quiet},
    {"a pawn two ahead later", "Pe3", "e3e5", hasMoved, Quiet},
    {"a pawn two ahead over a piece", "Pe2 ne3", "e2e4", jumps, Quiet},
    {"a black pawn two ahead over a piece", "pe7 Ne6", "e7e5", jumps, Quiet},
    {"a pawn aslant without a capture", "Pe4", "e4d5", enPassant, Quiet},
    {"a pawn sideways", "Pe4", "e4d4", enPassant, Quiet},
    {"White takes a double step en passant", "Pd5 pe5", "d5e6", fine, Quiet, -1, "e7e5"},
    {"Black takes a double step en passant", "pd4 Pc4", "d4c3", fine, Quiet, -1, "c2c4"},
    {"not on another column", "Pd5 pe5 pc5", "d5c6", enPassant, Quiet, -1, "e7e5"},
    {"not a single step", "Pd5 pe5", "d5e6", enPassant, Quiet, -1, "e6e5"},
    {"not a queen's two steps", "Pd5 qe5", "d5e6", enPassant, Quiet, -1, "e7e5"},
    {"not what came from another column", "Pd5 pe5", "d5e6", enPassant, Quiet, -1, "c7e5"},
    {"not onto the square beside", "Pd4 pe5", "d4e5", enPassant, Quiet, -1, "e7e5"},
    {"not after a move off the board", "Pd5 pe5", "d5e6", enPassant, Quiet, -1, "e9e7"},
    {"a pawn takes aslant", "Pe4 pd5", "e4d5", fine, Takes},
    {"a black pawn attacks both diagonals", "pe7", "e7f6", fine, Attack},
    {"a pawn doesn't take ahead", "Pe4 pe5", "e4e5", takesAhead, Takes},
    {"a pawn doesn't take two columns away", "Pe4 pc5", "e4c5", takesFar, Takes},
    {"a pawn doesn't take two rows away", "Pe4 pd6", "e4d6", takesFar, Attack},
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

struct CastlingCase {
  const char* name;
  const char* board;
  const char* move;
  const char* moved;  ///< flags of both sides, of "a", "e" and "h"; null: as the board tells
  Castling castling;
};

constexpr Castling none = Castling::None;

const CastlingCase castlingCases[] = {
    {"towards column 8", "Ke1 Rh1", "e1g1", nullptr, Castling::TowardsColumn8},
    {"towards column 1", "Ke1 Ra1", "e1c1", nullptr, Castling::TowardsColumn1},
    {"Black towards column 1", "ke8 ra8", "e8c8", nullptr, Castling::TowardsColumn1},
    {"check isn't looked at", "Ke1 Rh1 re8 rf8 rg8", "e1g1", nullptr, Castling::TowardsColumn8},
    {"the flags stand for a rook that isn't there", "Ke1", "e1g1", "", Castling::TowardsColumn8},
    {"the king has moved", "Ke1 Rh1", "e1g1", "e", none},
    {"this rook has moved", "Ke1 Rh1", "e1g1", "h", none},
    {"the other rook has moved", "Ke1 Rh1", "e1g1", "a", Castling::TowardsColumn8},
    {"column 2 is occupied", "Ke1 Ra1 Nb1", "e1c1", nullptr, none},
    {"the to-square is occupied", "Ke1 Rh1 ng1", "e1g1", nullptr, none},
    {"a queen at the king's home", "Qe1 Rh1", "e1g1", "", none},
    {"into another row", "Ke1 Rh1", "e1g2", "", none},
};

TEST_F(PieceMovesTest, CastlingNeedsItsFlagsAndItsPath) {
  for (const CastlingCase& row : castlingCases) {
    SCOPED_TRACE(row.name);
    Place(row.board);
    if (row.moved != nullptr) {
      for (std::size_t i = 0; i < 6; ++i) {
        const char column = "aaeehh"[i];
        ThePosition().CastleState[i] =
            std::string_view(row.moved).find(column) != std::string::npos;
      }
    }
    const LastMove move = Move(row.move);
    EXPECT_EQ(DetectCastling(move.from.y == 8 ? Black : White, move.from, move.to), row.castling);
  }
}

}  // namespace
}  // namespace rules
