// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/san.h"

#include "pgn/pgn_fixture.h"
#include "rules/attack.h"

namespace pgn {
namespace {

/// White to move, behind what may be taken in passing.
Turn PutUp(const char* position, const char* lastMove = "") {
  rules::Place(position);
  if (rules::IsInCheck(rules::White)) rules::ThePosition().SideInCheck = rules::White;
  Turn turn;
  turn.lastMove = rules::After(lastMove);
  return turn;
}

ChessMove MoveFor(const char* text) {
  const auto [from, to] = rules::Move(text);
  const bool promotion = std::string_view(text).size() > 4;
  return {from, to, promotion ? rules::CodeOf(text[5]) : rules::ThePosition().BoardState.At(from)};
}

struct SanCase {
  const char* name;
  const char* position;
  const char* move;
  const char* san;
  const char* lastMove = "";
};

const SanCase sanCases[] = {
    {"a pawn's step", "start", "e2e4", "e4"},
    {"a knight", "start", "g1f3", "Nf3"},
    {"a pawn takes", "Ke1 ke8 Pe4 pd5", "e4d5", "exd5"},
    {"a pawn takes in passing", "Ke1 ke8 Pe5 pd5", "e5d6", "exd6", "d7d5"},
    {"a promotion with capture and check", "Ke1 kg8 Pe7 rd8", "e7d8=Q", "exd8=Q+"},
    {"a promotion to a knight", "Ke1 kg8 Pe7", "e7e8=N", "e8=N"},
    {"knights of neither one row nor one column", "Ke1 ke8 Nb1 Nf3", "b1d2", "Nbd2"},
    {"rooks of one row", "Ke2 ke8 Ra1 Rh1", "a1d1", "Rad1"},
    {"rooks of one column", "Ke2 kh8 Ra1 Ra5", "a1a3", "R1a3"},
    {"three queens", "Kg1 kf8 Qa1 Qa4 Qd1", "a1d4", "Qa1d4"},
    {"a pinned knight is no other one", "Ke1 kh8 re8 Ne3 Nb1", "b1c3", "Nc3"},
    {"castling towards the king's rook", "Ke1 Rh1 Ra1 kd8", "e1g1", "O-O"},
    {"castling with check", "Ke1 Rh1 Ra1 kd8", "e1c1", "O-O-O+"},
    {"mate", "Kg1 kh8 pg7 ph7 Rd1", "d1d8", "Rd8#"},
};

TEST(SanTest, AMoveIsWrittenAsTheStandardHasItAndReadBack) {
  for (const SanCase& row : sanCases) {
    SCOPED_TRACE(row.name);
    Turn turn = PutUp(row.position, row.lastMove);
    const ChessMove move = MoveFor(row.move);
    std::string trouble;
    const auto read = ReadSan(row.san, turn, trouble);
    EXPECT_TRUE(read && read->from == move.from && read->to == move.to &&
                read->becomes == move.becomes)
        << trouble;
    EXPECT_EQ(PlaySan(turn, move), row.san);
  }
}

struct ReadCase {
  const char* position;
  const char* san;
  const char* squares;  ///< none where it is refused
  const char* trouble = "";
};

const ReadCase readCases[] = {
    {"start", "Ng1-f3", "g1f3"},
    {"start", "e2e4!?", "e2e4"},
    {"start", "Pe4", "e2e4"},
    {"Ke1 Rh1 ke8", "0-0+", "e1g1"},
    {"Ke1 ke8 Pe7 rd8", "ed8Q++", "e7d8"},
    {"start", "Nd2", nullptr, "There is no knight that can go to d2."},
    {"start", "e5", nullptr, "There is no pawn that can go to e5."},
    {"start", "O-O", nullptr, "Castling isn't possible here."},
    {"Ke1 Rh1 ke8 rf8", "O-O", nullptr, "Castling isn't possible here."},
    {"Ke1 ke8 Ra1 Rh1", "Rd1", "a1d1"},
    {"Ke2 ke8 Ra1 Rh1", "Rd1", nullptr,
     "More than one rook can go to d1, and it isn't said which."},
    {"Ke1 kh8 re8 Ne3", "Nc4", nullptr,
     "The knight can't go to c4: the king would be left in check."},
    {"Ke1 kh8 Pa7", "a8", nullptr, "It isn't said what the pawn becomes."},
    {"start", "e4=Q", nullptr, "The pawn doesn't reach the last row."},
    {"start", "Nf3=Q", nullptr, "Only a pawn can become another piece."},
    {"start", "Ni9", nullptr, "That is no move."},
    {"start", "", nullptr, "That is no move."},
};

TEST(SanTest, WhatOthersWriteIsUnderstoodOrRefusedInWords) {
  for (const ReadCase& row : readCases) {
    SCOPED_TRACE(row.san);
    const Turn turn = PutUp(row.position);
    std::string trouble;
    const auto move = ReadSan(row.san, turn, trouble);
    EXPECT_EQ(trouble, row.trouble);
    ASSERT_EQ(move.has_value(), row.squares != nullptr);
    if (move) {
      EXPECT_EQ(rules::NameOf(move->from) + rules::NameOf(move->to), row.squares);
    }
  }
}

}  // namespace
}  // namespace pgn
