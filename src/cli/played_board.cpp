// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/played_board.h"

#include "board/load_board.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "rules/board_text.h"

namespace cli {
namespace {

bool HasFormOfMove(std::string_view move) {
  if (move.size() != 4 && move.size() != 6) return false;
  if (move.substr(0, 4).find_first_not_of("0123456789") != std::string_view::npos) return false;
  if (!rules::IsOnBoard(rules::Square{move[0] - '0', move[1] - '0'})) return false;
  return move.size() == 4 || (move[4] == '=' && rules::PieceOfLetter(move[5]) != rules::NoPiece);
}

using board::Board;
using board::BoardControls;

/// An entry that is no move, and what of the window leads to it.
struct SpecialEntry {
  std::string_view word;
  bool BoardControls::*offered;
  void (*enter)(Board& board);
};

constexpr SpecialEntry specialEntries[] = {
    {"offer", &BoardControls::surrender, [](Board& board) { board.OfferDraw(); }},
    {"surrender", &BoardControls::surrender, [](Board& board) { board.SurrenderGame(); }},
    {"accept", &BoardControls::answerDraw, [](Board& board) { board.DecideDraw(true); }},
    {"decline", &BoardControls::answerDraw, [](Board& board) { board.DecideDraw(false); }},
};

int SquareNumber(std::string_view digits) { return (digits[0] - '0') * 10 + (digits[1] - '0'); }

}  // namespace

void PlayedBoard::StartFrom(const std::string& boardText) {
  platform::ProcessState& process = platform::Process();
  rules::Position& position = rules::ThePosition();
  position = {};
  process.CurrentGameID = -1;
  process.SetupGame = !boardText.empty();
  if (process.SetupGame) position.BoardState = rules::ReadBoardText(boardText);
  logic.SetupOptions();
  logic.Moves.Fill({});
  logic.PlaysWhite = true;
  logic.StartBoard = board::LoadBoard(-1, position.SideInCheck, logic.FlashPhase, false, false);
  position.MoveAllowed = true;
}

bool PlayedBoard::BeginFrom(const std::string& boardText) {
  rules::ThePosition().BoardState = rules::ReadBoardText(boardText);
  // The White king is lifted and put back: the window's test of a single step, which looks at the
  // whole position.
  const int king = NumberOf(rules::FindPiece(rules::WhiteKing));
  logic.ApplySetupDrop(king, king, false);
  if (!messages_.Empty() || !logic.SetupValid()) return false;
  logic.BeginGame();
  return true;
}

std::size_t PlayedBoard::PlayBothSides(const std::vector<std::string>& moves) {
  std::size_t accepted = 0;
  for (const std::string& move : moves) {
    rules::ThePosition().SideToMove = logic.Moves.Count() % 2 == 0 ? rules::White : rules::Black;
    rules::ThePosition().MoveAllowed = true;
    if (!Play(move)) break;
    ++accepted;
  }
  return accepted;
}

bool PlayedBoard::Play(std::string_view move) {
  if (!HasFormOfMove(move)) {
    return Refuse(
        "A move is written as four digits, from column, from row, to column and to row, "
        "and =R, =N, =B or =Q behind them for a promotion.");
  }
  choice_ = move.size() == 6 ? rules::PieceOfLetter(move[5]) : rules::NoPiece;
  promoted_ = false;
  const int from = SquareNumber(move.substr(0, 2));
  const int to = SquareNumber(move.substr(2, 2));
  const int entries = logic.Moves.Count();
  if (!logic.CBoard_MouseDown(from)) return false;
  logic.CBoard_DragDrop(to, from);
  if (logic.Moves.Count() == entries) return false;
  const bool letterGiven = choice_ != rules::NoPiece;
  if (promoted_ == letterGiven) return true;

  logic.UndoLastMove();
  messages_.Take();
  return Refuse(promoted_ ? "A pawn that reaches the last row is exchanged: add =R, =N, =B or =Q "
                            "to the move."
                          : "That move is no promotion.");
}

bool PlayedBoard::PlayEntry(std::string_view entry) {
  for (const SpecialEntry& special : specialEntries) {
    if (entry != special.word) continue;
    if (!(logic.Controls().*special.offered)) return Refuse(WhyNotOffered());
    special.enter(logic);
    return true;
  }
  return Play(entry);
}

std::string PlayedBoard::WhyNotOffered() const {
  if (logic.GameIsOver()) return "The game is over.";
  if (logic.LastMoveIsMine()) return "It is your opponent's turn.";
  if (logic.DrawOffered) return "Your opponent offers a draw: accept or decline it first.";
  return logic.Moves.Count() == 0 ? "The game has no move yet."
                                  : "There is no offer of a draw to answer.";
}

bool PlayedBoard::Refuse(const std::string& why) {
  platform::VerboseMessage(why, "Illegal move", platform::FailureSound);
  return false;
}

rules::PieceCode PlayedBoard::ExchangePawn(rules::Side side) {
  promoted_ = true;
  // A move without its letter is taken back once it has proved to be legal.
  return rules::OfSide(choice_ == rules::NoPiece ? rules::WhiteQueen : choice_, side);
}

}  // namespace cli
