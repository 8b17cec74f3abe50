// SPDX-License-Identifier: GPL-3.0-or-later
// The window is locked, the search runs beside it on a copy of the position, and what it has chosen
// is played and stored like any other move.
#include "board/computer.h"

#include <random>
#include <system_error>
#include <thread>

#include "board/controls.h"
#include "board/dialog_lock.h"
#include "board/ends.h"
#include "board/history.h"
#include "board/opening.h"
#include "board/saving.h"
#include "board/squares.h"
#include "board/timer.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "rules/attack.h"
#include "rules/game_end.h"
#include "rules/piece_moves.h"
#include "store/saving.h"

namespace board {

using rules::Castling;
using rules::Square;
using rules::ThePosition;

namespace {

/// The computer plays Black on the user's board: for the length of its turn the user is Black.
void TakeComputersSide(Game& game, bool computers) {
  ThePosition().SideToMove = computers ? rules::Black : rules::White;
  game.PlaysWhite = !computers;
}

/// Runs the search on other threads, and events on this one.
ai::CandidateMove SearchForMove(Game& game) {
  ai::SearchOrder order;
  order.maxDepth = platform::Settings().SearchDepth;
  order.side = rules::Black;
  order.lastMove = game.Moves.MoveOf(game.Moves.Count());
  order.sideInCheck = ThePosition().SideInCheck;
  order.seed = std::random_device{}();
  order.threads = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
  ai::SearchResult result;
  std::atomic<bool> done = false;
  platform::Events& events = *platform::TheSeams().events;
  try {
    const std::jthread search([&, position = ThePosition()] {
      ThePosition() = position;
      result = ai::SearchBestMove(order, game.Search);
      done = true;
      events.Wake();
    });
    events.LetUserActUntil([&] { return done.load(); });
  } catch (const std::system_error&) {
    // No thread is to be had, so the window has to wait.
    result = ai::SearchBestMove(order, game.Search);
  }
  game.LastMoveScore = result.value;
  return result.best;
}

void ClassifyComputersMove(Game& game, rules::LastMove move) {
  rules::Position& position = ThePosition();
  switch (rules::GameState(rules::White, true, position.SideInCheck, move)) {
    case rules::Standing::Neither:
      if (rules::NoLegalMoves(rules::White, move, position.SideInCheck)) game.GameDrawn = true;
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
void PlayComputersMove(Game& game, const ai::CandidateMove& move) {
  const rules::BoardSquares& squares = ThePosition().BoardState;
  const Square from = move.from, to = move.to;
  const rules::PieceCode piece = squares.At(from);
  const bool capture = squares.At(to) != rules::NoPiece;
  const rules::LastMove last = game.Moves.MoveOf(game.Moves.Count());
  CopyBoard(game);
  game.Undo = rules::SaveGameState(game.Surrendered);
  const Castling castling = rules::CarryOut(rules::Black, piece, from, to, last);
  ClassifyComputersMove(game, {from, to});
  game.DrawOffered = false;  // a move passes over the user's offer
  if (game.GameDrawn) game.DrawMessageShown = false;
  UpdateMoveList(game, {piece, from, to, capture, castling != Castling::None}, game.PlayerComment);
}

}  // namespace

void MakeComputerMove(Game& game) {
  rules::Position& position = ThePosition();
  game.Search.SearchCancelled = false;
  ShowKing(game);
  if (GameIsOver(game)) {
    TakeComputersSide(game, false);
    position.MoveAllowed = false;
    game.AwaitingOpponent = true;
    SetCaptions(game);
    SetButtonEnable(game);
    HilightMove(game, game.Moves.Count());
    return;
  }
  const bool moveAllowed = position.MoveAllowed;
  const bool awaitingOpponent = game.AwaitingOpponent;
  game.ComputerThinking = true;
  SetCaptions(game);
  TakeComputersSide(game, true);
  game.PlayerComment.clear();
  game.Search.MovesConsidered = 0;
  game.Search.progress = 0;
  SetButtonEnable(game);
  const ai::CandidateMove move = SearchForMove(game);
  game.ComputerThinking = false;
  DisplayPlayerComment(game);
  const bool cancelled = game.Search.SearchCancelled.exchange(false);
  if (!cancelled) {
    game.Moves.Select(game.Moves.Count());
    if (NumberOf(move.from) == 0) {
      SurrenderGame(game);
    } else {
      PlayComputersMove(game, move);
    }
    DisplayPlayerComment(game);
    DisplayBoardState(game, false);
    game.MateMessageShown = false;
    // The timer tells how the game ended when it is the user's board again.
    const DialogLock lock(game.LockedForDialog);
    SaveMove(game);
  }
  TakeComputersSide(game, false);
  position.MoveAllowed = !cancelled || moveAllowed;
  game.AwaitingOpponent = cancelled && awaitingOpponent;
  SetCaptions(game);
  SetButtonEnable(game);
  if (cancelled) return;
  HilightMove(game, game.Moves.Count());
  store::BackupDatabase();
}

}  // namespace board
