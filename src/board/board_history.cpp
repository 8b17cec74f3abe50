// SPDX-License-Identifier: GPL-3.0-or-later
// The move list: adding to it, browsing in it, and the replay that every position of a game comes
// from.
//
// The replay validates nothing. Rows come from the store and from mails that were checked for their
// form only, so they may hold moves that no game of chess allows; such a row changes what it can
// and no more.
#include "board/board.h"
#include "platform/busy_pointer.h"
#include "platform/process_state.h"
#include "rules/attack.h"
#include "rules/game_end.h"
#include "rules/piece_moves.h"

namespace board {

using rules::LastMove;
using rules::NoPiece;
using rules::Square;
using rules::Standing;
using rules::ThePosition;

void Board::UpdateMoveList(const rules::PlayedMove& move, const std::string& comment) {
  ListUpdating = true;
  const int previous = Moves.Selected();
  store::MoveRecord row;
  row.MoveNumber = Moves.Count() + 1;
  row.MoveCoordinates = std::to_string(NumberOf(move.from)) + std::to_string(NumberOf(move.to));
  row.MoveText = rules::MoveNotation(move, ThePosition().SideInCheck, Undo.boardCopy, GameDrawn,
                                     Moves.MoveOf(previous));
  row.MoveComment = comment;
  Moves.Add(std::move(row));
  Moves.Select(Moves.Count());
  SetButtonEnable();
  ListUpdating = false;
}

void Board::RemoveLastMove() {
  ListUpdating = true;
  Moves.RemoveLast();
  view_.Refresh();
  ListUpdating = false;
}

void Board::MoveThroughHistory() {
  const rules::Side sideToMove = ThePosition().SideToMove;
  Surrendered = false;
  for (int row = 1; row <= Moves.Selected(); ++row) ReplayEntry(row);
  ThePosition().SideToMove = sideToMove;
  DisplayPlayerComment();
  FindCheckAfterReplay();
  FindTurnAfterReplay();
  SetButtonEnable();
}

void Board::ReplayEntry(int row) {
  const std::string& text = Moves.Row(row).MoveText;
  if (text == "0-1" || text == "1-0" || text == "Surrender") {
    Surrendered = true;
  } else if (text == "Draw offer") {
    DrawOffered = true;
  } else if (text == "1/2-1/2") {
    GameDrawn = true;
  } else if (text == "Decline") {
    DrawOffered = false;
    GameDrawn = false;
  } else {
    DrawOffered = false;
    if (text.ends_with("1/2-1/2")) GameDrawn = true;
    ReplayPieceMove(row);
  }
}

void Board::ReplayPieceMove(int row) {
  const LastMove move = Moves.MoveOf(row);
  if (!IsOnBoard(move.from) || !IsOnBoard(move.to)) return;
  rules::Position& position = ThePosition();
  const rules::Side side = row % 2 == 1 ? rules::White : rules::Black;
  position.SideToMove = side;

  rules::PieceCode piece = position.BoardState.At(move.from);
  const std::string& text = Moves.Row(row).MoveText;
  const auto promotion = text.find('=');
  if (promotion != std::string::npos && promotion + 1 < text.size()) {
    const rules::PieceCode chosen = rules::PieceOfLetter(text[promotion + 1]);
    if (chosen != NoPiece) piece = rules::OfSide(chosen, side);
  }
  rules::CarryOut(side, piece, move.from, move.to, Moves.MoveOf(row - 1));
}

void Board::FindCheckAfterReplay() {
  rules::Position& position = ThePosition();
  if (rules::GameState(rules::White, false, position.SideInCheck) != Standing::Neither) {
    position.SideInCheck = rules::White;
    return;
  }
  if (GameDrawn) return;
  if (rules::GameState(rules::Black, false, position.SideInCheck) != Standing::Neither) {
    position.SideInCheck = rules::Black;
    return;
  }
  if (Moves.AtEnd() &&
      rules::NoLegalMoves(position.SideToMove, Moves.MoveOf(Moves.Count()), position.SideInCheck)) {
    GameDrawn = true;
  }
  position.SideInCheck = rules::NobodyInCheck;
}

void Board::FindTurnAfterReplay() {
  rules::Position& position = ThePosition();
  const platform::ProcessState& process = platform::Process();
  position.MoveAllowed = false;
  // Mate is read from the text of the list and never worked out again.
  position.CheckmateFlag = Moves.Row(Moves.Selected()).MoveText.ends_with("++");
  if (position.CheckmateFlag || Surrendered || GameDrawn) return;
  const bool usersTurn = (Moves.Count() % 2 == 0) == PlaysWhite;
  if (!Moves.AtEnd() || !usersTurn) return;
  position.MoveAllowed =
      !process.Offline || process.StandAlone || (process.ComputerGame && PlaysWhite);
}

void Board::MoveList_RowColChange(int row) {
  // The pending move of a new game has no record yet to be replayed from, so a press on the row
  // that is shown already must not rebuild the position.
  if (ListUpdating || row == Moves.Selected()) return;
  ListUpdating = true;
  const platform::BusyPointer busy;
  Moves.Select(row);
  CopyBoard();
  SetBoardState();
  DisplayBoardState(false);
  if (HilightVisible) HilightMove(row);
  view_.Refresh();
  ListUpdating = false;
}

void Board::HilightMove(int row) {
  MovePointers.clear();
  const store::MoveRecord& entry = Moves.Row(row);
  const LastMove move = Moves.MoveOf(row);
  if (row < 1) {
    HilightVisible = false;
  } else if (entry.MoveText != "1/2-1/2" && entry.MoveText != "Decline" &&
             entry.MoveText != "Draw offer" && IsOnBoard(move.from) && IsOnBoard(move.to)) {
    MovePointers = PathOf(entry, move);
    HilightVisible = true;
  }
  view_.Refresh();
}

std::vector<Square> Board::PathOf(const store::MoveRecord& entry, LastMove move) const {
  const auto sign = [](int value) { return (value > 0) - (value < 0); };
  const int columns = move.to.x - move.from.x;
  const int rows = move.to.y - move.from.y;
  const rules::PieceCode piece = ThePosition().BoardState.At(move.to);
  if (rules::KindOf(piece) == rules::WhiteKnight && entry.MoveText.find('=') == std::string::npos) {
    // Along the long side to the corner, then round it.
    const bool longColumns = std::abs(columns) > std::abs(rows);
    const int dx = longColumns ? sign(columns) : 0;
    const int dy = longColumns ? 0 : sign(rows);
    const Square corner =
        longColumns ? Square{move.to.x, move.from.y} : Square{move.from.x, move.to.y};
    return {move.from, {move.from.x + dx, move.from.y + dy}, corner, move.to};
  }
  std::vector<Square> path{move.from};
  while (path.back() != move.to && path.size() < 8) {
    const Square next{path.back().x + sign(columns), path.back().y + sign(rows)};
    if (!IsOnBoard(next)) break;
    path.push_back(next);
  }
  return path;
}

void Board::RemoveHilight() {
  MovePointers.clear();
  HilightVisible = false;
  view_.Refresh();
}

void Board::DisplayPlayerComment() {
  OpponentComment.clear();
  const int row = Moves.Selected();
  const std::string& comment = Moves.Row(row).MoveComment;
  if (platform::Process().ComputerGame) {
    const std::int64_t considered = Search.MovesConsidered;
    if (considered > 0) {
      OpponentComment = "Moves considered : " + std::to_string(considered) +
                        "\nLast move score : " + std::to_string(LastMoveScore);
    }
  } else if (!comment.empty()) {
    const bool mine = (row % 2 == 1) == PlaysWhite;
    OpponentComment = (mine ? "You" : OpponentName()) + " said: " + comment;
  }
  view_.Refresh();
}

int Board::TopRow() const { return Moves.Count() < 2 ? 1 : std::max(1, Moves.Selected() - 10); }

}  // namespace board
