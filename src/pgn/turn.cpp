// SPDX-License-Identifier: GPL-3.0-or-later
#include "pgn/turn.h"

#include <optional>

#include "rules/attack.h"
#include "rules/game_end.h"
#include "rules/piece_moves.h"
#include "rules/test_moves.h"

namespace pgn {

using rules::Square;
using rules::ThePosition;

namespace {

void NoteCheck(rules::Side side) {
  ThePosition().SideInCheck = rules::IsInCheck(side) ? side : rules::NobodyInCheck;
}

}  // namespace

void BeginFrom(const rules::BoardSquares& board) {
  ThePosition() = {};
  ThePosition().BoardState = board;
  rules::RebuildCastleState();
  NoteCheck(rules::White);
}

bool IsLegal(const Turn& turn, Square from, Square to) {
  if (!IsOnBoard(from) || !rules::IsTargetSquare(turn.side, to)) return false;
  const rules::PieceCode piece = ThePosition().BoardState.At(from);
  if (rules::SideOfPiece(piece) != turn.side) return false;
  const bool capture = rules::SideOf(to) != rules::NoSide;
  return rules::ValidMove(turn.side, piece, from, to, capture, ThePosition().SideInCheck, {}, false,
                          turn.lastMove) &&
         rules::TestMoveIsLegal(turn.side, piece, from, to, turn.lastMove);
}

void Play(Turn& turn, const ChessMove& move) {
  rules::Position& position = ThePosition();
  const bool quiet = !rules::IsPawn(position.BoardState.At(move.from)) &&
                     position.BoardState.At(move.to) == rules::NoPiece;
  position.SideToMove = turn.side;
  rules::CarryOut(turn.side, move.becomes, move.from, move.to, turn.lastMove);
  turn.quietPlies = quiet ? turn.quietPlies + 1 : 0;
  turn.number += turn.side;
  turn.lastMove = {move.from, move.to};
  turn.side = rules::OtherSide(turn.side);
  NoteCheck(turn.side);
}

Ending EndingAt(const Turn& turn) {
  const int sideInCheck = ThePosition().SideInCheck;
  if (sideInCheck == turn.side) {
    const auto standing = rules::GameState(turn.side, true, sideInCheck, turn.lastMove);
    return standing == rules::Standing::Checkmate ? Ending::Mate : Ending::None;
  }
  if (rules::ForcedDrawType() != rules::ForcedDraw::None) return Ending::DeadPosition;
  const bool stuck = rules::NoLegalMoves(turn.side, turn.lastMove, sideInCheck);
  return stuck ? Ending::Stalemate : Ending::None;
}

std::string_view ResultOf(Ending ending, const Turn& turn) {
  if (ending != Ending::Mate) return "1/2-1/2";
  return turn.side == rules::White ? "0-1" : "1-0";
}

}  // namespace pgn
