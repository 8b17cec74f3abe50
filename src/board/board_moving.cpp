// SPDX-License-Identifier: GPL-3.0-or-later
// From the press on a piece to the pending move: legality, self-check, promotion, en passant,
// castling, and what the move means for the opponent.
#include "board/board.h"
#include "board/dialog_lock.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "rules/attack.h"
#include "rules/game_end.h"
#include "rules/piece_moves.h"

namespace board {

using platform::Process;
using rules::NoPiece;
using rules::Square;
using rules::ThePosition;

namespace {

constexpr int selfCheckTicks = 10;
constexpr int stalemateTicks = 15;

}  // namespace

bool Board::CBoard_MouseDown(int square) {
  // A click on a board with marks on it only cleans the board and gives no message.
  const bool cleaning = HilightVisible || CoordsVisible;
  if (CoordsVisible) ToggleCoords();
  if (HilightVisible) RemoveHilight();

  const rules::Side owner = rules::SideOf(rules::FromNumber(square));
  if (Process().BoardSetupMode) return owner != rules::NoSide;
  const bool mayMove = ThePosition().MoveAllowed && !DrawOffered;
  if (mayMove && owner == ThePosition().SideToMove) {
    platform::PlayNumberedSound(platform::LiftSound);
    return true;
  }
  if (cleaning) return false;
  if (!mayMove) {
    platform::VerboseMessage("You are not allowed to make a move right now.",
                             "Tarvolenix information", platform::FailureSound);
  } else if (owner != rules::NoSide) {
    platform::VerboseMessage("That is not one of your pieces!", "Illegal move",
                             platform::FailureSound);
  }
  return false;
}

void Board::CBoard_DragDrop(int square, int source) {
  platform::PlayNumberedSound(platform::DropSound);
  const Square target = rules::FromNumber(square);
  if (rules::IsOnBoard(target) && rules::SideOf(target) != rules::NoSide) {
    TakePiece(square, source);
  } else {
    MovePiece(square, source);
  }
}

void Board::MovePiece(int toSquare, int fromSquare) { PlayMove(toSquare, fromSquare, false); }

void Board::TakePiece(int toSquare, int fromSquare) {
  if (toSquare == fromSquare) return;
  PlayMove(toSquare, fromSquare, true);
}

void Board::PlayMove(int toSquare, int fromSquare, bool capture) {
  rules::Position& position = ThePosition();
  const rules::Side side = position.SideToMove;
  const Square from = rules::FromNumber(fromSquare);
  const Square to = rules::FromNumber(toSquare);
  rules::PieceCode piece = position.BoardState.At(from);
  const auto taken = capture ? std::optional(position.BoardState.At(to)) : std::nullopt;
  const rules::LastMove last = Moves.MoveOf(Moves.Count());

  if (SelfCheckFlashes > 0) {
    // The last flicker shows the king, who would else stay as the last tick left him.
    SelfCheckFlashes = 1;
    FlickerKing(SelfCheckFlashes, side);
  }
  if (!rules::ValidMove(side, piece, from, to, capture, position.SideInCheck, taken, true, last)) {
    return;
  }
  // Both look at the board before the move.
  const auto castling = capture ? rules::Castling::None : rules::DetectCastling(side, from, to);
  const auto enPassant = capture ? std::nullopt : rules::EnPassantSquare(from, to, last, side);

  ShowKing();
  CopyBoard();
  Undo = rules::SaveGameState(Surrendered);
  if (taken) rules::LogCastleState(*taken, to.x);
  position.BoardState.Put(from, NoPiece);
  position.BoardState.Put(to, piece);
  if (enPassant) position.BoardState.Put(*enPassant, NoPiece);
  if (rules::IsInCheck(side)) {
    DisplaySelfCheckMessage(piece);
    SelfCheckFlashes = selfCheckTicks;
    rules::RestoreGameState(Undo, Surrendered, true);
    return;
  }
  if (rules::IsPromotion(piece, to.y)) {
    piece = view_.ExchangePawn(side);
    position.BoardState.Put(to, piece);
  }
  rules::LogCastleState(piece, from.x);
  rules::CarryCastlingRook(side, castling);
  ClassifyMove({from, to});
  if (!GameDrawn) DeterminIfDrawForced();
  UpdateMoveList({piece, from, to, capture, castling != rules::Castling::None}, PlayerComment);
  DisplayPlayerComment();
  DisplayBoardState(false);
  MateMessageShown = false;
}

void Board::ClassifyMove(rules::LastMove move) {
  rules::Position& position = ThePosition();
  const rules::Side other = rules::OtherSide(position.SideToMove);
  const rules::Standing standing = rules::GameState(other, true, position.SideInCheck, move);
  if (standing == rules::Standing::Neither) {
    if (rules::NoLegalMoves(other, move, position.SideInCheck)) {
      platform::ShowMessage(platform::InformationIcon, "Stalemate!", "This move will force a draw.",
                            "OK");
      StalemateFlashes = stalemateTicks;
      GameDrawn = true;
    }
    position.SideInCheck = rules::NobodyInCheck;
  } else {
    position.SideInCheck = other;
    if (standing == rules::Standing::Checkmate) position.CheckmateFlag = true;
  }
  CheckNotification();
  position.MoveAllowed = false;
}

void Board::CheckNotification() {
  if (!ThePosition().CheckmateFlag && ThePosition().SideInCheck != rules::NobodyInCheck) {
    platform::PlayNumberedSound(platform::CheckSound);
  }
}

void Board::DisplaySelfCheckMessage(rules::PieceCode piece) {
  static constexpr const char* words[] = {"", "Rook", "Knight", "Bishop", "Queen", "King", "Pawn"};
  const DialogLock lock(LockedForDialog);
  platform::VerboseMessage(std::string("You cannot move the ") + words[rules::KindOf(piece)] +
                               " there because it will leave you in check.",
                           "Illegal move", platform::FailureSound);
}

void Board::UndoLastMove() {
  RemoveLastMove();
  CopyBoard();
  rules::RestoreGameState(Undo, Surrendered, true);
  if (Moves.Row(Moves.Selected()).MoveText != "Draw offer") DrawOffered = false;
  GameDrawn = false;
  SetButtonEnable();
  DisplayBoardState(false);
  DisplayPlayerComment();
  if (HilightVisible) HilightMove(Moves.Selected());
}

}  // namespace board
