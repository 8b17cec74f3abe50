// SPDX-License-Identifier: GPL-3.0-or-later
// The pending move's way into the store and to the opponent, and what closing the window leaves.
#include "board/board_fixture.h"
#include "platform/desktop.h"

namespace board {
namespace {

const Case statusCases[] = {
    {"a move", "", "2"},
    {"a move against the computer", "computer", "1"},
    {"an offer, or a refusal that leaves it standing", "offered", "5"},
    {"an offer outranks other ends", "offered mate computer", "5"},
    {"an accepted offer", "offered drawn", "6"},
    {"a drawing move", "drawn", "6"},
    {"a mating move", "mate", "3"},
    {"a surrender", "surrendered", "4"},
    {"mating the computer", "mate computer", "3"},
    {"surrendering to the computer", "surrendered computer", "4"},
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
    board->PlaysWhite = !computersTurn;
    ThePosition().SideToMove = computersTurn ? rules::Black : rules::White;
    Process().ComputerGame = isSo("computer");
    board->DrawOffered = isSo("offered");
    board->GameDrawn = isSo("drawn");
    board->Surrendered = isSo("surrendered");
    ThePosition().CheckmateFlag = isSo("mate");
    EXPECT_TRUE(board->SaveMove());
    EXPECT_EQ(std::to_string(board->GameStatus), row.expected);
    EXPECT_EQ(std::to_string(StoredStatus()), row.expected);
  }
}

TEST_F(BoardTest, TheFirstMoveFoundsTheRecordAndLaterOnesAppend) {
  Process().NewGame = {"Friendly", "Eva", "eva@example.org"};
  Process().Offline = false;
  for (const bool computer : {false, true}) {
    desktop.files.content.clear();
    Process().ComputerGame = computer;
    Open(-1);
    Play("e2e4");
    board->PlayerComment = "Hello";
    if (computer) {
      EXPECT_TRUE(board->SaveMove());
    } else {
      board->ToolbarClick(SendButton);
    }
    EXPECT_EQ(desktop.mail.sent.size(), 1u);
    EXPECT_EQ(GameFile(), "1|090320260805|" + std::string(computer ? "1" : "0") +
                              "|Friendly|09/03/2026|eva@example.org||Eva|-1|Eva|" +
                              (computer ? "1|-1|" : "2|0|") + std::string(rules::normalStart) +
                              "|1|5254|e4|Hello\r\n");
    EXPECT_EQ(board->SavedGameID, 1);
    EXPECT_EQ(Process().CurrentGameID, computer ? 1 : -1);
  }
  OpenGame("|e2e4 e4#Hello, e7e5 e5#Hi");
  Play("g1f3");
  EXPECT_TRUE(board->SaveMove());
  EXPECT_EQ(GameFile(),
            "1|010220261530|0|Friendly|01/02/2026|eva@example.org||Eva|-1|Eva|2|0||1|5254|e4|Hello|"
            "2|5755|e5|Hi|3|7163|Nf3|\r\n");
}

TEST_F(BoardTest, AMoveThatCantBeSavedStaysPendingAndCanBeSentAgain) {
  const std::string lost =
      "Database error.: A database error has prevented Tarvolenix from recording your move.  "
      "Please try ";
  for (int operation = 1; operation <= 6; ++operation) {
    SCOPED_TRACE(operation);
    OpenGame("|e2e4, e7e5");
    Play("g1f3");
    const bool computer = Process().ComputerGame = operation == 1;
    const std::string before = GameFile();
    desktop.files.FailOperation(operation);
    board->ToolbarClick(SendButton);
    EXPECT_EQ(Told(), lost + (computer ? "clicking the Turn over button again."
                                       : "sending it again.\n\nNo move has been sent to your "
                                         "opponent."));
    EXPECT_EQ(GameFile(), before);
    EXPECT_EQ(view->closed, 0);
    EXPECT_EQ(desktop.mail.sent.size(), 0u);
    EXPECT_EQ(Offers(*board), "undo send comment Cancel");
    Process().ComputerGame = false;
    board->ToolbarClick(SendButton);
    EXPECT_EQ(view->closed, 1);
    EXPECT_EQ(std::exchange(desktop.mail.sent, {}).size(), 1u);
  }
}

const Case sendingCases[] = {
    {"by mail", "", "mail"},
    {"by mail although files could travel", "files", "mail"},
    {"by file", "offline files", "file"},
    {"cut off meanwhile: not at all", "offline", "nothing"},
    {"a mail that fails leaves the move stored", "fails", "told"},
};

TEST_F(BoardTest, AMoveGoesByMailOrByFileAndResendingWritesNothing) {
  for (const Case& row : sendingCases) {
    for (const bool resend : {false, true}) {
      SCOPED_TRACE(std::string(row.name) + (resend ? ", again" : ""));
      const std::string circumstances = row.game;
      OpenGame("|e2e4, e7e5");
      Play("g1f3");
      if (resend) {
        ASSERT_TRUE(board->SaveMove());
        Open();
      }
      Process().Offline = circumstances.starts_with("offline");
      Process().StandAlone = circumstances.ends_with("files");
      if (circumstances == "fails") desktop.mail.failing = {"Send"};
      const std::string before = GameFile();
      board->ToolbarClick(resend ? ResendButton : SendButton);
      const auto mails = std::exchange(desktop.mail.sent, {});
      std::string went = mails.empty() ? "" : "mail";
      if (desktop.files.content.contains("/program/Data/Cmove1.txt")) went += "file";
      if (!Told().empty()) went += "told";
      EXPECT_EQ(went.empty() ? "nothing" : went, row.expected);
      EXPECT_TRUE(mails.empty() || mails[0].subject == "Tarvolenix : Nf3, No comment.");
      EXPECT_EQ(GameFile() == before, resend);
      EXPECT_EQ(StoredStatus(), store::WaitingForOpponent);
      EXPECT_EQ(view->closed, 1);
    }
  }
}

const Case endCases[] = {
    {"a game that goes on", "|e2e4|guest", "1 1"},
    {"mated by the opponent", "|e2e4 e4++|guest", "1 4"},
    {"the opponent surrendered", "|e2e4, e8e8 1-0", "1 3"},
    {"the opponent accepted", "|e1e1 Draw offer, e8e8 1/2-1/2", "1 6"},
    {"the opponent's move draws", "|e2e4 e4 1/2-1/2|guest", "1 6"},
    {"an offer that stands", "|e1e1 Draw offer|guest", "1 1"},
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
      board->Form_Unload();
      desktop.files.FailOperation(0);
      EXPECT_EQ(StoredStatus(), fails ? before : after);
      EXPECT_EQ(Told(),
                fails && before != after
                    ? "Database error.: A database error prevented Tarvolenix from setting the "
                      "status of this game correctly\n\nIt will still be listed as not played on "
                      "the main game display."
                    : "");
    }
  }
}

