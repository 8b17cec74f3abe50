// SPDX-License-Identifier: GPL-3.0-or-later
#include "rules/notation.h"

#include "rules/piece_moves.h"
#include "rules/rules_fixture.h"

namespace rules {
namespace {

struct NotationCase {
  const char* name;
  const char* board;
  const char* move;  ///< with the letter of the new piece behind it in a promotion
  const char* text;
  const char* lastMove = "";
  const char* ending = "";  ///< "+" check, "#" mate, "=" drawn, "+=" both
};

const NotationCase notationCases[] = {
    {"a knight", "start", "g1f3", "Nf3"},
    {"a pawn", "start", "e2e4", "e4"},
    {"a pawn takes", "Pe4 pd5", "e4d5", "exd5"},
    {"en passant", "Pe5 pd5", "e5d6", "exd6ep", "d7d5"},
    {"Black en passant with check", "pe4 Pd4", "e4d3", "exd3ep+", "d2d4", "+"},
    {"promotion with capture and check", "Pe7 rd8", "e7d8Q", "exd8=Q+", "", "+"},
    {"underpromotion of Black", "pa2", "a2a1n", "a1=N"},
    {"a pawn that nobody exchanges", "pb2", "b2b1", "b1"},
    {"two rooks of one row", "Ra1 Rh1", "a1d1", "Rad1"},
    {"two rooks of one row, to the nearer's far side", "Ra1 Rb1", "b1d1", "Rbd1"},
    {"two rooks of one column", "Ra1 Ra5", "a1a3", "R1a3"},
    {"another column and another row need nothing", "Nb1 Nf3", "b1d2", "Nd2"},
    {"three queens need column and row", "Qa1 Qa3 Qc1 pb2", "a1b2", "Qa1xb2"},
    {"of two pawns of one column", "Pe2 Pe3", "e3e4", "3e4"},
    {"castling", "Ke1 Rh1", "e1g1", "0-0"},
    {"castling towards column 1 with mate", "ke8 ra8", "e8c8", "0-0-0++", "", "+#"},
    {"the longest move", "Qa1 Qa3 Qc1 pb2", "a1b2", "Qa1xb2+ 1/2-1/2", "", "+="},
};

TEST(NotationTest, MovesAreWrittenInShortForm) {
  for (const NotationCase& row : notationCases) {
    SCOPED_TRACE(row.name);
    Place(row.board);
    Position& position = ThePosition();
    const BoardSquares before = position.BoardState;
    const auto [from, to] = Move(row.move);
    const Side side = SideOf(from);
    position.SideToMove = side;
    const Castling castling = DetectCastling(side, from, to);
    const bool capture = before.At(to) != NoPiece;
    const auto passed = EnPassantSquare(from, to, After(row.lastMove), side);
    Carry(from, to);
    if (passed) position.BoardState.Put(*passed, NoPiece);
    if (castling != Castling::None) {
      Carry(CastlingRook(side, castling).from, CastlingRook(side, castling).to);
    }
    if (row.move[4] != '\0') position.BoardState.Put(to, CodeOf(row.move[4]));
    const std::string_view ending = row.ending;
    const auto ends = [&](char sign) { return ending.find(sign) != std::string_view::npos; };
    position.CheckmateFlag = ends('#');

    const Untouched after;
    const PlayedMove move{position.BoardState.At(to), from, to, capture,
                          castling != Castling::None};
    const std::string text = MoveNotation(move, ends('+') ? OtherSide(side) : NobodyInCheck, before,
                                          ends('='), After(row.lastMove));
    EXPECT_EQ(text, row.text);
    EXPECT_LE(text.size(), 15u);
    EXPECT_EQ(Untouched(), after);
  }
}

}  // namespace
}  // namespace rules
