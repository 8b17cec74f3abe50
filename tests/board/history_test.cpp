// SPDX-License-Identifier: GPL-3.0-or-later
// The replay that every position comes from, and what the window shows of the moves.
#include <random>

#include "board/asked_move.h"
#include "board/board_fixture.h"
#include "board/conversation.h"
#include "board/move_pairs.h"
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
        rules::TestMoveIsLegal(now.SideToMove, piece, from, to, last)) {
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
    OpenSetup(starts[n % 5]);
    std::vector<rules::Position> reached;
    store::MoveRecords entries;
    while (reached.size() < 150 && !GameIsOver(*game)) {
      ThePosition().MoveAllowed = true;
      const std::string move = AnyMove(game->Moves.MoveOf(game->Moves.Count()), random);
      ASSERT_FALSE(move.empty()) << "an end went unseen";
      view->promotion = rules::WhiteRook + static_cast<int>(random() % 4);
      Play(move);
      ASSERT_EQ(game->Moves.Count(), static_cast<int>(reached.size()) + 1) << move;
      reached.push_back(ThePosition());
      entries.push_back(game->Moves.Last());
      seen += entries.back().MoveText + " ";
      ThePosition().SideToMove = rules::OtherSide(ThePosition().SideToMove);
    }
    const bool drawn = game->GameDrawn;
    const int count = game->Moves.Count();
    StoreGame(std::string(starts[n % 5]));
    store::GameRecords games;
    ASSERT_TRUE(store::SelectGames(games, "") && store::SaveGame(games[0], entries));
    Open();
    EXPECT_EQ(game->GameDrawn, drawn);
    for (int row = count; row >= 1; row -= 1 + static_cast<int>(random() % 7)) {
      MoveList_RowColChange(*game, row);
      const rules::Position& then = reached[static_cast<std::size_t>(row - 1)];
      EXPECT_EQ(BoardText(), rules::WriteBoardText(then.BoardState)) << row;
      EXPECT_EQ(ThePosition().CastleState, then.CastleState) << row;
      EXPECT_EQ(ThePosition().CheckmateFlag, then.CheckmateFlag) << row;
      const AskedMove asked = MoveToAskAbout(*game);
      const auto sign = asked.text.find('=');
      EXPECT_EQ(asked.becomes,
                sign == asked.text.npos ? rules::NoPiece : then.BoardState.At(asked.move.to));
      // In the computer's eyes a pawn stays a pawn, and no move ends the game by itself.
      if (asked.text.find_first_of("=/") == asked.text.npos) {
        EXPECT_EQ(NameOfMove(asked.moment, asked.move), asked.text);
        EXPECT_EQ(PositionBehind(asked.moment, asked.move).BoardState, then.BoardState);
      }
      // A drawn game doesn't look for a check of Black.
      EXPECT_TRUE(drawn || ThePosition().SideInCheck == then.SideInCheck) << row;
    }
  }
  for (const char* text : {"0-0 ", "0-0-0", "ep", "=R", "=N", "=B", "=Q", "+ ", "++", "1/2-1/2"}) {
    EXPECT_NE(seen.find(text), seen.npos) << "no game had " << text;
  }
}

TEST_F(BoardTest, BrowsingComesBackToTheSamePresent) {
  OpenGame("|e2e4, e7e5, g1f3 Nf3#well, b8c6 Nc6#Hi");
  EXPECT_EQ(game->OpponentComment, "Eva said: Hi");
  MoveList_RowColChange(*game, 3);
  EXPECT_EQ(BoardText(), BoardText("start e2e4 e7e5 g1f3"));
  EXPECT_EQ(game->OpponentComment, "You said: well");
  EXPECT_EQ(game->MovePointers.at(0), rules::Sq("g1"));
  EXPECT_EQ(view->offers, "comment Cancel");
  MoveList_RowColChange(*game, 4);
  EXPECT_EQ(view->offers, "move surrender comment Cancel");
  ExpectWindowIsUpToDate();
  Play("f1c4");
  const std::string pending = BoardText();
  MoveList_RowColChange(*game, 1);
  EXPECT_EQ(view->offers, "comment Cancel");
  MoveList_RowColChange(*game, 5);
  EXPECT_EQ(BoardText(), pending);
  EXPECT_EQ(view->offers, "undo send comment Cancel");
  OpenGame("|e2e4, e7e5, g1f3");
  MoveList_RowColChange(*game, 1);
  EXPECT_EQ(view->offers, "Close") << "only the last entry can be sent again";
}

TEST_F(BoardTest, WhatTheOpponentSaidStaysUntilItIsAnswered) {
  OpenGame("|e2e4 e4#well, e7e5 e5#Hi");
  EXPECT_EQ(LastWords(*game), "") << "they are in sight";
  game->PlayerComment = "Not sent yet";
  Play("g1f3");
  EXPECT_EQ(LastWords(*game), "Eva said: Hi");
  EXPECT_EQ(game->OpponentComment, "You said: Not sent yet");
  const auto said = Conversation(*game);
  ASSERT_EQ(said.size(), 2U);
  EXPECT_EQ(said[0].speaker + said[0].words + said[1].speaker + said[1].words, "YouwellEvaHi");
  MoveList_RowColChange(*game, 1);
  EXPECT_EQ(LastWords(*game), "") << "the words of that row are";
  OpenGame("|e2e4 e4, e8e8 Draw offer#Tired?, e1e1 Decline, e7e5 e5, g1f3 Nf3");
  EXPECT_EQ(LastWords(*game), "") << "it is the opponent's turn";
  const int numbers[] = {1, 0, 2};
  for (const int pair : {1, 2, 3}) EXPECT_EQ(NumberOfPair(game->Moves, pair), numbers[pair - 1]);
}

}  // namespace
}  // namespace board
