// SPDX-License-Identifier: GPL-3.0-or-later
// The replay that every position comes from, and what the window shows of the moves.
#include <random>

#include "board/board_fixture.h"
#include "rules/piece_moves.h"
#include "rules/test_moves.h"

namespace board {
namespace {

/// One of the legal moves, blank where there is none.
std::string AnyMove(rules::LastMove last, std::mt19937& random) {
  const rules::Position& now = ThePosition();
  std::vector<std::string> legal;
  for (int i = 0; i < 64 * 64; ++i) {
    const Square from = rules::SquareAt(i / 64);
    const Square to = rules::SquareAt(i % 64);
    const rules::PieceCode piece = now.BoardState.At(from);
    if (rules::SideOf(from) == now.SideToMove && rules::IsTargetSquare(now.SideToMove, to) &&
        rules::ValidMove(now.SideToMove, piece, from, to, rules::SideOf(to) != rules::NoSide,
                         now.SideInCheck, {}, false, last) &&
        rules::TestMoveIsLegal(now.SideToMove, piece, from, to, last, now.SideInCheck)) {
      legal.push_back(rules::NameOf(from) + rules::NameOf(to));
    }
  }
  return legal.empty() ? "" : legal[random() % legal.size()];
}

TEST_F(BoardTest, AReplayReachesWhatWasPlayed) {
  const char* const starts[] = {
      "start", "Ke1 Ra1 Rh1 Pb2 Pc2 Pf2 Pg2 Pd5 Pe5 ke8 ra8 rh8 pb7 pc7 pf7 pg7 pd4 pe4",
      "Ke1 Pa7 Pb7 Pg2 Ph2 ke8 pa2 pb2 pg7 ph7", "Ke1 Be2 Pc2 kd5 bc7 pd4", "Ka1 Qb2 kh8 qe5"};
  std::mt19937 random(20260309);
  std::string seen;
  for (int n = 0; n < 60; ++n) {
    SCOPED_TRACE("game " + std::to_string(n));
    rules::Place(starts[n % 5]);
    Process().SetupGame = true;
    Open(-1);
    std::vector<rules::Position> reached;
    store::MoveRecords entries;
    while (reached.size() < 150 && !board->GameIsOver()) {
      ThePosition().MoveAllowed = true;
      const std::string move = AnyMove(board->Moves.MoveOf(board->Moves.Count()), random);
      ASSERT_FALSE(move.empty()) << "an end went unseen";
      view->promotion = rules::WhiteRook + static_cast<int>(random() % 4);
      Play(move);
      ASSERT_EQ(board->Moves.Count(), static_cast<int>(reached.size()) + 1) << move;
      reached.push_back(ThePosition());
      entries.push_back(board->Moves.Last());
      seen += entries.back().MoveText + " ";
      ThePosition().SideToMove = rules::OtherSide(ThePosition().SideToMove);
    }
    const bool drawn = board->GameDrawn;
    const int count = board->Moves.Count();
    StoreGame(std::string(starts[n % 5]));
    store::GameRecords games;
    ASSERT_TRUE(store::SelectGames(games, "") && store::SaveGame(games[0], entries));
    Open();
    EXPECT_EQ(board->GameDrawn, drawn);
    for (int row = count; row >= 1; row -= 1 + static_cast<int>(random() % 7)) {
      board->MoveList_RowColChange(row);
      const rules::Position& then = reached[static_cast<std::size_t>(row - 1)];
      EXPECT_EQ(BoardText(), rules::WriteBoardText(then.BoardState)) << row;
      EXPECT_EQ(ThePosition().CastleState, then.CastleState) << row;
      EXPECT_EQ(ThePosition().CheckmateFlag, then.CheckmateFlag) << row;
      // A drawn game doesn't look for a check of Black.
      EXPECT_TRUE(drawn || ThePosition().SideInCheck == then.SideInCheck) << row;
    }
  }
  for (const char* text : {"0-0 ", "0-0-0", "ep", "=R", "=N", "=B", "=Q", "+ ", "++", "1/2-1/2"}) {
    EXPECT_NE(seen.find(text), seen.npos) << "no game had " << text;
  }
}

const Case wordCases[] = {
    {"an offer stands while it is last", "|e1e1 Draw offer", "offered "},
    {"a refusal clears it", "|e1e1 Draw offer, e8e8 Decline", ""},
    {"so does a move", "|e1e1 Draw offer, e7e5", ""},
    {"acceptance draws", "|e1e1 Draw offer, e8e8 1/2-1/2", "offered drawn "},
    {"a move may draw", "|e2e4 e4 1/2-1/2", "drawn "},
    {"a refusal undoes even that", "|e2e4 e4 1/2-1/2, e8e8 Decline", ""},
    {"White surrenders", "|e1e1 0-1", "surrendered "},
    {"Black surrenders", "|e2e4, e8e8 1-0", "surrendered "},
    {"the old word for it", "|e1e1 Surrender", "surrendered "},
    {"a surrender leaves an offer standing", "|e1e1 Draw offer, e8e8 1-0", "offered surrendered "},
    {"two pluses mate", "|e2e4 e4++", "mated "},
    {"but only in the last entry", "|e2e4 e4++, e7e5", ""},
    {"and only at its end", "|e2e4 e4++ 1/2-1/2", "drawn "},
    {"a user who opens on his stalemate", "Kf6 Qa2 kh8|a2f7|guest", "drawn "},
    {"an opponent's is told by the text", "Kf6 Qa2 kh8|a2f7", ""},
    {"en passant is a way out of it", "Ka1 Qc7 Pa3 Pc2 Pd3 ka8 pa4 pd4|c2c4|guest", ""},
    {"but not later", "Ka1 Qc7 Pa3 Pc4 Pd3 ka8 pa4 pd4|a1a2|guest", "drawn "},
    {"a check of White", "Ke1 Ra1 ka8 rb8|a1a2, b8b1", "White in check "},
    {"a check of Black", "Ke1 Rh2 ka8|h2h8 Rh8+", "Black in check "},
    {"a drawn game doesn't look for one", "Ke1 Rh2 ka8|h2h8 Rh8+ 1/2-1/2", "drawn "},
    {"a check of the start is over", "Ke1 Rh8 ka8|h8h7", ""},
};

const Case backCases[] = {
    {"a surrender isn't yet", "|e2e4, e8e8 1-0", ""},
    {"nor is a mate", "|e2e4, e7e5 e5++", ""},
    {"a draw stays in sight", "|e2e4, e7e5 e5 1/2-1/2", "drawn "},
    {"a stalemate that was played on", "Kf6 Qa2 kh8|a2f7, 0000, f7a2|guest", ""},
};

TEST_F(BoardTest, TheListTellsHowAGameStandsAndStoodAtItsFirstEntry) {
  const auto state = [this] {
    std::string words = board->DrawOffered ? "offered " : "";
    if (board->GameDrawn) words += "drawn ";
    if (board->Surrendered) words += "surrendered ";
    if (ThePosition().CheckmateFlag) words += "mated ";
    if (ThePosition().SideInCheck == rules::White) words += "White in check ";
    if (ThePosition().SideInCheck == rules::Black) words += "Black in check ";
    return words;
  };
  Expect(wordCases, state);
  Expect(backCases, [&] {
    board->MoveList_RowColChange(1);
    return state();
  });
}

const Case replayCases[] = {
    {"a promotion", "Ke1 Pa7 ke8 ph2|a7a8 a8=R+", "101101 Ke1 Ra8 ke8 ph2"},
    {"a knight of Black", "Ke1 Pa7 ke8 ph2|e1e2, h2h1 h1=N", "111101 Ke2 Pa7 ke8 nh1"},
    {"a sign without a letter", "Ke1 Pa7 ke8|a7a8 a8=", "101101 Ke1 Pa8 ke8"},
    {"a letter that is no choice", "Ke1 Pa7 ke8|a7a8 a8=K", "101101 Ke1 Pa8 ke8"},
    {"a word in small letters is a move", "|e2e4 draw offer", "000000 start e2e4"},
    {"an empty from-square", "|e3e2", "000000 start e3e2"},
    {"kings are taken", "|d1e8, a1e1", "100000 start d1e8 a1e1"},
    {"a piece on its own square is gone", "|e2e2", "000000 start e3e2"},
    {"no coordinates", "|0000", "000000 start"},
    {"letters", "|x2y4", "000000 start"},
    {"digits beyond the board", "|5259, 0754", "000000 start"},
    {"too few digits", "|525", "000000 start"},
    {"no en passant in the first row", "Ke1 Pe5 ke8 pd5|e5d6", "101101 Ke1 Pd6 ke8 pd5"},
    {"castling", "Ke1 Ra1 ke8 rh8|e1c1, e8g8", "111111 Kc1 Rd1 kg8 rf8"},
};

TEST_F(BoardTest, AReplayTakesRowsForWhatTheyCanBe) {
  for (const Case& row : replayCases) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    EXPECT_EQ(Flags() + BoardText(), std::string(row.expected, 6) + BoardText(row.expected + 7));
    ExpectWindowIsUpToDate();
  }
}

TEST_F(BoardTest, ThousandsOfRowsOfGarbageAreSurvived) {
  std::mt19937 random(5);
  const std::string characters = "0123456789123456781234567812345678ax";
  const char* const texts[] = {"e4", "e8=N", "=Q", "=", "+", "++", "0-0", "Decline", "Draw offer"};
  std::string entries = "|";
  for (int n = 1; n <= 5000; ++n) {
    for (int i = 0; i < 4; ++i) entries += characters[random() % characters.size()];
    entries += std::string(" ") + texts[random() % std::size(texts)] + "#?,";
  }
  for (const char* circumstances : {"0000|", "0000|guest"}) {
    OpenGame(entries + circumstances);
    const std::string end = BoardText();
    for (int i = 0; i < 20; ++i) {
      board->MoveList_RowColChange(1 + static_cast<int>(random() % 5000));
      board->SelfCheckFlashes = board->StalemateFlashes = 1;
      board->CheckTimer();
      EXPECT_LE(board->MovePointers.size(), 8u);
      EXPECT_TRUE(rules::SetsInStep(ThePosition().BoardState));
    }
    board->MoveList_RowColChange(11);
    EXPECT_EQ(board->TopRow(), 1);
    board->MoveList_RowColChange(5001);
    EXPECT_EQ(board->TopRow(), 4991);
    EXPECT_EQ(BoardText(), end);
  }
}

TEST_F(BoardTest, BrowsingComesBackToTheSamePresent) {
  OpenGame("|e2e4, e7e5, g1f3 Nf3#well, b8c6");
  view->painted = 0;
  board->MoveList_RowColChange(3);
  EXPECT_EQ(view->painted, 2) << "only the squares that differ";
  EXPECT_EQ(BoardText(), BoardText("start e2e4 e7e5 g1f3"));
  EXPECT_EQ(board->OpponentComment, "You said: well");
  EXPECT_EQ(board->MovePointers.at(0), rules::Sq("g1"));
  EXPECT_EQ(view->offers, "comment Cancel");
  board->ListUpdating = true;
  board->MoveList_RowColChange(1);
  EXPECT_EQ(board->Moves.Selected(), 3) << "a change by the program is no event";
  board->ListUpdating = false;
  board->MoveList_RowColChange(4);
  EXPECT_EQ(view->offers, "move surrender comment Cancel");
  ExpectWindowIsUpToDate();
  Play("f1c4");
  const std::string pending = BoardText();
  board->MoveList_RowColChange(1);
  EXPECT_EQ(view->offers, "comment Cancel");
  EXPECT_TRUE(board->MovePointers.empty()) << "lifting a piece took the highlight off";
  board->MoveList_RowColChange(5);
  EXPECT_EQ(BoardText(), pending);
  EXPECT_EQ(view->offers, "undo send comment Cancel");
  EXPECT_TRUE(board->Controls().firstAndLast);
  OpenGame("|e2e4, e7e5, g1f3");
  board->MoveList_RowColChange(1);
  EXPECT_EQ(view->offers, "Close") << "only the last entry can be sent again";
}

const Case hilightCases[] = {
    {"a rook", "Ke1 Ra1 ke8|a1a4", "a1 a2 a3 a4 "},
    {"a bishop", "Ke1 Bh5 ke8|h5f3", "h5 g4 f3 "},
    {"a knight up", "|g1f3", "g1 g2 g3 f3 "},
    {"a knight aside", "|g1e2", "g1 f1 e1 e2 "},
    {"a pawn that became a knight", "Ke1 Pb7 ke8|b7b8 b8=N", "b7 b8 "},
    {"a castling king", "Ke1 Rh1 ke8|e1g1 0-0", "e1 f1 g1 "},
    {"a whole diagonal", "Ke1 Ba1 ke8|a1h8", "a1 b2 c3 d4 e5 f6 g7 h8 "},
    {"a surrender: the king's square", "|e1e1 0-1", "e1 "},
    {"no line: until the board ends", "|a7g3", "a7 b6 c5 d4 e3 f2 g1 "},
    {"a draw offer", "|e1e1 Draw offer", ""},
    {"a refusal", "|e1e1 Decline", ""},
    {"an acceptance", "|e1e1 1/2-1/2", ""},
    {"no coordinates", "|0000", ""},
    {"coordinates beyond the board", "|9299", ""},
};

TEST_F(BoardTest, AHilightShowsTheWayOfAMove) {
  Expect(hilightCases, [this] {
    std::string dots;
    for (const Square square : board->MovePointers) dots += rules::NameOf(square) + " ";
    EXPECT_EQ(board->HilightVisible, !dots.empty());
    board->HilightMove(0);
    EXPECT_TRUE(!board->HilightVisible && board->MovePointers.empty());
    return dots;
  });
}

const Case commentCases[] = {
    {"no entries", "", ""},
    {"no comment", "|e2e4 e4#Hi, e7e5", ""},
    {"the host's move", "|e2e4 e4#Hi", "You said: Hi"},
    {"his opponent's", "|e2e4, e7e5 e5#Hi", "Eva said: Hi"},
    {"the guest's move", "|e2e4, e7e5 e5#Hi|guest", "You said: Hi"},
    {"his opponent's", "|e2e4 e4#Hi|guest", "Eva said: Hi"},
    {"the computer says nothing", "|e2e4, e7e5 e5#Hi|computer", ""},
};

TEST_F(BoardTest, ACommentTellsWhoSaidItAndIsCleanedOfReservedText) {
  Expect(commentCases, [this] { return board->OpponentComment; });
  board->PlayerComment = "fine";
  EXPECT_FALSE(board->CleanPlayerComment());
  board->PlayerComment = "a<<TARVOLENIX:b\n";
  EXPECT_TRUE(board->CleanPlayerComment());
  EXPECT_EQ(board->PlayerComment, "ab");
  EXPECT_TRUE(
      Told().starts_with("Illegal characters: You are not permitted to use certain text in "
                         "the player comment"));
}

}  // namespace
}  // namespace board
