// SPDX-License-Identifier: GPL-3.0-or-later
// A position of the user's own making, from the first drop to the end of the game.
#include <random>

#include "board/board_fixture.h"

namespace board {
namespace {

// What chess says of a board, worked out the plain way: every move of every piece is tried on a
// copy. It shares nothing with the rules but the board and the codes.

using Squares = rules::BoardSquares;

bool IsOf(const Squares& board, int square, rules::Side side) {
  return rules::SideOfPiece(board[square]) == side;
}

/// Whether the piece on `from` gets to `to` by its way of moving, whoever stands there.
bool Goes(const Squares& board, int from, int to) {
  const int dx = to % 8 - from % 8;
  const int dy = to / 8 - from / 8;
  const int longer = std::max(std::abs(dx), std::abs(dy));
  const rules::PieceCode kind = rules::KindOf(board[from]);
  if (kind == rules::WhiteKnight) return std::abs(dx * dy) == 2;
  for (int n = 1; n < longer; ++n) {
    if (board[from + n * (dx / longer) + 8 * n * (dy / longer)] != rules::NoPiece) return false;
  }
  const bool straight = (dx == 0) != (dy == 0);
  const bool diagonal = dx != 0 && std::abs(dx) == std::abs(dy);
  const int forward = IsOf(board, from, rules::White) ? dy : -dy;
  const bool atHome = from / 8 == (IsOf(board, from, rules::White) ? 1 : 6);
  switch (kind) {
    case rules::WhiteRook:
      return straight;
    case rules::WhiteBishop:
      return diagonal;
    case rules::WhiteQueen:
      return straight || diagonal;
    case rules::WhiteKing:
      return longer == 1;
    default:
      if (board[to] != rules::NoPiece) return std::abs(dx) == 1 && forward == 1;
      return dx == 0 && (forward == 1 || (forward == 2 && atHome));
  }
}

bool InCheck(const Squares& board, rules::Side side) {
  for (int i = 0; i < 64 * 64; ++i) {
    if (board[i / 64] == rules::OfSide(rules::WhiteKing, side) &&
        IsOf(board, i % 64, rules::OtherSide(side)) && Goes(board, i % 64, i / 64)) {
      return true;
    }
  }
  return false;
}

/// Whether the side has pieces and none of them a move: mated or stalemated.
bool IsStuck(const Squares& board, rules::Side side) {
  bool hasPieces = false;
  for (int from = 0; from < 64; ++from) {
    if (!IsOf(board, from, side)) continue;
    hasPieces = true;
    for (int to = 0; to < 64; ++to) {
      if (IsOf(board, to, side) || rules::KindOf(board[to]) == rules::WhiteKing ||
          !Goes(board, from, to)) {
        continue;
      }
      Squares then = board;
      then.Put(rules::SquareAt(to), board[from]);
      then.Put(rules::SquareAt(from), rules::NoPiece);
      if (!InCheck(then, side)) return false;
    }
  }
  return hasPieces;
}

/// Whether no game may start from here after `mover` placed a piece: both kings in check, or a side
/// that is mated or stalemated; but a mover who gives check may be without a move himself.
bool IsUnfit(const Squares& board, rules::Side mover) {
  const rules::Side other = rules::OtherSide(mover);
  if (InCheck(board, other)) return InCheck(board, mover) || IsStuck(board, other);
  return IsStuck(board, other) || IsStuck(board, mover);
}

int SideInCheck(const Squares& board) {
  for (const rules::Side side : {rules::White, rules::Black}) {
    if (InCheck(board, side)) return side;
  }
  return rules::NobodyInCheck;
}

const std::string invalid = "6 Invalid setup: ";
const std::string mates =
    invalid +
    "Checkmate.  Placing that piece there will result in checkmate which is not a valid starting "
    "state.";
const std::string stalemates =
    invalid +
    "Stalemate.  Placing that piece there will result in a stalemate which is not a valid starting "
    "state.";
const std::string checksBoth =
    invalid +
    "Putting that piece there will result in both kings being in check, which is impossible in "
    "chess.";

struct SetupTest : BoardTest {
  SetupTest() {
    Process().SetupGame = true;
    Process().Offline = false;
  }

  void SetUp(const std::string& words) {
    Open(-1);
    rules::Place(words);
    ThePosition().SideInCheck = SideInCheck(ThePosition().BoardState);
    DisplayBoardState(*game, true);
    UpdatePiecePalette(*game);
  }
  using BoardTest::SetUp;