const Case closingCases[] = {
    {"back to the game list", "list", "closeHelp boardClosed updateTrayStatus(polling) "},
    {"back to the tray", "", "closeHelp buildTrayGameMenu updateTrayStatus(polling) "},
    {"on to the next notification", "3;", "closeHelp updateTrayStatus(polling) notifyNewMoves "},
    {"to the list and on", "list 3;",
     "closeHelp boardClosed updateTrayStatus(polling) notifyNewMoves "},
    {"the program ends", "list 3; end", "closeHelp "},
};

TEST_F(BoardTest, ClosingGivesPollingBackAndGoesWhereTheBoardCameFrom) {
  for (const Case& row : closingCases) {
    SCOPED_TRACE(row.name);
    const std::string circumstances = row.game;
    OpenGame("|e2e4|guest");
    Play("e7e5");
    const std::string before = GameFile();
    platform::ProcessState& process = Process();
    process.BoardFromGameList = circumstances.starts_with("list");
    process.PendingGames = circumstances.find("3;") != circumstances.npos ? "3;" : "";
    process.ShuttingDown = circumstances.ends_with("end");
    process.CheckTimer.Enabled = false;
    process.CheckTimerHeld = true;
    process.NewGame.Game_name = "left over";
    desktop.hooksCalled.clear();
    platform::TheDesktop().hooks.updateTrayStatus = [&] {
      const bool polling = process.CheckTimer.Enabled && !process.CheckTimerHeld;
      desktop.hooksCalled.emplace_back(polling ? "updateTrayStatus(polling)" : "too early");
    };
    board->Form_Unload();
    std::string called;
    for (const std::string& hook : desktop.hooksCalled) called += hook + " ";
    EXPECT_EQ(called, row.expected);
    EXPECT_TRUE(board->ClosingDown);
    EXPECT_EQ(process.BoardOpen, process.ShuttingDown);
    EXPECT_EQ(process.NewGame.Game_name.empty(), !process.ShuttingDown);
    EXPECT_EQ(GameFile(), before) << "a pending move is dropped";
  }
}

}  // namespace
}  // namespace board
