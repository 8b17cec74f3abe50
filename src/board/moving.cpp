// SPDX-License-Identifier: GPL-3.0-or-later
#include "board/moving.h"

#include <optional>

#include "board/controls.h"
#include "board/dialog_lock.h"
#include "board/ends.h"
#include "board/history.h"
#include "board/squares.h"
#include "board/timer.h"
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

void PlayMove(Game& game, Square to, Square from, bool capture) {
  rules::Position& position = ThePosition();
  const rules::Side side = position.SideToMove;
  rules::PieceCode piece = position.BoardState.At(from);
  const auto taken = capture ? std::optional(position.BoardState.At(to)) : std::nullopt;
  const rules::LastMove last = game.Moves.MoveOf(game.Moves.Count());

  if (game.SelfCheckFlashes > 0) {
    // The last flicker shows the king, who would else stay as the last tick left him.
    game.SelfCheckFlashes = 1;
    FlickerKing(game, game.SelfCheckFlashes, side);
  }
  if (!rules::ValidMove(side, piece, from, to, capture, position.SideInCheck, taken, true, last)) {
    return;
  }
  // Both look at the board before the move.
  const auto castling = capture ? rules::Castling::None : rules::DetectCastling(side, from, to);
  const auto enPassant = capture ? std::nullopt : rules::EnPassantSquare(from, to, last, side);

  ShowKing(game);
  CopyBoard(game);
  game.Undo = rules::SaveGameState(game.Surrendered);
  if (taken) rules::LogCastleState(*taken, to.x);
  position.BoardState.Put(from, NoPiece);
  position.BoardState.Put(to, piece);
  if (enPassant) position.BoardState.Put(*enPassant, NoPiece);
  if (rules::IsInCheck(side)) {
    DisplaySelfCheckMessage(game, piece);
    game.SelfCheckFlashes = selfCheckTicks;
    rules::RestoreGameState(game.Undo, game.Surrendered, true);
    return;
  }
  if (rules::IsPromotion(piece, to.y)) {
    DisplayBoardState(game, false);
    piece = game.view.ExchangePawn(side);
    position.BoardState.Put(to, piece);
  }
  rules::LogCastleState(piece, from.x);
  rules::CarryCastlingRook(side, castling);
  // Ahead of the messages, which a piece that is still on its old square would make a refusal of.
  DisplayBoardState(game, false);
  ClassifyMove(game, {from, to});
  if (!game.GameDrawn) DeterminIfDrawForced(game);
  UpdateMoveList(game, {piece, from, to, capture, castling != rules::Castling::None},
                 game.PlayerComment);
  DisplayPlayerComment(game);
  game.MateMessageShown = false;
}

}  // namespace

bool CBoard_MouseDown(Game& game, Square square) {
  // A click on a board with marks on it only cleans the board and gives no message.
  const bool pathShown = !ShownPath(game).empty();
  const bool cleaning = ClickCoordsAway(game) || pathShown;
  if (game.HilightVisible) RemoveHilight(game);

  const rules::Side owner = rules::SideOf(square);
  if (Process().BoardSetupMode) return owner != rules::NoSide;
  const bool mayMove = ThePosition().MoveAllowed && !game.DrawOffered;
  if (mayMove && owner == ThePosition().SideToMove) {
    platform::PlayNumberedSound(platform::LiftSound);
    return true;
  }
  if (cleaning) return false;
  if (game.ComputerThinking) {
    // The computer's move would wait behind a box.
    platform::PlayNumberedSound(platform::FailureSound);
  } else if (!mayMove) {
    platform::VerboseMessage("You are not allowed to make a move right now.",
                             "Tarvolenix information", platform::FailureSound);
  } else if (owner != rules::NoSide) {
    platform::VerboseMessage("That is not one of your pieces!", "Illegal move",
                             platform::FailureSound);
  }
  return false;
}

void CBoard_DragDrop(Game& game, Square square, Square source) {
  platform::PlayNumberedSound(platform::DropSound);
  if (IsOnBoard(square) && rules::SideOf(square) != rules::NoSide) {
    TakePiece(game, square, source);
  } else {
    MovePiece(game, square, source);
  }
}

void MovePiece(Game& game, Square to, Square from) { PlayMove(game, to, from, false); }

void TakePiece(Game& game, Square to, Square from) {
  if (to == from) return;
  PlayMove(game, to, from, true);
}

void ClassifyMove(Game& game, rules::LastMove move) {
  rules::Position& position = ThePosition();
  const rules::Side other = rules::OtherSide(position.SideToMove);
  const rules::Standing standing = rules::GameState(other, true, position.SideInCheck, move);
  if (standing == rules::Standing::Neither) {
    if (rules::NoLegalMoves(other, move, position.SideInCheck)) {
      platform::ShowMessage(platform::InformationIcon, "Stalemate!", "This move will force a draw.",
                            "OK");
      game.StalemateFlashes = stalemateTicks;
      game.GameDrawn = true;
    }
    position.SideInCheck = rules::NobodyInCheck;
  } else {
    position.SideInCheck = other;
    if (standing == rules::Standing::Checkmate) position.CheckmateFlag = true;
  }
  CheckNotification();
  position.MoveAllowed = false;
}

void CheckNotification() {
  if (!ThePosition().CheckmateFlag && ThePosition().SideInCheck != rules::NobodyInCheck) {
    platform::PlayNumberedSound(platform::CheckSound);
  }
}

void DisplaySelfCheckMessage(Game& game, rules::PieceCode piece) {
  static constexpr const char* words[] = {"", "Rook", "Knight", "Bishop", "Queen", "King", "Pawn"};
  const DialogLock lock(game.LockedForDialog);
  platform::VerboseMessage(std::string("You cannot move the ") + words[rules::KindOf(piece)] +
                               " there because it will leave you in check.",
                           "Illegal move", platform::FailureSound);
}

void UndoLastMove(Game& game) {
  RemoveLastMove(game);
  CopyBoard(game);
  rules::RestoreGameState(game.Undo, game.Surrendered, true);
  // Browsing may have passed the row that set this, or one that cleared it.
  game.DrawOffered = game.Moves.Last().MoveText == "Draw offer";
  game.GameDrawn = false;
  SetButtonEnable(game);
  DisplayBoardState(game, false);
  DisplayPlayerComment(game);
  if (game.HilightVisible) HilightMove(game, game.Moves.Selected());
}

}  // namespace board
