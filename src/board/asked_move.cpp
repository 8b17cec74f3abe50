// SPDX-License-Identifier: GPL-3.0-or-later
#include "board/asked_move.h"

#include "board/ends.h"
#include "board/history.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "rules/attack.h"
#include "rules/board_text.h"
#include "rules/piece_moves.h"
#include "rules/position_guard.h"
#include "rules/test_moves.h"
#include "store/game_record.h"

namespace board {

using rules::LastMove;
using rules::ThePosition;

namespace {

bool MovesPiece(LastMove move) {
  return IsOnBoard(move.from) && IsOnBoard(move.to) && move.from != move.to;
}

int LastPieceEntry(const Game& game) {
  int row = game.Moves.Selected();
  while (row > 0 && !MovesPiece(game.Moves.MoveOf(row))) --row;
  return row;
}

rules::Side SideOfEntry(int row) { return row % 2 == 1 ? rules::White : rules::Black; }

void PlayUpTo(const Game& game, int last) {
  ThePosition() = {};
  ThePosition().BoardState = rules::ReadBoardText(game.StartBoard);
  rules::RebuildCastleState();
  for (int row = 1; row <= last; ++row) {
    if (!MovesPiece(game.Moves.MoveOf(row))) continue;
    ReplayPieceMove(game.Moves.Row(row), game.Moves.MoveOf(row - 1), SideOfEntry(row));
  }
}

/// What a pawn becomes by the entry at `row`, on the position before it.
rules::PieceCode PromotionBy(const Game& game, int row, rules::Side side) {
  const rules::PositionGuard guard;
  const LastMove move = game.Moves.MoveOf(row);
  const rules::PieceCode piece = ThePosition().BoardState.At(move.from);
  if (rules::KindOf(piece) != rules::WhitePawn) return rules::NoPiece;
  ReplayPieceMove(game.Moves.Row(row), game.Moves.MoveOf(row - 1), side);
  const rules::PieceCode arrived = ThePosition().BoardState.At(move.to);
  return arrived == piece ? rules::NoPiece : arrived;
}

void NoteCheck(rules::Side side) {
  rules::Position& position = ThePosition();
  position.SideToMove = side;
  position.SideInCheck = rules::IsInCheck(side) ? side : rules::NobodyInCheck;
}

bool IsFinished(const Game& game) {
  if (game.GameStatus == store::GameWon || game.GameStatus == store::GameLost ||
      game.GameStatus == store::GameDrawn) {
    return true;
  }
  return game.Moves.AtEnd() && GameIsOver(game) && !EntryIsPending(game);
}

}  // namespace

AskedMove MoveToAskAbout(const Game& game) {
  const rules::PositionGuard guard;
  const int row = LastPieceEntry(game);
  // At the start nothing has moved; what was said there hasn't changed whose turn it is.
  const int before = row == 0 ? 0 : row - 1;
  const rules::Side side = SideOfEntry(before + 1);
  PlayUpTo(game, before);
  NoteCheck(side);
  AskedMove asked{{ThePosition(), side, game.Moves.MoveOf(before)},
                  game.Moves.MoveOf(row),
                  game.Moves.Row(row).MoveText};
  if (row > 0) asked.becomes = PromotionBy(game, row, side);
  return asked;
}

bool MayAskWhy(const Game& game) {
  return platform::Process().ComputerGame || platform::Settings().WhyInMailGames ||
         IsFinished(game);
}

rules::Position PositionBehind(const ai::Moment& moment, LastMove move) {
  const rules::PositionGuard guard;
  ThePosition() = moment.position;
  rules::CarryOut(moment.side, ThePosition().BoardState.At(move.from), move.from, move.to,
                  moment.lastMove);
  const rules::Side next = rules::OtherSide(moment.side);
  NoteCheck(next);
  ThePosition().CheckmateFlag =
      rules::GameState(next, true, ThePosition().SideInCheck, move) == rules::Standing::Checkmate;
  return ThePosition();
}

std::string NameOfMove(const ai::Moment& moment, LastMove move) {
  const rules::PositionGuard guard;
  const rules::BoardSquares& before = moment.position.BoardState;
  ThePosition() = PositionBehind(moment, move);
  ThePosition().SideToMove = moment.side;
  const rules::PieceCode piece = before.At(move.from);
  const bool castling =
      rules::KindOf(piece) == rules::WhiteKing && std::abs(move.from.x - move.to.x) > 1;
  const bool capture = before.At(move.to) != rules::NoPiece;
  return rules::MoveNotation({piece, move.from, move.to, capture, castling},
                             ThePosition().SideInCheck, before, false, moment.lastMove);
}

}  // namespace board
