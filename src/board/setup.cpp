// SPDX-License-Identifier: GPL-3.0-or-later
// Every single step is tested, so that the board is never left as something that can't start a
// game.
#include "board/setup.h"

#include <bit>

#include "board/dialog_lock.h"
#include "board/ends.h"
#include "board/load_board.h"
#include "board/opening.h"
#include "board/setup_warnings.h"
#include "board/squares.h"
#include "board/timer.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "rules/attack.h"
#include "rules/board_text.h"

namespace board {

using platform::Process;
using rules::Square;
using rules::Standing;
using rules::ThePosition;

namespace {

/// Why nothing can begin from a position: what a person reads who has placed one piece, and who
/// has put up all of them.
struct Refusal {
  const char* ofPiece;
  const char* ofPosition;
};
constexpr Refusal bringsCheckmate = {
    "Checkmate.  Placing that piece there will result in checkmate which is not a valid starting "
    "state.",
    "A king is in checkmate, and no game can begin with that."};
constexpr Refusal bringsStalemate = {
    "Stalemate.  Placing that piece there will result in a stalemate which is not a valid starting "
    "state.",
    "A side has no move, and no game can begin with that."};
constexpr Refusal checksBothKings = {
    "Putting that piece there will result in both kings being in check, which is impossible in "
    "chess.",
    "Both kings are in check, which is impossible in chess."};

Standing StandingOf(rules::Side side) {
  return rules::GameState(side, true, ThePosition().SideInCheck);
}

bool IsStalemated(rules::Side side) {
  return rules::NoLegalMoves(side, {}, ThePosition().SideInCheck);
}

/// Lets a side stand in check. The other king, who may be flashed away, is shown first.
void PutInCheck(Game& game, rules::Side side) {
  int& sideInCheck = ThePosition().SideInCheck;
  if (sideInCheck != rules::NobodyInCheck && sideInCheck != side) {
    sideInCheck = rules::NobodyInCheck;
    StopFlashing(game);
  }
  sideInCheck = side;
}

/// Weighs the board after a piece of `side` was placed or taken off: says why it can't be, or
/// nothing, and notes who stands in check then.
const Refusal* SetupRefusal(Game& game, rules::Side side) {
  const rules::Side other = rules::OtherSide(side);
  switch (StandingOf(other)) {
    case Standing::Checkmate:
      return &bringsCheckmate;
    case Standing::Check:
      if (rules::IsInCheck(side)) return &checksBothKings;
      PutInCheck(game, other);
      return nullptr;
    case Standing::Neither:
      break;
  }
  if (IsStalemated(other)) return &bringsStalemate;
  switch (StandingOf(side)) {
    case Standing::Checkmate:
      return &bringsCheckmate;
    case Standing::Check:
      PutInCheck(game, side);
      return nullptr;
    case Standing::Neither:
      break;
  }
  if (IsStalemated(side)) return &bringsStalemate;
  ThePosition().SideInCheck = rules::NobodyInCheck;
  return nullptr;
}

void ReportInvalidSetup(Game& game, const std::string& text) {
  const DialogLock lock(game.LockedForDialog);
  platform::ShowMessage(platform::SetupIcon, "Invalid setup", text, "OK", {}, false,
                        platform::AttentionSound);
}

/// `source` is beside the board where the piece comes from the palette.
void Drop(Game& game, Square target, rules::PieceCode piece, Square source) {
  rules::Position& position = ThePosition();
  const rules::GameStateSnapshot kept = rules::SaveGameState(game.Surrendered);
  if (IsOnBoard(source)) position.BoardState.Put(source, rules::NoPiece);
  if (IsOnBoard(target)) position.BoardState.Put(target, piece);
  position.SideToMove = rules::SideOfPiece(piece);
  if (const Refusal* refusal = SetupRefusal(game, position.SideToMove)) {
    ReportInvalidSetup(game, refusal->ofPiece);
    rules::RestoreGameState(kept, game.Surrendered, false);
  }
  position.SideToMove = rules::White;
  DisplayBoardState(game, true);
  UpdatePiecePalette(game);
}

void LoadSetup(Game& game, bool clear) {
  LoadBoard(Process().CurrentGameID, ThePosition().SideInCheck, game.FlashPhase, true, clear);
  DisplayBoardState(game, true);
  UpdatePiecePalette(game);
}

}  // namespace

void BeginBoardSetup(Game& game) {
  Process().BoardSetupMode = true;
  LoadBoard(Process().CurrentGameID, ThePosition().SideInCheck, game.FlashPhase, true, false);
  DisplayBoardState(game, true);
  game.Caption = "Tarvolenix - Setting up board...";
  game.PlayersTag = "Please setup the board state.";
  game.OpponentComment = "Drag pieces on and off the board until you are happy with the setup.";
  UpdatePiecePalette(game);
  game.ListUpdating = false;
}

void UpdatePiecePalette(Game& game) {
  const rules::BoardSquares& squares = ThePosition().BoardState;
  game.SetupPlayable = squares.Of(rules::WhiteKing) != 0 && squares.Of(rules::BlackKing) != 0 &&
                       std::popcount(squares.Occupied()) >= 3;
  game.view.Refresh();
}

bool PiecePallete_MouseDown(Game& game, rules::PieceCode code) {
  ClickCoordsAway(game);
  if (!IsOnPalette(code)) return false;
  platform::PlayNumberedSound(platform::LiftSound);
  return true;
}

bool IsOnPalette(rules::PieceCode code) {
  return rules::KindOf(code) != rules::WhiteKing || ThePosition().BoardState.Of(code) == 0;
}

void DropInSetup(Game& game, Square target, Square source) {
  platform::PlayNumberedSound(platform::DropSound);
  ApplySetupDrop(game, target, source);
}

void DropInSetup(Game& game, Square target, rules::PieceCode fromPalette) {
  platform::PlayNumberedSound(platform::DropSound);
  ApplySetupDrop(game, target, fromPalette);
}

// A key may have cleared or reset the board under the drag, so the piece is looked for anew.

void ApplySetupDrop(Game& game, Square target, Square source) {
  const rules::PieceCode piece = ThePosition().BoardState.At(source);
  if (piece != rules::NoPiece) Drop(game, target, piece, source);
}

void ApplySetupDrop(Game& game, Square target, rules::PieceCode fromPalette) {
  if (IsOnPalette(fromPalette)) Drop(game, target, fromPalette, {});
}

void RemovePieces(Game& game, rules::PieceCode code) {
  rules::Position& position = ThePosition();
  bool refused = false;
  for (rules::Bitboard left = position.BoardState.Of(code); left != 0;) {
    const rules::GameStateSnapshot kept = rules::SaveGameState(game.Surrendered);
    position.BoardState.Put(rules::SquareAt(rules::TakeLowest(left)), rules::NoPiece);
    position.SideToMove = rules::SideOfPiece(code);
    if (!DrawForcedWarning(game, false) && !SetupRefusal(game, position.SideToMove)) continue;
    rules::RestoreGameState(kept, game.Surrendered, false);
    refused = true;
  }
  position.SideToMove = rules::White;
  if (refused) {
    ReportInvalidSetup(
        game,
        "Some of the pieces you asked to be removed would have left the board in an illegal state "
        "so they have been left on the board.");
  }
  DisplayBoardState(game, true);
  UpdatePiecePalette(game);
}

std::string SetUpPosition(Game& game, const rules::BoardSquares& squares) {
  rules::Position& position = ThePosition();
  const rules::GameStateSnapshot kept = rules::SaveGameState(game.Surrendered);
  position.BoardState = squares;
  position.SideToMove = rules::White;
  const Refusal* refusal = SetupRefusal(game, rules::White);
  if (refusal) rules::RestoreGameState(kept, game.Surrendered, false);
  DisplayBoardState(game, true);
  UpdatePiecePalette(game);
  return refusal ? refusal->ofPosition : "";
}

void ResetSetup(Game& game) { LoadSetup(game, false); }

void ClearSetup(Game& game) { LoadSetup(game, true); }

void PlaySetup(Game& game) {
  if (!game.SetupPlayable || !SetupValid(game)) return;
  ThePosition().SideToMove = rules::White;
  BeginGame(game);
}

bool SetupValid(Game& game) {
  if (DrawForcedWarning(game, true)) return false;
  const std::string warnings = SetupWarnings(ThePosition().BoardState);
  return warnings.empty() || game.view.AcceptSetupWarnings(warnings);
}

bool DrawForcedWarning(Game& game, bool warn) {
  const rules::ForcedDraw type = rules::ForcedDrawType();
  if (type == rules::ForcedDraw::None) return false;
  if (warn) {
    ReportInvalidSetup(game, std::string("Forced draw.  Placing that piece there will force a draw "
                                         "because you cannot checkmate ") +
                                 WhyNobodyCanWin(type));
  }
  return true;
}

void WarnAboutSetup(Game& game) {
  if (ThePosition().SideToMove != rules::Black || game.Moves.Count() != 1 ||
      game.StartBoard == rules::normalStart) {
    return;
  }
  const DialogLock notice(game.NoticeUp);
  platform::ShowMessage(platform::InformationIcon, "Setup game",
                        "This game was started with a custom board setup.", "OK", {}, false,
                        platform::AttentionSound);
}

}  // namespace board
