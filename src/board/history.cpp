// SPDX-License-Identifier: GPL-3.0-or-later
// The replay validates nothing. Rows come from the store and from mails that were checked for their
// form only, so they may hold moves that no game of chess allows; such a row changes what it can
// and no more.
#include "board/history.h"

#include "board/controls.h"
#include "board/ends.h"
#include "board/opening.h"
#include "board/squares.h"
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

namespace {

void ReplayEntry(Game& game, int row) {
  const std::string& text = game.Moves.Row(row).MoveText;
  if (text == "0-1" || text == "1-0" || text == "Surrender") {
    game.Surrendered = true;
  } else if (text == "Draw offer") {
    game.DrawOffered = true;
  } else if (text == "1/2-1/2") {
    game.GameDrawn = true;
  } else if (text == "Decline") {
    game.DrawOffered = false;
    game.GameDrawn = false;
  } else {
    game.DrawOffered = false;
    if (text.ends_with("1/2-1/2")) game.GameDrawn = true;
    ReplayPieceMove(game.Moves.Row(row), game.Moves.MoveOf(row - 1),
                    row % 2 == 1 ? rules::White : rules::Black);
  }
}

void FindCheckAfterReplay(Game& game) {
  rules::Position& position = ThePosition();
  if (rules::GameState(rules::White, false, position.SideInCheck) != Standing::Neither) {
    position.SideInCheck = rules::White;
    return;
  }
  if (game.GameDrawn) return;
  if (rules::GameState(rules::Black, false, position.SideInCheck) != Standing::Neither) {
    position.SideInCheck = rules::Black;
    return;
  }
  // A stalemate of the opponent's stands in the text of the user's move, which ended the game.
  if (game.Moves.AtEnd() && !LastMoveIsMine(game) &&
      rules::NoLegalMoves(position.SideToMove, game.Moves.MoveOf(game.Moves.Count()),
                          position.SideInCheck)) {
    game.GameDrawn = true;
  }
  position.SideInCheck = rules::NobodyInCheck;
}

void FindTurnAfterReplay(Game& game) {
  rules::Position& position = ThePosition();
  position.MoveAllowed = false;
  // Mate is read from the text of the list and never worked out again.
  position.CheckmateFlag = game.Moves.Row(game.Moves.Selected()).MoveText.ends_with("++");
  if (position.CheckmateFlag || game.Surrendered || game.GameDrawn) return;
  if (!game.Moves.AtEnd() || LastMoveIsMine(game)) return;
  position.MoveAllowed =
      OpponentIsReachable(game) || (platform::Process().ComputerGame && game.PlaysWhite);
}

/// Who said what with an entry; blank where nothing was said.
std::string Saying(const Game& game, int row) {
  const std::string& comment = game.Moves.Row(row).MoveComment;
  if (comment.empty()) return {};
  return (EntryIsMine(game, row) ? "You" : OpponentName(game)) + " said: " + comment;
}

std::vector<Square> PathOf(const store::MoveRecord& entry, LastMove move) {
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

}  // namespace

void UpdateMoveList(Game& game, const rules::PlayedMove& move, const std::string& comment) {
  game.ListUpdating = true;
  const int previous = game.Moves.Selected();
  store::MoveRecord row;
  row.MoveNumber = game.Moves.Count() + 1;
  row.MoveCoordinates = std::to_string(NumberOf(move.from)) + std::to_string(NumberOf(move.to));
  row.MoveText = rules::MoveNotation(move, ThePosition().SideInCheck, game.Undo.boardCopy,
                                     game.GameDrawn, game.Moves.MoveOf(previous));
  row.MoveComment = comment;
  game.Moves.Add(std::move(row));
  game.Moves.Select(game.Moves.Count());
  SetButtonEnable(game);
  game.ListUpdating = false;
}

void RemoveLastMove(Game& game) {
  game.ListUpdating = true;
  game.Moves.RemoveLast();
  game.view.Refresh();
  game.ListUpdating = false;
}

void ReplayPieceMove(const store::MoveRecord& entry, LastMove previous, rules::Side side) {
  const LastMove move = LastMove::FromText(entry.MoveCoordinates);
  if (!IsOnBoard(move.from) || !IsOnBoard(move.to)) return;
  rules::Position& position = ThePosition();
  position.SideToMove = side;

  rules::PieceCode piece = position.BoardState.At(move.from);
  const std::string& text = entry.MoveText;
  const auto promotion = text.find('=');
  if (promotion != std::string::npos && promotion + 1 < text.size()) {
    const rules::PieceCode chosen = rules::PieceOfLetter(text[promotion + 1]);
    if (chosen != NoPiece) piece = rules::OfSide(chosen, side);
  }
  rules::CarryOut(side, piece, move.from, move.to, previous);
}

void MoveThroughHistory(Game& game) {
  const rules::Side sideToMove = ThePosition().SideToMove;
  game.Surrendered = false;
  for (int row = 1; row <= game.Moves.Selected(); ++row) ReplayEntry(game, row);
  ThePosition().SideToMove = sideToMove;
  DisplayPlayerComment(game);
  FindCheckAfterReplay(game);
  FindTurnAfterReplay(game);
  SetButtonEnable(game);
}

void MoveList_RowColChange(Game& game, int row) {
  // The pending move of a new game has no record yet to be replayed from, so a press on the row
  // that is shown already must not rebuild the position.
  if (game.ListUpdating || row == game.Moves.Selected()) return;
  game.ListUpdating = true;
  const platform::BusyPointer busy;
  game.Moves.Select(row);
  CopyBoard(game);
  SetBoardState(game);
  DisplayBoardState(game, false);
  if (game.HilightVisible) AskForHilight(game);
  game.view.Refresh();
  game.ListUpdating = false;
}

void HilightMove(Game& game, int row) {
  game.MovePointers.clear();
  const store::MoveRecord& entry = game.Moves.Row(row);
  const LastMove move = game.Moves.MoveOf(row);
  if (row < 1) {
    game.HilightVisible = false;
  } else if (entry.MoveText != "1/2-1/2" && entry.MoveText != "Decline" &&
             entry.MoveText != "Draw offer" && IsOnBoard(move.from) && IsOnBoard(move.to)) {
    game.MovePointers = PathOf(entry, move);
    game.HilightVisible = true;
  }
  game.view.Refresh();
}

void AskForHilight(Game& game) {
  game.HilightAsked = true;
  HilightMove(game, game.Moves.Selected());
}

std::vector<Square> ShownPath(const Game& game) {
  return game.HilightAsked ? game.MovePointers : std::vector<Square>();
}

std::optional<LastMove> ShownMove(const Game& game) {
  const LastMove move = game.Moves.MoveOf(game.Moves.Selected());
  const bool isMove = IsOnBoard(move.from) && IsOnBoard(move.to) && move.from != move.to;
  return isMove && ShownPath(game).empty() ? std::optional(move) : std::nullopt;
}

void RemoveHilight(Game& game) {
  game.HilightAsked = false;
  game.MovePointers.clear();
  game.HilightVisible = false;
  game.view.Refresh();
}

void DisplayPlayerComment(Game& game) {
  game.OpponentComment.clear();
  if (platform::Process().ComputerGame) {
    const std::int64_t considered = game.Search.MovesConsidered;
    if (considered > 0) {
      game.OpponentComment = "Moves considered : " + std::to_string(considered) +
                             "\nLast move score : " + std::to_string(game.LastMoveScore);
    }
  } else {
    game.OpponentComment = Saying(game, game.Moves.Selected());
  }
  game.view.Refresh();
}

std::string LastWords(const Game& game) {
  const bool answers = EntryIsPending(game) && game.Moves.AtEnd();
  if (!answers || platform::Process().ComputerGame) return {};
  return Saying(game, game.Moves.Count() - 1);
}

int TopRow(const Game& game) {
  return game.Moves.Count() < 2 ? 1 : std::max(1, game.Moves.Selected() - 10);
}

}  // namespace board
