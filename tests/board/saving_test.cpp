// SPDX-License-Identifier: GPL-3.0-or-later
// The pending move's way into the store and to the opponent, and what closing the window leaves.
#include <functional>

#include "board/board_fixture.h"
#include "platform/seams.h"

namespace board {
namespace {

const Case statusCases[] = {
    {"a move against the computer", "computer", "1"},
    {"an offer outranks other ends", "offered mate computer", "5"},
    {"mating the computer", "mate computer", "3"},
    {"being mated by the computer", "mate computer's", "4"},
    {"a surrender of the computer", "surrendered computer's", "3"},
};

TEST_F(BoardTest, ThePendingEntryDecidesTheStatus) {
  for (const Case& row : statusCases) {
    SCOPED_TRACE(row.name);
    const auto isSo = [&](const char* word) {
      return std::string(row.game).find(word) != std::string::npos;
    };
    const bool computersTurn = isSo("computer's");
    OpenGame(computersTurn ? "|e2e4, e7e5" : "|e2e4, e7e5, d2d4");
    game->PlaysWhite = !computersTurn;
    ThePosition().SideToMove = computersTurn ? rules::Black : rules::White;
    Process().ComputerGame = isSo("computer");
    game->DrawOffered = isSo("offered");
    game->Surrendered = isSo("surrendered");
    ThePosition().CheckmateFlag = isSo("mate");
    EXPECT_TRUE(SaveMove(*game));
    EXPECT_EQ(std::to_string(game->GameStatus), row.expected);
    EXPECT_EQ(std::to_string(StoredStatus()), row.expected);
  }
}

TEST_F(BoardTest, TheFirstMoveFoundsTheRecordAndLaterOnesAppend) {
  Process().NewGame = {"Friendly", "Eva", "eva@example.org"};
  Process().Offline = false;
  Open(-1);
  Play("e2e4");
  game->PlayerComment = "Hello";
  ToolbarClick(*game, SendButton);
  EXPECT_EQ(desktop.mail.sent.size(), 1u);
  EXPECT_EQ(GameFile(), "1|090320260805|0|Friendly|09/03/2026|eva@example.org||Eva|-1|Eva|2|0|" +
                            std::string(rules::normalStart) + "|1|5254|e4|Hello\r\n");
  EXPECT_EQ(game->SavedGameID, 1);
  OpenGame("|e2e4 e4#Hello, e7e5 e5#Hi");
  Play("g1f3");
  EXPECT_TRUE(SaveMove(*game));
  EXPECT_EQ(GameFile(),
            "1|010220261530|0|Friendly|01/02/2026|eva@example.org||Eva|-1|Eva|2|0||1|5254|e4|Hello|"
            "2|5755|e5|Hi|3|7163|Nf3|\r\n");
}

TEST_F(BoardTest, AMoveThatCantBeSavedStaysPendingAndCanBeSentAgain) {
  constexpr int ofTheNote = 3;  // that the move is about to be sent: it may fail
  for (int operation = ofTheNote + 1; operation <= ofTheNote + 7; ++operation) {
    SCOPED_TRACE(operation);
    OpenGame("|e2e4, e7e5");
    Play("g1f3");
    const std::string before = GameFile();
    desktop.files.FailOperation(operation);
    ToolbarClick(*game, SendButton);
    EXPECT_TRUE(Told().starts_with("Database error.: A database error has prevented"));
    EXPECT_EQ(GameFile(), before);
    EXPECT_EQ(view->closed, 0);
    EXPECT_EQ(desktop.mail.sent.size(), 0u);
    EXPECT_EQ(Offers(*game), "undo send comment Cancel");
    ToolbarClick(*game, SendButton);
    EXPECT_EQ(view->closed, 1);
    EXPECT_EQ(std::exchange(desktop.mail.sent, {}).size(), 1u);
  }
}

const Case otherHands[] = {
    {"the same player's other program has moved", "|e2e4, e7e5", "|e2e4, e7e5, b1c3"},
    {"the same move with another comment", "|e2e4, e7e5", "|e2e4, e7e5, g1f3 Nf3#Hi"},
    {"an earlier state has come back", "|e2e4, e7e5", "|e2e4"},
    {"an entry has another text", "|e2e4, e7e5", "|e2e4, e7e5 e5+"},
    {"the game was deleted", "|e2e4, e7e5", ""},
};

TEST_F(BoardTest, AMoveInAGameThatOtherHandsHaveChangedIsNeitherStoredNorSent) {
  for (const Case& row : otherHands) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    Play("g1f3");
    StoreGame(row.expected);
    if (!*row.expected) desktop.files.content.clear();
    const std::string before = GameFile();
    ToolbarClick(*game, SendButton);
    EXPECT_TRUE(Told().starts_with("Game changed: "));
    EXPECT_EQ(GameFile(), before);
    EXPECT_EQ(desktop.mail.sent.size() + view->closed, 0u);
    EXPECT_EQ(game->Moves.Count(), 3);
  }
}

TEST_F(BoardTest, AMoveThatCantBeSentIsStoredAllTheSame) {
  for (const bool offline : {false, true}) {
    OpenGame("|e2e4, e7e5");
    Play("g1f3");
    Process().Offline = offline;
    desktop.mail.failing = {"Send"};
    ToolbarClick(*game, SendButton);
    EXPECT_EQ(Told().empty(), offline) << "cut off meanwhile, nothing is tried";
    EXPECT_EQ(StoredStatus(), store::WaitingForOpponent);
    EXPECT_EQ(view->closed, 1);
  }
}

TEST_F(BoardTest, ClosingAsksOnceWhereSomethingWouldBeLost) {
  const struct {
    const char* name;
    std::function<void()> act;
    bool asks;
  } rows[] = {
      {"nothing", [this] { OpenGame("|e2e4, e7e5"); }, false},
      {"an answered game", [this] { OpenGame("|e2e4 e4#Hi"); }, false},
      {"a pending move", [this] { OpenGame("|e2e4, e7e5"), Play("g1f3"); }, true},
      {"a comment", [this] { OpenGame("|e2e4, e7e5"), game->PlayerComment = "Hi"; }, true},
      {"what was set up",
       [this] {
         Process().SetupGame = true;
         Open(-1);
         ApplySetupDrop(*game, {}, Square{4, 1});
       },
       true},
      {"the same in play", [this] { OpenSetup("Ke1 Pe2 ke8"); }, true},
      {"the usual start", [this] { OpenSetup("start"); }, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    row.act();
    for (const bool goesBack : {true, false}) {
      if (row.asks) desktop.boxes.answers = {goesBack};
      EXPECT_EQ(MayClose(*game), !row.asks || !goesBack);
      EXPECT_EQ(desktop.boxes.messages.size(), row.asks ? 1u : 0u);
      desktop.boxes.messages.clear();
    }
    Process().Stopping = true;
    EXPECT_TRUE(MayClose(*game));
    Process().Stopping = false;
  }
}

const Case endCases[] = {
    {"the opponent surrendered", "|e2e4, e8e8 1-0", "1 3"},
    {"recorded already", "|e2e4, e8e8 1-0", "4 4"},
    {"the user's own last entry", "|e2e4 e4++", "2 2"},
};

TEST_F(BoardTest, ClosingRecordsAnEndThatTheOpponentBrought) {
  for (const Case& row : endCases) {
    SCOPED_TRACE(row.name);
    const int before = row.expected[0] - '0';
    const int after = row.expected[2] - '0';
    StoreGame(row.game, static_cast<std::int16_t>(before));
    for (const bool fails : {true, false}) {
      Open();
      desktop.files.FailOperation(fails ? 1 : 0);
      Form_Unload(*game);
      desktop.files.FailOperation(0);
      EXPECT_EQ(StoredStatus(), fails ? before : after);
      EXPECT_EQ(Told().empty(), !fails || before == after);
    }
  }
}

TEST_F(BoardTest, ClosingGivesPollingBackAndDropsAPendingMove) {
  for (const bool ending : {false, true}) {
    OpenGame("|e2e4|guest");
    Play("e7e5");
    const std::string before = GameFile();
    platform::ProcessState& process = Process();
    process.ShuttingDown = ending;
    process.CheckTimer.Enabled = false;
    process.CheckTimerHeld = true;
    desktop.log.clear();
    Form_Unload(*game);
    EXPECT_EQ(process.CheckTimer.Enabled && !process.CheckTimerHeld, !ending);
    EXPECT_EQ(process.BoardOpen, ending);
    EXPECT_EQ(GameFile(), before);
  }
}

}  // namespace
}  // namespace board
