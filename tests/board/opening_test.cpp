// SPDX-License-Identifier: GPL-3.0-or-later
// What a game opens as: whose turn it is, what the window says and offers, from which position.
#include <functional>

#include "board/board_fixture.h"
#include "board/load_board.h"

namespace board {
namespace {

const Case turnCases[] = {
    {"the guest waits for the first move", "||guest", "resend Close; Awaiting Eva's move"},
    {"cut off on turn", "|e2e4, e7e5|offline", "Close; Awaiting Eva's move"},
    {"moves travel as files", "|e2e4, e7e5|offline files",
     "move surrender comment Cancel; Awaiting your move"},
    {"the computer needs no service", "|e2e4, e7e5|offline computer",
     "move surrender comment Cancel; Awaiting your move"},
    {"but not when mated", "|e2e4 e4++|offline computer", "Close; CHECKMATE! - You won."},
    {"she surrendered", "|e2e4, e8e8 1-0", "Close; OPPONENT SURRENDER! - You won."},
    {"a refusal undoes even a draw", "|e2e4 e4 1/2-1/2, e8e8 Decline",
     "move surrender comment Cancel; Awaiting your move"},
    {"a user who opens on his stalemate", "Kf6 Qa2 kh8|a2f7|guest", "Close; DRAW!"},
    {"whose pieces are stuck while she is to move", "Kh1 Pa3 kb8 rg8 rb2 pa5 pe7|a3a4",
     "resend Close; Awaiting Eva's move"},
    {"a draw outranks other ends", "|e2e4 e4 1/2-1/2, e8e8 1-0|guest", "resend Close; DRAW!"},
};

TEST_F(BoardTest, EntriesAndConnectionTellWhatAGameOpensAs) {
  for (const Case& row : turnCases) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    EXPECT_EQ("Tarvolenix - " + std::string(GetField(row.expected, 2, ';')).substr(1),
              game->Caption);
    EXPECT_EQ(Offers(*game), GetField(row.expected, 1, ';'));
    EXPECT_EQ(ThePosition().SideToMove,
              std::string_view(row.game).ends_with("guest") ? rules::Black : rules::White);
    ExpectWindowIsUpToDate();
  }
}

TEST_F(BoardTest, MovesThatAreOnlyStoredNeedNoService) {
  OpenGame("|e2e4, e7e5|offline");
  Form_Load(*game, MovesAre::StoredOnly);
  EXPECT_EQ(Offers(*game), "move surrender comment Cancel");
}

TEST_F(BoardTest, ANewGameHasNoRecord) {
  Process().Offline = false;
  Open(-1);
  EXPECT_TRUE(game->PlaysWhite);
  EXPECT_EQ(BoardText(), rules::normalStart);
  EXPECT_EQ(view->offers, "move comment Cancel");
  ExpectWindowIsUpToDate();

  OpenSetup("Ke1 Pe2 ke8");
  EXPECT_EQ(Flags(), "101101");
  EXPECT_EQ(view->offers, "move surrender comment Cancel");
  Play("e2e4");
  EXPECT_TRUE(SaveMove(*game));
  Open(1);
  EXPECT_EQ(BoardText(), BoardText("Ke1 Pe4 ke8")) << "the record tells what was set up";
}

TEST_F(BoardTest, AGameThatCantBeReadClosesOnTheNextTick) {
  const std::function<void()> accidents[] = {
      [this] { desktop.files.content["/program/Data/Tvgdb.dat"] = "one|\r\n"; },
      [this] { desktop.files.FailOperation(1); }, [this] { desktop.files.FailOperation(2); }};
  for (const auto& accident : accidents) {
    StoreGame("|e2e4 e4++|guest");
    accident();
    Open();
    const std::string told = Told();
    EXPECT_TRUE(told.starts_with("Database error.: A database error has prevented")) << told;
    CheckTimer(*game);
    EXPECT_EQ(view->closed, 1);
    const std::string before = GameFile();
    Form_Unload(*game);
    EXPECT_EQ(GameFile(), before);
  }
}

const Case startCases[] = {
    {"the king aside", "Ke2 Ra1 Rh1 ke8", "010101 -1"},
    {"both attacked: White counts", "Ke1 Ra8 ke8 ra1", "101101 0"},
    {"Black attacked", "Ke1 Ra8 ke8", "101101 1"},
};

TEST_F(BoardTest, TheStartBoardTellsWhoMayCastleAndWhoIsInCheck) {
  int inCheck = 7;
  bool flashPhase = false;
  for (const Case& row : startCases) {
    SCOPED_TRACE(row.name);
    OpenGame(row.game);
    EXPECT_EQ(LoadBoard(1, inCheck, flashPhase, false, false), BoardText());
    EXPECT_EQ(Flags() + " " + std::to_string(inCheck), row.expected);
  }
  for (const char* unusable : {"", ";;;;;;;", "no board; here"}) {
    store::GameRecord record;
    record.GAME_ID = 1;
    record.GAME_START_BOARD = unusable;
    ASSERT_TRUE(store::SaveGame(record, {}));
    EXPECT_EQ(LoadBoard(1, inCheck, flashPhase, false, false), rules::normalStart);
    EXPECT_EQ(BoardText(), rules::normalStart);
  }
}

}  // namespace
}  // namespace board
