// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/fen.h"

#include "pgn/pgn_fixture.h"

namespace pgn {
namespace {

struct ReplayCase {
  const char* name;
  const char* moves;  ///< "e2e4", or an entry's text
  const char* fen;
};

const ReplayCase replayCases[] = {
    {"the start", "", "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1"},
    {"a double step", "e2e4", "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq e3 0 1"},
    {"a king that moved, a rook that moved", "e2e4 a7a5 e1e2 a8a6",
     "1nbqkbnr/1ppppppp/r7/p7/4P3/8/PPPPKPPP/RNBQ1BNR w k - 2 3"},
    {"an offer ends what a double step allows", "e2e4 Draw_offer",
     "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq - 0 1"},
    {"castling and a capture", "g1f3 d7d5 g2g3 d5d4 f1g2 b8c6 e1g1 e7e5 f3e5",
     "r1bqkbnr/ppp2ppp/2n5/4N3/3p4/6P1/PPPPPPBP/RNBQ1RK1 b kq - 0 5"},
};

TEST(FenTest, APositionOfAGameIsWrittenFromItsReplay) {
  for (const ReplayCase& row : replayCases) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(FenOfGame({}, Entries(row.moves)), row.fen);
    EXPECT_EQ(ReadAndWritten(row.fen), row.fen);
  }
}

const char* const readable[] = {
    "4k3/P7/8/8/8/8/8/R3K2R w KQ - 99 120",
    "r3k2r/8/8/3pP3/8/8/8/4K3 w kq d6 0 31",
    "k7/8/8/8/8/8/p7/7K b - - 0 1",
};

TEST(FenTest, WhatIsReadIsWrittenTheSame) {
  for (const char* fen : readable) EXPECT_EQ(ReadAndWritten(fen), fen);
  EXPECT_EQ(ReadAndWritten(" 4k3/P7/8/8/8/8/8/4K3  b  -  - "), "4k3/P7/8/8/8/8/8/4K3 b - - 0 1");
}

struct TroubleCase {
  const char* fen;
  const char* trouble;
};

const TroubleCase troubleCases[] = {
    {"", "There is no position: it is empty."},
    {"4k3/8/8/8/8/8/8/8/4K3 w - - 0 1", "The board has 9 rows in place of 8."},
    {"hello world",
     "That is no position: one begins with the eight rows of the board, such as "
     "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR."},
    {"4k3/8/8/8/1/8/8/4K3 w - - 0 1", "Row 4 has 1 square in place of 8."},
    {"4k3/8/8/8/7/8/8/4K3 w - - 0 1", "Row 4 has 7 squares in place of 8."},
    {"4k3/8/8/8/8/8/8/pppppppppp w - - 0 1", "Row 1 has 10 squares in place of 8."},
    {"4k3/8/8/8/7x/8/8/4K3 w - - 0 1", "Row 4 holds \"x\", which is no piece and no number."},
    {"4k3/8/8/8/7\xC3\xA9/8/8/4K3 w - - 0 1",
     "Row 4 holds \"\xC3\xA9\", which is no piece and no number."},
    {"4k3/8/8/8/8/8/8/P3K3 w - - 0 1", "Row 1 holds a pawn, and no pawn can stand there."},
    {"4k2p/8/8/8/8/8/8/4K3 w - - 0 1", "Row 8 holds a pawn, and no pawn can stand there."},
    {"4k3/8/8/8/8/8/8/4R1K1 w - - 0 1", "Black is in check, and it isn't Black's turn."},
    {"8/8/8/8/8/8/8/4K3 w - - 0 1", "Black has no king."},
    {"4k3/8/8/8/8/8/8/K3K3 w - - 0 1", "White has 2 kings."},
    {"4k3/8/8/8/8/8/8/4K3", "It ends behind the board: whose turn it is, w or b, is missing."},
    {"4k3/8/8/8/8/8/8/4K3 white - - 0 1", "The side to move is \"white\"; it is w or b."},
    {"4k3/8/8/8/8/8/8/4K3 w KX - 0 1", "Who may castle is \"KX\"; it is some of KQkq, or -."},
    {"4k3/8/8/8/8/8/8/4K3 w Q - 0 1",
     "White can't castle on the queen's side: king and rook don't both stand at home."},
    {"4k3/8/8/3pP3/8/8/8/4K3 w - d3 0 1",
     "A pawn that was passed over \"d3\" can't be taken: the square is one of row 6, or -."},
    {"4k3/8/8/4P3/8/8/8/4K3 w - d6 0 1", "No pawn has just passed over d6."},
    {"4k3/8/8/8/8/8/8/4K3 w - - x 1", "A counter is \"x\"; it is a number from 0 to 9999."},
    {"4k3/8/8/8/8/8/8/4K3 w - - 0 0", "A counter is \"0\"; it is a number from 1 to 9999."},
    {"4k3/8/8/8/8/8/8/4K3 w - - 0 1 1", "There is more behind the number of the move."},
};

TEST(FenTest, WhatIsWrongIsSaidInPlainWords) {
  for (const TroubleCase& row : troubleCases) EXPECT_EQ(ReadFen(row.fen).trouble, row.trouble);
}

const TroubleCase startCases[] = {
    {"4k3/8/8/8/8/8/8/R3K3 b - - 0 1", "It is Black's turn, and a game begins with White's move."},
    {"4k3/8/8/8/8/8/8/R3K3 w - - 0 1",
     "White may not castle on the queen's side although king and rook stand at home, and in a game "
     "that begins here that is allowed."},
    {"4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 1",
     "A pawn can be taken in passing, and no game can begin with that."},
    {"4k3/8/8/3p4/8/4P3/8/4K3 w - d6 0 1", ""},
    {"4k3/8/8/8/8/8/8/R3K3 w Q - 0 1", ""},
};

TEST(FenTest, AGameBeginsWithABoardAndWhitesMove) {
  for (const TroubleCase& row : startCases) EXPECT_EQ(WhyNoStart(ReadFen(row.fen)), row.trouble);
}

}  // namespace
}  // namespace pgn