  /// A drop in the words of Change; a piece without a square goes from the palette into the trash.
  void Drop(std::string_view word) {
    if (word.size() == 4) {
      const rules::LastMove move = rules::Move(word);
      DropInSetup(*game, move.to, move.from);
    } else if (word[0] == '.') {
      DropInSetup(*game, {}, rules::Sq(word.substr(1)));
    } else {
      const Square target = word.size() == 1 ? Square{} : rules::Sq(word.substr(1));
      DropInSetup(*game, target, rules::CodeOf(word[0]));
    }
  }

  /// The board as a drop would leave it that nothing is tested of.
  static Squares After(std::string_view word) {
    const Squares kept = ThePosition().BoardState;
    const bool moves =
        word.size() > 1 && !(word.size() == 4 && rules::Move(word).from == rules::Move(word).to);
    if (moves) Change(word);
    return std::exchange(ThePosition().BoardState, kept);
  }

  /// What holds after every step, however it ended.
  void ExpectFitBoard() {
    const Squares& squares = ThePosition().BoardState;
    int kings = 0;
    for (const rules::Side side : {rules::White, rules::Black}) {
      const int ofSide = std::popcount(squares.Of(rules::OfSide(rules::WhiteKing, side)));
      EXPECT_LE(ofSide, 1);
      kings += ofSide;
      const bool inCheck = InCheck(squares, side);
      const bool givesCheck = InCheck(squares, rules::OtherSide(side));
      EXPECT_FALSE(inCheck && givesCheck);
      EXPECT_FALSE(IsStuck(squares, side) && !givesCheck);
    }
    EXPECT_EQ(ThePosition().SideInCheck, SideInCheck(squares));
    EXPECT_EQ(ThePosition().SideToMove, rules::White);
    EXPECT_EQ(game->SetupPlayable, kings == 2 && std::popcount(squares.Occupied()) >= 3);
    ExpectWindowIsUpToDate();
  }
};

struct DropCase {
  const char* name;
  const char* board;
  const char* drop;
  std::string refused = "";
};

const DropCase dropCases[] = {
    {"check to the other side", "Ke1 ke8", "Ra8"},
    {"a king put into check", "ke8 rd8", "Kd1"},
    {"a step that ends a check", "Ke1 re5 ka8", "e5d5"},
    {"the check passes to the other king", "Ke1 re5 ka8 Ra1", ".e5"},
    {"a piece over a king", "Ke1 ke8 Ra1", "Qe8"},
    {"a king thrown away", "Ke1 Qd2 ke8", ".e8"},
    {"a piece put back on its square", "Ke1 Qd2 ke8", "d2d2"},
    {"from the palette into the trash", "Ke1 ke8", "Q"},
    {"who gives check may be without a move", "Kh1 qf2 bf8 kg8", "Pf7"},
    {"but that isn't passed for the other side", "Kh1 qf2 bf8 kg8 Pf7", "q", stalemates},
    {"kings side by side", "ke5", "Kd4", checksBoth},
    {"a counter-check", "Ke1 re5 ka8", "Ra5", checksBoth},
    {"the other side is mated", "Ke1 ka8 pa7 pb7", "Rh8", mates},
    {"a king put into mate", "ra1 rb2 kh8", "Kh1", mates},
    {"the shield taken off", "Ke1 ka8 pa7 pb7 bb8 Rh8", ".b8", mates},
    {"the other side is stalemated", "Kf6 kh8", "Qf7", stalemates},
    {"a king put into stalemate", "Kf6 Qf7", "kh8", stalemates},
    {"nothing but a pawn on its last row", "ke8", "Pa8", stalemates},
};

TEST_F(SetupTest, EachDropIsAcceptedOrRefusedAndTakenBack) {
  for (const DropCase& row : dropCases) {
    SCOPED_TRACE(row.name);
    SetUp(row.board);
    const Squares before = ThePosition().BoardState;
    const Squares after = After(row.drop);
    Noticed();
    Drop(row.drop);
    EXPECT_EQ(Noticed(), "4" + row.refused);
    EXPECT_EQ(BoardText(), rules::WriteBoardText(row.refused.empty() ? after : before));
    ExpectFitBoard();
  }
}

TEST_F(SetupTest, ADragThatTheBoardChangedUnderDoesNothing) {
  SetUp("Ke1 ke8 Qa1");
  ToolbarClick(*game, ClearSetupButton);
  Drop("a1a2");
  EXPECT_EQ(BoardText(), rules::emptyBoard);
  EXPECT_TRUE(PiecePallete_MouseDown(*game, rules::WhiteKing));
  ToolbarClick(*game, ResetSetupButton);
  EXPECT_FALSE(PiecePallete_MouseDown(*game, rules::WhiteKing));
  Drop("Ke4");
  EXPECT_EQ(BoardText(), rules::normalStart);
}

struct RemovalCase {
  const char* name;
  const char* board;
  char piece;
  const char* left;
};

const RemovalCase removalCases[] = {
    {"all may go", "Ke1 Qd1 Pa2 Pb2 Pc7 ke8", 'P', "Ke1 Qd1 ke8"},
    {"one shields its king from a mate", "Kh1 Pd1 Pa5 ra1 rb2 kh8", 'P', "Kh1 Pd1 ra1 rb2 kh8"},
    {"the last rook keeps the game open", "Ke1 Ra1 Rh1 ke8", 'R', "Ke1 Rh1 ke8"},
    {"one bishop less is a draw already", "Ke1 Ba1 Bb1 ke8", 'B', "Ke1 Ba1 Bb1 ke8"},
    {"there are none", "Ke1 Qd1 ke8", 'n', "Ke1 Qd1 ke8"},
};

TEST_F(SetupTest, RemovingAPieceLeavesWhatMustStay) {
  for (const RemovalCase& row : removalCases) {
    SCOPED_TRACE(row.name);
    SetUp(row.board);
    RemovePieces(*game, rules::CodeOf(row.piece));
    EXPECT_EQ(BoardText(), BoardText(row.left));
    const bool someLeft = ThePosition().BoardState.Of(rules::CodeOf(row.piece)) != 0;
    EXPECT_EQ(Noticed(), someLeft ? invalid +
                                        "Some of the pieces you asked to be removed would have "
                                        "left the board in an illegal state so they have been left "
                                        "on the board."
                                  : "");
    ExpectFitBoard();
  }
}

const std::string pawns = "\n      To many pawns";
const std::string unpaid = "\n      Not exchanged enough pawns to pay for the court pieces";
const std::string noneOnWhite = "\n      No bishops on a white board square";
const std::string noneOnBlack = "\n      No bishops on a black board square";
const std::string over16 = "\n      More than 16 pieces on the board";
const std::string forcesDraw =
    invalid +
    "Forced draw.  Placing that piece there will force a draw because you cannot checkmate with "
    "only ";

struct PlayCase {
  const char* name;
  const char* board;
  std::string seen;    ///< warnings, or why the position can't be played
  bool begins = true;  ///< where the user accepts the warnings
};

const PlayCase playCases[] = {
    {"nine pawns", "Ke1 Pa2 Pb2 Pc2 Pd2 Pe2 Pf2 Pg2 Ph2 Pa3 ke8", "White warnings" + pawns},
    {"a king and sixteen", "start Qd4", ""},
    {"a king and seventeen", "start Qd4 Qe4", "White warnings" + unpaid + over16},
    {"one bishop", "Ke1 Bc1 Pa2 ke8 pa7 bc8", ""},
    {"two on dark squares", "Ke1 Ba1 Bc1 ke8", "White warnings" + noneOnWhite},
    {"three on light squares", "Ke1 ke8 ba8 bc8 bg8", "Black warnings" + noneOnBlack},
    {"a pair", "Ke1 Bb1 Bc1 ke8", ""},
    {"both sides", "Ke1 Bb1 Bd1 ke8 bb8 bd8 pa7 pb7 pc7 pd7 pe7 pf7 pg7 ph7 pa6",
     "White warnings" + noneOnBlack + "\n\nBlack warnings" + pawns + noneOnWhite},
    {"all of them", "start pa6 qb6 qb5 c8b8",
     "Black warnings" + pawns + unpaid + noneOnWhite + over16},
    {"two kings", "Ke1 ke8", "", false},
    {"a king missing", "Ke1 Qd1 Pa2", "", false},
    {"a knight", "Ke1 Ng1 ke8", forcesDraw + "a knight or a bishop.", false},
    {"one bishop each", "Ke1 Bc1 ke8 bf8", forcesDraw + "two bishops on the same colour.", false},
};

TEST_F(SetupTest, PlayWarnsOfWhatNoGameLeadsToAndRefusesWhatNobodyCanWin) {
  for (const PlayCase& row : playCases) {
    SCOPED_TRACE(row.name);
    for (const bool accepts : {false, true}) {
      SetUp(row.board);
      view->acceptsWarnings = accepts;
      ToolbarClick(*game, PlaySetupButton);
      EXPECT_EQ(view->warnings + Noticed(), row.seen);
      EXPECT_EQ(!Process().BoardSetupMode, row.begins && (accepts || row.seen.empty()));
      EXPECT_EQ(BoardText(), BoardText(row.board));
    }
  }
}

TEST_F(SetupTest, AGameFromASetupReachesItsEndOnBothBoards) {
  Process().NewGame = {"Endgame", "Eva", "eva@example.org"};
  Open(-1);
  ToolbarClick(*game, ClearSetupButton);
  for (const char* drop : {"Ke1", "Qa1", "kg8", "pf7", "pg7", "ph6", "h6h7", "Ra1"}) Drop(drop);
  ToolbarClick(*game, PlaySetupButton);
  const std::string start = BoardText();
  EXPECT_EQ(view->offers, "move surrender comment Cancel");
  Play("a1a8");
  const rules::Untouched mate;
  ToolbarClick(*game, SendButton);
  EXPECT_EQ(view->closed, 1);
  store::GameRecords games;
  ASSERT_TRUE(store::SelectGames(games, "Game_ID;1"));
  EXPECT_EQ(games.at(0).GAME_START_BOARD, start);
  EXPECT_EQ(games[0].GAME_STATUS, store::GameWon);

  games[0].GAME_HOST = false;
  ASSERT_TRUE(store::SaveGame(games[0], {}));
  Open(1);
  EXPECT_EQ(rules::Untouched(), mate);
  EXPECT_TRUE(ThePosition().CheckmateFlag);
}

const Case newsCases[] = {
    {"Black's first sight", "Ke1 Pe2 ke8|e2e4 e4|guest", "6 Setup game"},
    {"White knows", "Ke1 Pe2 ke8|e2e4 e4|", ""},
    {"Black knows by now", "Ke1 Pe2 ke8|e2e4 e4, e8e7 Ke7, e4e5 e5|guest", ""},
    {"the usual start", "|e2e4 e4|guest", ""},
};

TEST_F(SetupTest, OnlyBlacksFirstSightTellsOfTheSetup) {
  Expect(newsCases, [this] {
    Noticed();
    Tick();
    const std::string noticed = Noticed();
    return noticed.substr(0, noticed.find(':'));
  });
}

/// Thousands of steps. A step is refused where chess calls its outcome unfit and nowhere else.
TEST_F(SetupTest, NoSequenceOfStepsLeavesAnUnfitBoard) {
  std::mt19937 random(20261125);
  const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  const auto anySquare = [&] { return rules::NameOf(rules::SquareAt(below(64))); };
  std::string refusals;
  int played = 0;
  Open(-1);
  for (int step = 0; step < 6000 && !HasFailure(); ++step) {
    const std::string before = BoardText();
    SCOPED_TRACE("step " + std::to_string(step) + " from " + before);
    const int kind = below(100);
    Tick(below(3));
    Told();
    if (kind == 0) {
      ToolbarClick(*game, ResetSetupButton);
    } else if (kind < 4) {
      ToolbarClick(*game, ClearSetupButton);
    } else if (kind < 8) {
      const rules::PieceCode kinds[] = {rules::WhiteRook, rules::WhiteQueen, rules::WhitePawn};
      const rules::PieceCode code = rules::OfSide(kinds[below(3)], below(2));
      RemovePieces(*game, code);
      EXPECT_EQ(Told().empty(), ThePosition().BoardState.Of(code) == 0);
    } else if (kind < 10) {
      view->acceptsWarnings = below(2) == 0;
      ToolbarClick(*game, PlaySetupButton);
      if (!Process().BoardSetupMode) {
        ++played;
        EXPECT_EQ(BoardText(), before);
        EXPECT_EQ(ThePosition().SideInCheck, SideInCheck(ThePosition().BoardState));
        Open(-1);
      }
      while (!game->FlashPhase) Tick(1);
    } else {
      std::string word;
      rules::PieceCode piece = 1 + below(12);
      if (kind < 65 && IsOnPalette(piece)) {
        word = std::string(1, ".RNBQKPrnbqkp"[piece]) + (kind < 11 ? "" : anySquare());
      } else {
        const std::string from = anySquare();
        piece = ThePosition().BoardState.At(rules::Sq(from));
        word = kind < 75 ? "." + from : from + anySquare();
      }
      if (piece == rules::NoPiece) continue;
      const Squares after = After(word);
      const bool unfit = IsUnfit(after, rules::SideOfPiece(piece));
      Drop(word);
      const std::string told = Told();
      EXPECT_EQ(!told.empty(), unfit) << word << " " << told;
      EXPECT_EQ(BoardText(), unfit ? before : rules::WriteBoardText(after)) << word;
      refusals += told;
    }
    ExpectFitBoard();
  }
  EXPECT_GT(played, 0);
  for (const char* refusal : {"Checkmate.", "Stalemate.", "both kings"}) {
    EXPECT_NE(refusals.find(refusal), refusals.npos) << "never " << refusal;
  }
}

}  // namespace
}  // namespace board
