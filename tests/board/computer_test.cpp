// SPDX-License-Identifier: GPL-3.0-or-later
// Games against the computer.
#include "ai/heuristics.h"
#include "board/board_fixture.h"
#include "fakes/plain_events.h"
#include "platform/desktop.h"

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
    platform::TheDesktop().events = &events;
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
};

TEST_F(ComputerTest, AnswersEachMoveAndBothAreStored) {
  Process().ComputerGame = true;
  Process().NewGame = {"Evening", "The Computer", "n/a"};
  Open(-1);
  std::string expected;
  for (const char* move : {"e2e4", "d2d4", "g1f3"}) {
    Play(move);
    events.act = [&] {
      EXPECT_TRUE(board->ComputerThinking);
      EXPECT_EQ(Offers(*board), "Close");
      EXPECT_EQ(board->Caption, "Tarvolenix - Awaiting The Computer's move");
      board->CheckTimer();
      EXPECT_FALSE(board->CBoard_MouseDown(22));
    };
    Told();
    board->ToolbarClick(SendButton);
    EXPECT_EQ(Told(), "Tarvolenix information: You are not allowed to make a move right now.");
    ASSERT_EQ(board->Moves.Count() % 2, 0);
    EXPECT_EQ(view->offers, "move surrender comment Cancel");
    EXPECT_TRUE(board->OpponentComment.starts_with("Moves considered : "));
    ExpectWindowIsUpToDate();
  }
  for (int row = 1; row <= 6; ++row) expected += board->Moves.Row(row).MoveText + " ";
  EXPECT_EQ(StoredTexts(), expected);
  EXPECT_EQ(StoredStatus(), store::MoveWaiting);
  const std::string position = BoardText();
  Open(1);
  EXPECT_EQ(BoardText(), position);
  EXPECT_TRUE(ThePosition().MoveAllowed);
}

TEST_F(ComputerTest, AFirstMoveThatCouldNotBeStoredCanBeSentAgain) {
  Process().ComputerGame = true;
  Open(-1);
  Play("e2e4");
  desktop.files.FailOperation(1);
  board->ToolbarClick(SendButton);
  EXPECT_TRUE(Told().starts_with("Database error."));
  EXPECT_EQ(board->Moves.Count(), 1);
  board->ToolbarClick(SendButton);
  EXPECT_EQ(Told(), "");
  EXPECT_EQ(StoredTexts(), "e4 " + board->Moves.Last().MoveText + " ");
}

TEST_F(ComputerTest, AMoveOfTheComputerThatCouldNotBeStoredIsStoredWithTheNextOne) {
  OpenGame("||computer");
  Play("e2e4");
  // The user's move still reaches the disk.
  events.act = [&] { desktop.files.FailOperation(1); };
  board->ToolbarClick(SendButton);
  EXPECT_TRUE(Told().starts_with("Database error."));
  EXPECT_EQ(StoredTexts(), "e4 ");
  events.act = {};
  Play("d2d4");
  board->ToolbarClick(SendButton);
  EXPECT_EQ(Told(), "");
  std::string expected;
  for (int row = 1; row <= 4; ++row) expected += board->Moves.Row(row).MoveText + " ";
  EXPECT_EQ(StoredTexts(), expected);
}

TEST_F(ComputerTest, ACancelledTurnLeavesEverythingAndCanBeTakenAgain) {
  OpenGame("||computer");
  Play("e2e4");
  const std::string position = BoardText();
  events.act = [&] { board->Search.SearchCancelled = true; };
  board->ToolbarClick(SendButton);
  EXPECT_EQ(board->Moves.Count(), 1);
  EXPECT_EQ(BoardText(), position);
  EXPECT_TRUE(board->PlaysWhite);
  EXPECT_EQ(view->offers, "resend Close");
  events.act = {};
  board->ToolbarClick(ResendButton);
  EXPECT_EQ(board->Moves.Count(), 2);
  EXPECT_EQ(StoredTexts(), "e4 " + board->Moves.Last().MoveText + " ");
}

struct EndCase {
  const char* game;
  const char* move;
  const char* lastText;
  int entries;
  int status;
};

const EndCase ends[] = {
    {"Kh1 Pg2 Ph2 Pc3 kg8 ra2||computer", "c3c4", "Ra1++", 2, store::GameLost},
    {"Kf6 Qb7 kh8||computer", "b7h7", "Qh7+", 2, store::MoveWaiting},
    {"Kg6 Qb7 kh8||computer", "b7h7", "Qh7++", 1, store::GameWon},
};

TEST_F(ComputerTest, MateEndsTheGameWhoeverGivesIt) {
  for (const EndCase& row : ends) {
    SCOPED_TRACE(row.game);
    OpenGame(row.game);
    Play(row.move);
    board->ToolbarClick(SendButton);
    EXPECT_EQ(board->Moves.Count(), row.entries);
    EXPECT_EQ(board->Moves.Row(row.lastText[0] == 'R' ? 2 : 1).MoveText, row.lastText);
    EXPECT_EQ(StoredStatus(), row.status);
    const std::string file = GameFile();
    if (!board->GameIsOver()) continue;
    EXPECT_TRUE(board->Caption.starts_with("Tarvolenix - CHECKMATE!")) << board->Caption;
    board->ToolbarClick(ResendButton);
    EXPECT_EQ(GameFile(), file) << "nothing follows the end";
  }
}

}  // namespace
}  // namespace board
