// SPDX-License-Identifier: GPL-3.0-or-later
// The computer's turn: the window is locked, the search runs beside it on a copy of the position,
// and what it has chosen is played and stored like any other move.
#include <random>
#include <system_error>
#include <thread>

#include "board/board.h"
#include "board/dialog_lock.h"
#include "platform/desktop.h"
#include "platform/setting_variables.h"
#include "rules/attack.h"
#include "rules/game_end.h"
#include "rules/piece_moves.h"
#include "store/saving.h"

namespace board {

using rules::Castling;
using rules::Square;
using rules::ThePosition;

/// The computer plays Black on the user's board: for the length of its turn the user is Black.
void Board::TakeComputersSide(bool computers) {
  ThePosition().SideToMove = computers ? rules::Black : rules::White;
  PlaysWhite = !computers;
}

/// Runs the search on other threads, and events on this one.
ai::CandidateMove Board::SearchForMove() {
  ai::SearchOrder order;
  order.maxDepth = platform::Settings().SearchDepth;
  order.side = rules::Black;
  order.lastMove = Moves.MoveOf(Moves.Count());
  order.sideInCheck = ThePosition().SideInCheck;
  order.seed = std::random_device{}();
  order.threads = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
  ai::SearchResult result;
  std::atomic<bool> done = false;
  platform::Events& events = *platform::TheDesktop().events;
  try {
    const std::jthread search([&, position = ThePosition()] {
      ThePosition() = position;
      result = ai::SearchBestMove(order, Search);
      done = true;
      events.Wake();
    });
    events.LetUserActUntil([&] { return done.load(); });
  } catch (const std::system_error&) {
    // No thread is to be had, so the window has to wait.
    result = ai::SearchBestMove(order, Search);
  }
  LastMoveScore = result.value;
  return result.best;
}

void Board::ClassifyComputersMove(rules::LastMove move) {
  rules::Position& position = ThePosition();
  switch (rules::GameState(rules::White, true, position.SideInCheck, move)) {
    case rules::Standing::Neither:
      if (rules::NoLegalMoves(rules::White, move, position.SideInCheck)) GameDrawn = true;
      position.SideInCheck = rules::NobodyInCheck;
      return;
    case rules::Standing::Checkmate:
      position.CheckmateFlag = true;
      break;
    case rules::Standing::Check:
      break;
  }
  position.SideInCheck = rules::White;
}

/// A pawn that reaches the user's side stays a pawn.
void Board::PlayComputersMove(const ai::CandidateMove& move) {
  const rules::BoardSquares& squares = ThePosition().BoardState;
  const Square from = move.from, to = move.to;
  const rules::PieceCode piece = squares.At(from);
  const bool capture = squares.At(to) != rules::NoPiece;
  const rules::LastMove last = Moves.MoveOf(Moves.Count());
  CopyBoard();
  Undo = rules::SaveGameState(Surrendered);
  const Castling castling = rules::CarryOut(rules::Black, piece, from, to, last);
  ClassifyComputersMove({from, to});
  DrawOffered = false;  // a move passes over the user's offer
  if (GameDrawn) DrawMessageShown = false;
  UpdateMoveList({piece, from, to, capture, castling != Castling::None}, PlayerComment);
}

void Board::MakeComputerMove() {
  rules::Position& position = ThePosition();
  Search.SearchCancelled = false;
  ShowKing();
  if (GameIsOver()) {
    TakeComputersSide(false);
    position.MoveAllowed = false;
    AwaitingOpponent = true;
    SetCaptions();
    SetButtonEnable();
    HilightMove(Moves.Count());
    return;
  }
  const bool moveAllowed = position.MoveAllowed;
  const bool awaitingOpponent = AwaitingOpponent;
  ComputerThinking = true;
  SetCaptions();
  TakeComputersSide(true);
  PlayerComment.clear();
  Search.MovesConsidered = 0;
  Search.progress = 0;
  SetButtonEnable();
  const ai::CandidateMove move = SearchForMove();
  ComputerThinking = false;
  DisplayPlayerComment();
  const bool cancelled = Search.SearchCancelled.exchange(false);
  if (!cancelled) {
    Moves.Select(Moves.Count());
    if (NumberOf(move.from) == 0) {
      SurrenderGame();
    } else {
      PlayComputersMove(move);
    }
    DisplayPlayerComment();
    DisplayBoardState(false);
    MateMessageShown = false;
    // The timer tells how the game ended when it is the user's board again.
    const DialogLock lock(LockedForDialog);
    SaveMove();
  }
  TakeComputersSide(false);
  position.MoveAllowed = !cancelled || moveAllowed;
  AwaitingOpponent = cancelled && awaitingOpponent;
  SetCaptions();
  SetButtonEnable();
  if (cancelled) return;
  HilightMove(Moves.Count());
  store::BackupDatabase();
}

}  // namespace board
