// SPDX-License-Identifier: GPL-3.0-or-later
// A position of the user's own making.
#include <random>

#include "ai/plain_chess.h"
#include "board/board_fixture.h"

namespace board {
namespace {

const std::string invalid = "Invalid setup: ";
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

/// What the second opinion on chess says of a board.
struct Judged {
  bool check[2], stuck[2];  ///< stuck: mated or stalemated

  explicit Judged(const rules::BoardSquares& board) {
    for (const rules::Side side : {rules::White, rules::Black}) {
      ai::PlainChess plain;
      for (int i = 0; i < 64; ++i) plain.squares[i] = ".RNBQKPrnbqkp"[board[i]];
      plain.whiteMoves = side == rules::White;
      plain.rights.clear();
      check[side] = plain.InCheck(plain.whiteMoves);
      stuck[side] = board.OfSide(side) != 0 && plain.LegalMoves().empty();
    }
  }

  int SideInCheck() const { return check[0] ? rules::White : check[1] ? rules::Black : -1; }

  /// What the user is told after he placed a piece of `mover`. One who gives check may be without a
  /// move himself.
  std::string Refusal(rules::Side mover) const {
    const rules::Side other = rules::OtherSide(mover);
    if (check[other]) return check[mover] ? checksBoth : stuck[other] ? mates : "";
    if (stuck[other]) return stalemates;
    return !stuck[mover] ? "" : check[mover] ? mates : stalemates;
  }
};

struct SetupTest : BoardTest {
  SetupTest() {
    Process().SetupGame = true;
    Process().Offline = false;
    Open(-1);
  }

  /// A drop in the words of Change; a piece without a square goes from the palette into the trash.
  void Drop(std::string_view word) {
    if (word.size() == 4) {
      DropInSetup(*game, rules::Move(word).to, rules::Move(word).from);
    } else if (word[0] == '.') {
      DropInSetup(*game, {}, rules::Sq(word.substr(1)));
    } else {
      const Square target = word.size() == 1 ? Square{} : rules::Sq(word.substr(1));
      DropInSetup(*game, target, rules::CodeOf(word[0]));
    }
  }

  /// The board as a drop would leave it that nothing is tested of.
  static rules::BoardSquares After(std::string_view word) {
    const rules::BoardSquares kept = ThePosition().BoardState;
    if (word.size() != 4 || rules::Move(word).from != rules::Move(word).to) Change(word);
    return std::exchange(ThePosition().BoardState, kept);
  }

  /// What is left of a board without the pieces of a code that may go.
  static std::string Without(rules::PieceCode code, const std::string& boardText) {
    const rules::Position kept = ThePosition();
    rules::BoardSquares& board = ThePosition().BoardState;
    board = rules::ReadBoardText(boardText);
    for (int i = 0; i < 64; ++i) {
      if (board[i] != code) continue;
      board.Put(rules::SquareAt(i), rules::NoPiece);
      const bool mayGo = rules::ForcedDrawType() == rules::ForcedDraw::None &&
                         Judged(board).Refusal(rules::SideOfPiece(code)).empty();
      if (!mayGo) board.Put(rules::SquareAt(i), code);
    }
    return rules::WriteBoardText(std::exchange(ThePosition(), kept).BoardState);
  }

  /// What holds after every step, however it ended.
  void ExpectWindowKnowsTheBoard() {
    const rules::BoardSquares& squares = ThePosition().BoardState;
    const bool kings = squares.Of(rules::WhiteKing) != 0 && squares.Of(rules::BlackKing) != 0;
    EXPECT_EQ(game->SetupPlayable, kings && std::popcount(squares.Occupied()) >= 3);
    EXPECT_EQ(ThePosition().SideInCheck, Judged(squares).SideInCheck());
    EXPECT_EQ(ThePosition().SideToMove, rules::White);
    ExpectWindowIsUpToDate();
  }
};

/// Thousands of steps. A step is refused where chess calls its outcome unfit, in the words for
/// that, and nowhere else.
TEST_F(SetupTest, NoSequenceOfStepsLeavesAnUnfitBoard) {
  std::mt19937 random(20261125);
  const auto below = [&](unsigned n) { return static_cast<int>(random() % n); };
  const auto anySquare = [&] { return rules::NameOf(rules::SquareAt(below(64))); };
  std::string refusals;
  for (int step = 0; step < 6000 && !HasFailure(); ++step) {
    const std::string before = BoardText();
    SCOPED_TRACE("step " + std::to_string(step) + " from " + before);
    const int kind = below(100);
    Tick(below(3));
    Told();
    if (kind < 4) {
      ToolbarClick(*game, kind == 0 ? ResetSetupButton : ClearSetupButton);
    } else if (kind < 8) {
      const rules::PieceCode kinds[] = {rules::WhiteRook, rules::WhiteQueen, rules::WhitePawn};
      const rules::PieceCode code = rules::OfSide(kinds[below(3)], below(2));
      RemovePieces(*game, code);
      EXPECT_EQ(BoardText(), Without(code, before)) << code;
      EXPECT_EQ(Told().empty(), ThePosition().BoardState.Of(code) == 0);
    } else {
      std::string word;
      rules::PieceCode piece = 1 + below(12);
      bool there = IsOnPalette(piece);  // else a key has changed the board under the drag
      if (kind < 65) {
        word = std::string(1, ".RNBQKPrnbqkp"[piece]) + (kind < 10 ? "" : anySquare());
      } else {
        const std::string from = anySquare();
        piece = ThePosition().BoardState.At(rules::Sq(from));
        there = piece != rules::NoPiece;
        word = kind < 75 ? "." + from : from + anySquare();
      }
      const rules::BoardSquares after = there ? After(word) : ThePosition().BoardState;
      const std::string refusal = there ? Judged(after).Refusal(rules::SideOfPiece(piece)) : "";
      Drop(word);
      const std::string told = Told();
      // A mate by a king that is attacked itself is either.
      EXPECT_TRUE(told == refusal || (told == mates && refusal == checksBoth)) << word << told;
      EXPECT_EQ(BoardText(), refusal.empty() ? rules::WriteBoardText(after) : before) << word;
      refusals += refusal;
      if (!there) continue;
    }
    ExpectWindowKnowsTheBoard();
  }
  for (const std::string& refusal : {mates, stalemates, checksBoth}) {
    EXPECT_NE(refusals.find(refusal), refusals.npos) << "never " << refusal;
  }
}

struct PlayCase {
  const char* name;
  const char* board;
  bool isOdd;   ///< no game leads there, and the user is asked
  bool begins;  ///< where he wants it all the same
};

const PlayCase playCases[] = {
    {"a usual position", "Ke1 Pe2 ke8", false, true},
    {"a king and seventeen", "start Qd4 Qe4", true, true},
    {"two kings", "Ke1 ke8", false, false},
    {"a king missing", "Ke1 Qd1 Pa2", false, false},
    {"a knight", "Ke1 Ng1 ke8", false, false},
};

TEST_F(SetupTest, PlayRefusesWhatNobodyCanWinAndAsksAboutWhatNoGameLeadsTo) {
  for (const PlayCase& row : playCases) {
    SCOPED_TRACE(row.name);
    for (const bool accepts : {false, true}) {
      Open(-1);
      rules::Place(row.board);
      UpdatePiecePalette(*game);
      view->acceptsWarnings = accepts;
      ToolbarClick(*game, PlaySetupButton);
      EXPECT_EQ(!Process().BoardSetupMode, row.begins && (accepts || !row.isOdd));
      EXPECT_EQ(BoardText(), BoardText(row.board));
    }
  }
}

}  // namespace
}  // namespace board
