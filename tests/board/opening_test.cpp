// SPDX-License-Identifier: GPL-3.0-or-later
// What a game opens as: whose turn it is, what the window says and offers, from which position.
#include "board/board_fixture.h"
#include "board/load_board.h"

namespace board {
namespace {

const Case turnCases[] = {
    {"the host begins", "", "move comment Cancel; Awaiting your move"},
    {"the host waits", "|e2e4", "resend Close; Awaiting Eva's move"},
    {"the host is on turn", "|e2e4, e7e5", "move surrender comment Cancel; Awaiting your move"},
    {"the guest waits for the first move", "||guest", "resend Close; Awaiting Eva's move"},
    {"the guest is on turn", "|e2e4|guest", "move surrender comment Cancel; Awaiting your move"},
    {"the guest waits", "|e2e4, e7e5|guest", "resend Close; Awaiting Eva's move"},
    {"cut off before the start", "||offline", "Close; Awaiting Eva's move"},
    {"cut off on turn", "|e2e4, e7e5|offline", "Close; Awaiting Eva's move"},
    {"cut off while waiting", "|e2e4|offline", "Close; Awaiting Eva's move"},
    {"moves travel as files", "|e2e4, e7e5|offline files",
     "move surrender comment Cancel; Awaiting your move"},
    {"files can be sent again", "|e2e4|offline files", "resend Close; Awaiting Eva's move"},
    {"the computer needs no service", "|e2e4, e7e5|offline computer",
     "move surrender comment Cancel; Awaiting your move"},
    {"it can be asked again", "|e2e4|offline computer", "resend Close; Awaiting Eva's move"},
    {"but not when mated", "|e2e4 e4++|offline computer", "Close; CHECKMATE! - You won."},
    {"a mated opponent can be told again", "|e2e4 e4++", "resend Close; CHECKMATE! - You won."},
    {"the opponent mated", "|e2e4 e4++|guest", "Close; CHECKMATE! - Eva won."},
    {"she surrendered", "|e2e4, e8e8 1-0", "Close; OPPONENT SURRENDER! - You won."},
    {"in the old word", "|e2e4, e8e8 Surrender", "Close; OPPONENT SURRENDER! - You won."},
    {"the user surrendered", "|e1e1 0-1", "resend Close; OPPONENT SURRENDER! - Eva won."},
    {"she accepted", "|e1e1 Draw offer, e8e8 1/2-1/2", "Cancel; DRAW!"},
    {"a draw outranks other ends", "|e2e4 e4 1/2-1/2, e8e8 1-0|guest", "resend Close; DRAW!"},
};

TEST_F(BoardTest, EntriesAndConnectionTellWhatAGameOpensAs) {
  for (const Case& row : turnCases) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    const std::string game = row.game;
    const bool over = !board->Caption.starts_with("Tarvolenix - Awaiting");
    EXPECT_EQ("Tarvolenix - " + std::string(GetField(row.expected, 2, ';')).substr(1),
              board->Caption);
    EXPECT_EQ(Offers(*board), GetField(row.expected, 1, ';'));
    EXPECT_EQ(board->PlayersTag, over ? "You were playing Eva" : "You are playing Eva");
    EXPECT_EQ(board->AwaitingOpponent, !ThePosition().MoveAllowed);
    EXPECT_EQ(ThePosition().SideToMove, game.ends_with("guest") ? rules::Black : rules::White);
    EXPECT_EQ(Process().ComputerGame, game.ends_with("computer"));
    EXPECT_TRUE(Process().BoardOpen && !board->ListUpdating && !Process().BoardSetupMode);
    ExpectWindowIsUpToDate();
  }
}

TEST_F(BoardTest, ANewGameHasNoRecord) {
  Process().Offline = false;
  Process().NewGame.Game_opponents_name = "Eva";
  ThePosition().SideInCheck = rules::Black;
  ThePosition().CheckmateFlag = true;
  Open(-1);
  EXPECT_TRUE(board->PlaysWhite);
  EXPECT_EQ(board->PlayersTag, "You are playing Eva");
  EXPECT_EQ(board->Caption, "Tarvolenix - Awaiting your move");
  EXPECT_EQ(board->StartBoard, rules::normalStart);
  EXPECT_EQ(BoardText(), rules::normalStart);
  EXPECT_EQ(ThePosition().SideInCheck, rules::NobodyInCheck);
  EXPECT_FALSE(ThePosition().CheckmateFlag || board->HilightVisible || board->Controls().hilight);
  EXPECT_EQ(view->offers, "move comment Cancel");
  ExpectWindowIsUpToDate();

  Play("e2e4");
  board->MoveList_RowColChange(1);
  EXPECT_EQ(BoardText(), BoardText("start e2e4")) << "the row was selected already";
  EXPECT_EQ(view->offers, "undo send comment Cancel");
  EXPECT_TRUE(board->Controls().hilight && !board->Controls().firstAndLast);

  rules::Place("Ke1 Pe2 ke8");
  Process().SetupGame = true;
  Open(-1);
  EXPECT_EQ(board->StartBoard, BoardText("Ke1 Pe2 ke8"));
  EXPECT_EQ(Flags(), "101101");
  EXPECT_EQ(view->offers, "move surrender comment Cancel");
}

TEST_F(BoardTest, TheBoardIsSeenFromTheUsersSideOrFromWhites) {
  for (const bool host : {true, false}) {
    for (const bool defaultView : {true, false}) {
      platform::Settings().DefaultView = defaultView;
      OpenGame(host ? "|e2e4" : "|e2e4|guest");
      for (const bool turned : {false, true}) {
        if (turned) board->ToolbarClick(ViewButton);
        const bool fromWhite = (host || defaultView) != turned;
        EXPECT_EQ(board->ViewSide, fromWhite ? rules::White : rules::Black);
        EXPECT_EQ(board->Controls().viewIsMine, fromWhite == host);
        EXPECT_EQ(board->PlaceOf({1, 2}).column, fromWhite ? 0 : 7);
        EXPECT_EQ(board->PlaceOf({1, 2}).row, fromWhite ? 1 : 6);
        EXPECT_EQ(view->constructed, turned ? 2 : 1);
        EXPECT_FALSE(board->MovePointers.empty());
      }
    }
  }
}

TEST_F(BoardTest, AGameThatCantBeReadClosesOnTheNextTick) {
  const std::function<void()> accidents[] = {
      [this] { desktop.files.content["/program/Data/Tvgdb.dat"] = "one|\r\n"; },
      [this] { desktop.files.FailOperation(1); }, [this] { desktop.files.FailOperation(2); }};
  for (const auto& accident : accidents) {
    StoreGame("|e2e4 e4++|guest");
    accident();
    Open();
    EXPECT_EQ(Told(),
              "Database error.: A database error has prevented Tarvolenix from creating the move "
              "history!\n\nPlease try opening this game again.");
    EXPECT_FALSE(Process().BoardOpen);
    EXPECT_EQ(view->constructed + view->closed, 0);
    board->CheckTimer();
    EXPECT_EQ(view->closed, 1);
    const std::string before = GameFile();
    board->Form_Unload();
    EXPECT_EQ(GameFile(), before);
  }
}

const Case startCases[] = {
    {"none", "", "000000, nobody in check"},
    {"the king aside", "Ke2 Ra1 Rh1 ke8", "010101, nobody in check"},
    {"both attacked: White counts", "Ke1 Ra8 ke8 ra1", "101101, 0 in check"},
    {"Black attacked", "Ke1 Ra8 ke8", "101101, 1 in check"},
};

TEST_F(BoardTest, TheStartBoardTellsWhoMayCastleAndWhoIsInCheck) {
  int inCheck = 7;
  bool flashPhase = false;
  Expect(startCases, [&] {
    EXPECT_EQ(LoadBoard(1, inCheck, flashPhase, false, false), BoardText());
    EXPECT_TRUE(std::exchange(flashPhase, false));
    return Flags() + ", " + (inCheck == -1 ? "nobody" : std::to_string(inCheck)) + " in check";
  });
  EXPECT_EQ(LoadBoard(1, inCheck, flashPhase, false, true), BoardText("Ke1 Ra8 ke8"));
  EXPECT_EQ(inCheck, -1) << "a board that is to be cleared has no check";
  EXPECT_EQ(LoadBoard(1, inCheck, flashPhase, true, false), rules::normalStart);
  EXPECT_EQ(LoadBoard(1, inCheck, flashPhase, true, true), rules::emptyBoard);
  EXPECT_EQ(BoardText(), rules::emptyBoard);
  for (const char* unusable : {"", ";;;;;;;", "no board; here"}) {
    store::GameRecord game;
    game.GAME_ID = 1;
    game.GAME_START_BOARD = unusable;
    ASSERT_TRUE(store::SaveGame(game, {}));
    EXPECT_EQ(LoadBoard(1, inCheck, flashPhase, false, false), rules::normalStart);
    EXPECT_EQ(BoardText(), rules::normalStart);
  }
}

}  // namespace
}  // namespace board
