// SPDX-License-Identifier: GPL-3.0-or-later
// Games against the computer.
#include <functional>

#include "ai/heuristics.h"
#include "board/board_fixture.h"
#include "fakes/plain_events.h"
#include "platform/seams.h"

namespace board {
namespace {

/// Does something on the window's thread as soon as the computer thinks.
struct MeddlingEvents : fakes::PlainEvents {
  void LetUserActUntil(const std::function<bool()>& done) override {
    if (act) act();
    RunUntil(done);
  }
  std::function<void()> act;
};

struct ComputerTest : BoardTest {
  MeddlingEvents events;

  ComputerTest() {
    platform::TheSeams().events = &events;
    ai::LoadDefaultHeuristics();
    platform::Settings().SearchDepth = 1;
  }

  std::string StoredTexts() {
    store::MoveRecords moves;
    EXPECT_TRUE(store::SelectMoves(moves, 1));
    std::string texts;
    for (const auto& move : moves) texts += move.MoveText + " ";
    return texts;
  }

  std::string ListedTexts() {
    std::string texts;
    for (int row = 1; row <= game->Moves.Count(); ++row)
      texts += game->Moves.Row(row).MoveText + " ";
    return texts;
  }
};

TEST_F(ComputerTest, AnswersEachMoveAndBothAreStored) {
  Process().ComputerGame = true;
  Process().NewGame = {"Evening", "The Computer", "n/a"};
  Open(-1);
  for (const char* move : {"e2e4", "d2d4", "g1f3"}) {
    Play(move);
    events.act = [&] {
      EXPECT_TRUE(game->ComputerThinking);
      EXPECT_EQ(Offers(*game), "Close");
      CheckTimer(*game);
      EXPECT_FALSE(CBoard_MouseDown(*game, {2, 2}));
    };
    Told();
    ToolbarClick(*game, SendButton);
    EXPECT_EQ(Told(), "") << "the answer would wait behind a message";
    ASSERT_EQ(game->Moves.Count() % 2, 0);
    EXPECT_EQ(view->offers, "move surrender comment Cancel");
    EXPECT_TRUE(game->OpponentComment.starts_with("Moves considered : "));
    ExpectWindowIsUpToDate();
  }
  EXPECT_EQ(game->Moves.Count(), 6);
  EXPECT_EQ(StoredTexts(), ListedTexts());
  EXPECT_EQ(StoredStatus(), store::MoveWaiting);
  const std::string position = BoardText();
  Open(1);
  EXPECT_EQ(BoardText(), position);
  EXPECT_TRUE(ThePosition().MoveAllowed);
}

TEST_F(ComputerTest, WhatCouldNotBeStoredIsStoredWithTheNextMove) {
  Process().ComputerGame = true;
  Open(-1);
  Play("e2e4");
  desktop.files.FailOperation(1);
  ToolbarClick(*game, SendButton);
  EXPECT_TRUE(Told().starts_with("Database error."));
  EXPECT_EQ(game->Moves.Count(), 1);
  // This time the user's move reaches the disk, and the answer doesn't.
  events.act = [&] { desktop.files.FailOperation(1); };
  ToolbarClick(*game, SendButton);
  EXPECT_TRUE(Told().starts_with("Database error."));
  EXPECT_EQ(StoredTexts(), "e4 ");
  events.act = {};
  Play("d2d4");
  ToolbarClick(*game, SendButton);
  EXPECT_EQ(Told(), "");
  EXPECT_EQ(StoredTexts(), ListedTexts());
}

TEST_F(ComputerTest, ACancelledTurnLeavesEverythingAndCanBeTakenAgain) {
  OpenGame("||computer");
  Play("e2e4");
  const std::string position = BoardText();
  events.act = [&] { game->Search.SearchCancelled = true; };
  ToolbarClick(*game, SendButton);
  EXPECT_EQ(game->Moves.Count(), 1);
  EXPECT_EQ(BoardText(), position);
  EXPECT_TRUE(game->PlaysWhite);
  EXPECT_EQ(view->offers, "resend Close");
  events.act = {};
  ToolbarClick(*game, ResendButton);
  EXPECT_EQ(game->Moves.Count(), 2);
  EXPECT_EQ(StoredTexts(), "e4 " + game->Moves.Last().MoveText + " ");
}

TEST_F(ComputerTest, AnEndThatItBringsIsStored) {
  OpenGame("Kh1 Pg2 Ph2 Pc3 kg8 ra2||computer");
  Play("c3c4");
  ToolbarClick(*game, SendButton);
  EXPECT_EQ(game->Moves.Row(2).MoveText, "Ra1++");
  EXPECT_EQ(StoredStatus(), store::GameLost);
  const std::string file = GameFile();
  ToolbarClick(*game, ResendButton);
  EXPECT_EQ(GameFile(), file) << "nothing follows the end";
}

TEST_F(ComputerTest, TheGameGoesOnAsItWillFromTheStore) {
  OpenGame("Ke1 Rh1 Ra1 Pa2 kc8 ba8 ph7||computer");
  Play("a2a3");  // the bishop takes the rook
  ToolbarClick(*game, SendButton);
  OfferDraw(*game);
  ToolbarClick(*game, SendButton);
  const auto state = [&] { return view->offers + ' ' + Flags() + ' ' + BoardText(); };
  EXPECT_TRUE(view->offers.starts_with("move "));
  EXPECT_EQ(StoredStatus(), store::MoveWaiting);
  const std::string before = state();
  Open();
  EXPECT_EQ(state(), before);
}

}  // namespace
}  // namespace board
