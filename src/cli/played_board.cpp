// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/played_board.h"

#include "board/controls.h"
#include "board/ends.h"
#include "board/load_board.h"
#include "board/moving.h"
#include "board/opening.h"
#include "board/setup.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "rules/board_text.h"
#include "rules/notation.h"

namespace cli {
namespace {

rules::Square SquareOf(std::string_view digits) { return {digits[0] - '0', digits[1] - '0'}; }

bool HasFormOfMove(std::string_view move) {
  if (move.size() != 4 && move.size() != 6) return false;
  if (move.substr(0, 4).find_first_not_of("0123456789") != std::string_view::npos) return false;
  if (!IsOnBoard(SquareOf(move))) return false;
  return move.size() == 4 || (move[4] == '=' && rules::PieceOfLetter(move[5]) != rules::NoPiece);
}

using board::BoardControls;
using board::Game;

/// An entry that is no move, and what of the window leads to it.
struct SpecialEntry {
  std::string_view word;
  bool BoardControls::*offered;
  void (*enter)(Game& game);
};

constexpr SpecialEntry specialEntries[] = {
    {"offer", &BoardControls::surrender, [](Game& game) { board::OfferDraw(game); }},
    {"surrender", &BoardControls::surrender, [](Game& game) { board::SurrenderGame(game); }},
    {"accept", &BoardControls::answerDraw, [](Game& game) { board::DecideDraw(game, true); }},
    {"decline", &BoardControls::answerDraw, [](Game& game) { board::DecideDraw(game, false); }},
};

}  // namespace

void PlayedBoard::StartFrom(const std::string& boardText) {
  platform::ProcessState& process = platform::Process();
  rules::Position& position = rules::ThePosition();
  position = {};
  process.CurrentGameID = -1;
  process.SetupGame = !boardText.empty();
  if (process.SetupGame) position.BoardState = rules::ReadBoardText(boardText);
  board::SetupOptions(logic);
  logic.Moves.Fill({});
  logic.PlaysWhite = true;
  logic.StartBoard = board::LoadBoard(-1, position.SideInCheck, logic.FlashPhase, false, false);
  position.MoveAllowed = true;
}

bool PlayedBoard::BeginFrom(const std::string& boardText) {
  rules::ThePosition().BoardState = rules::ReadBoardText(boardText);
  // The White king is lifted and put back: the window's test of a single step, which looks at the
  // whole position.
  const rules::Square king = rules::FindPiece(rules::WhiteKing);
  board::ApplySetupDrop(logic, king, king);
  if (!messages_.Empty() || !board::SetupValid(logic)) return false;
  board::BeginGame(logic);
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
  const rules::Square from = SquareOf(move.substr(0, 2));
  const rules::Square to = SquareOf(move.substr(2, 2));
  const int entries = logic.Moves.Count();
  if (!board::CBoard_MouseDown(logic, from)) return false;
  board::CBoard_DragDrop(logic, to, from);
  if (logic.Moves.Count() == entries) return false;
  const bool letterGiven = choice_ != rules::NoPiece;
  if (promoted_ == letterGiven) return true;

  board::UndoLastMove(logic);
  messages_.Take();
  return Refuse(promoted_ ? "A pawn that reaches the last row is exchanged: add =R, =N, =B or =Q "
                            "to the move."
                          : "That move is no promotion.");
}

bool PlayedBoard::PlayEntry(std::string_view entry) {
  for (const SpecialEntry& special : specialEntries) {
    if (entry != special.word) continue;
    if (!(board::Controls(logic).*special.offered)) return Refuse(WhyNotOffered());
    special.enter(logic);
    return true;
  }
  return Play(entry);
}

std::string PlayedBoard::WhyNotOffered() const {
  if (board::GameIsOver(logic)) return "The game is over.";
  if (board::LastMoveIsMine(logic)) return "It is your opponent's turn.";
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
