// SPDX-License-Identifier: GPL-3.0-or-later
// A position of the user's own making. Every single step is tested, so that the board is never left
// as something that can't start a game.
#include <bit>

#include "board/board.h"
#include "board/dialog_lock.h"
#include "board/load_board.h"
#include "board/setup_warnings.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "rules/attack.h"
#include "rules/board_text.h"
#include "rules/game_end.h"

namespace board {

using platform::Process;
using rules::Square;
using rules::Standing;
using rules::ThePosition;

namespace {

constexpr const char* bringsCheckmate =
    "Checkmate.  Placing that piece there will result in checkmate which is not a valid starting "
    "state.";
constexpr const char* bringsStalemate =
    "Stalemate.  Placing that piece there will result in a stalemate which is not a valid starting "
    "state.";
constexpr const char* checksBothKings =
    "Putting that piece there will result in both kings being in check, which is impossible in "
    "chess.";

Standing StandingOf(rules::Side side) {
  return rules::GameState(side, true, ThePosition().SideInCheck);
}

bool IsStalemated(rules::Side side) {
  return rules::NoLegalMoves(side, {}, ThePosition().SideInCheck);
}

}  // namespace

void Board::BeginBoardSetup() {
  Process().BoardSetupMode = true;
  LoadBoard(Process().CurrentGameID, ThePosition().SideInCheck, FlashPhase, true, false);
  DisplayBoardState(true);
  Caption = "Tarvolenix - Setting up board...";
  PlayersTag = "Please setup the board state.";
  OpponentComment = "Drag pieces on and off the board until you are happy with the setup.";
  UpdatePiecePalette();
  ListUpdating = false;
}

void Board::UpdatePiecePalette() {
  const rules::BoardSquares& squares = ThePosition().BoardState;
  SetupPlayable = squares.Of(rules::WhiteKing) != 0 && squares.Of(rules::BlackKing) != 0 &&
                  std::popcount(squares.Occupied()) >= 3;
  view_.Refresh();
}

/// Lets a side stand in check. The other king, who may be flashed away, is shown first.
void Board::PutInCheck(rules::Side side) {
  int& sideInCheck = ThePosition().SideInCheck;
  if (sideInCheck != rules::NobodyInCheck && sideInCheck != side) {
    sideInCheck = rules::NobodyInCheck;
    StopFlashing();
  }
  sideInCheck = side;
}

/// Weighs the board after a piece of `side` was placed or taken off: says why it can't be, or
/// nothing, and notes who stands in check then.
std::string Board::SetupRefusal(rules::Side side) {
  const rules::Side other = rules::OtherSide(side);
  switch (StandingOf(other)) {
    case Standing::Checkmate:
      return bringsCheckmate;
    case Standing::Check:
      if (rules::IsInCheck(side)) return checksBothKings;
      PutInCheck(other);
      return {};
    case Standing::Neither:
      break;
  }
  if (IsStalemated(other)) return bringsStalemate;
  switch (StandingOf(side)) {
    case Standing::Checkmate:
      return bringsCheckmate;
    case Standing::Check:
      PutInCheck(side);
      return {};
    case Standing::Neither:
      break;
  }
  if (IsStalemated(side)) return bringsStalemate;
  ThePosition().SideInCheck = rules::NobodyInCheck;
  return {};
}

void Board::ReportInvalidSetup(const std::string& text) {
  const DialogLock lock(LockedForDialog);
  platform::ShowMessage(platform::SetupIcon, "Invalid setup", text, "OK", {}, false,
                        platform::AttentionSound);
}

bool Board::PiecePallete_MouseDown(rules::PieceCode code) {
  if (CoordsVisible) ToggleCoords();
  if (!IsOnPalette(code)) return false;
  platform::PlayNumberedSound(platform::LiftSound);
  return true;
}

bool Board::IsOnPalette(rules::PieceCode code) const {
  return rules::KindOf(code) != rules::WhiteKing || ThePosition().BoardState.Of(code) == 0;
}

void Board::DropInSetup(int target, int source, bool fromPalette) {
  platform::PlayNumberedSound(platform::DropSound);
  ApplySetupDrop(target, source, fromPalette);
}

void Board::ApplySetupDrop(int target, int source, bool fromPalette) {
  rules::Position& position = ThePosition();
  // A key may have cleared or reset the board under the drag.
  const bool stillThere =
      fromPalette ? IsOnPalette(source) : rules::SideOf(rules::FromNumber(source)) != rules::NoSide;
  if (!stillThere) return;
  const rules::GameStateSnapshot kept = rules::SaveGameState(Surrendered);
  rules::PieceCode piece = source;
  if (!fromPalette) {
    const Square from = rules::FromNumber(source);
    piece = position.BoardState.At(from);
    position.BoardState.Put(from, rules::NoPiece);
  }
  if (target != 0) position.BoardState.Put(rules::FromNumber(target), piece);
  position.SideToMove = rules::SideOfPiece(piece);
  const std::string refusal = SetupRefusal(position.SideToMove);
  if (!refusal.empty()) {
    ReportInvalidSetup(refusal);
    rules::RestoreGameState(kept, Surrendered, false);
  }
  position.SideToMove = rules::White;
  DisplayBoardState(true);
  UpdatePiecePalette();
}

void Board::RemovePieces(rules::PieceCode code) {
  rules::Position& position = ThePosition();
  bool refused = false;
  for (rules::Bitboard left = position.BoardState.Of(code); left != 0;) {
    const rules::GameStateSnapshot kept = rules::SaveGameState(Surrendered);
    position.BoardState.Put(rules::SquareAt(rules::TakeLowest(left)), rules::NoPiece);
    position.SideToMove = rules::SideOfPiece(code);
    if (!DrawForcedWarning(false) && SetupRefusal(position.SideToMove).empty()) continue;
    rules::RestoreGameState(kept, Surrendered, false);
    refused = true;
  }
  position.SideToMove = rules::White;
  if (refused) {
    ReportInvalidSetup(
        "Some of the pieces you asked to be removed would have left the board in an illegal state "
        "so they have been left on the board.");
  }
  DisplayBoardState(true);
  UpdatePiecePalette();
}

void Board::LoadSetup(bool clear) {
  LoadBoard(Process().CurrentGameID, ThePosition().SideInCheck, FlashPhase, true, clear);
  DisplayBoardState(true);
  UpdatePiecePalette();
}

void Board::ResetSetup() { LoadSetup(false); }

void Board::ClearSetup() { LoadSetup(true); }

void Board::PlaySetup() {
  if (!SetupPlayable || !SetupValid()) return;
  ThePosition().SideToMove = rules::White;
  BeginGame();
}

bool Board::SetupValid() {
  if (DrawForcedWarning(true)) return false;
  const std::string warnings = SetupWarnings(ThePosition().BoardState);
  return warnings.empty() || view_.AcceptSetupWarnings(warnings);
}

void Board::WarnAboutSetup() {
  if (ThePosition().SideToMove != rules::Black || Moves.Count() != 1 ||
      StartBoard == rules::normalStart) {
    return;
  }
  const DialogLock notice(NoticeUp);
  platform::ShowMessage(platform::InformationIcon, "Setup game",
                        "This game was started with a custom board setup.", "OK", {}, false,
                        platform::AttentionSound);
}

}  // namespace board
