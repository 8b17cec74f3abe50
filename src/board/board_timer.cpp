// SPDX-License-Identifier: GPL-3.0-or-later
// The window's own timer: kings that flash, and the notices that wait until the window is seen.
#include <utility>

#include "board/board.h"
#include "board/dialog_lock.h"
#include "platform/messages.h"

namespace board {

using rules::ThePosition;

namespace {

constexpr int quietInterval = 250;
constexpr int kingShownInterval = 650;
constexpr int flickerInterval = 100;

}  // namespace

/// The king of the side that made the last entry, in a game that ended by surrender.
static rules::PieceCode SurrenderedKing(int entries) {
  return entries % 2 == 0 ? rules::BlackKing : rules::WhiteKing;
}

int Board::SquareCell(rules::Square square) const {
  constexpr int fallenKing = 7;
  const rules::PieceCode piece = ThePosition().BoardState.At(square);
  const rules::Side side = rules::SideOfPiece(piece);
  int column = rules::KindOf(piece);
  if (column == rules::WhiteKing) {
    const bool mated = ThePosition().CheckmateFlag && ThePosition().SideInCheck == side;
    const bool gaveUp = Surrendered && piece == SurrenderedKing(Moves.Count());
    if (mated || gaveUp) column = fallenKing;
  }
  // An empty square counts as black.
  return column + rules::SquareShade(square) + (side == rules::White ? 0 : 16);
}

void Board::PaintEmpty(rules::Square square) {
  if (IsOnBoard(square)) view_.PaintSquare(square, rules::SquareShade(square));
}

void Board::PaintNormally(rules::Square square) {
  if (IsOnBoard(square)) view_.PaintSquare(square, SquareCell(square));
}

rules::PieceCode Board::KingInDanger() const {
  if (Surrendered) return SurrenderedKing(Moves.Count());
  if (ThePosition().SideInCheck == rules::NobodyInCheck) return rules::NoPiece;
  return rules::OfSide(rules::WhiteKing, ThePosition().SideInCheck);
}

void Board::CheckTimer() {
  if (LockedForDialog) return;
  if (ComputerThinking) return;
  if (UnloadPending) {
    view_.Close();
    return;
  }
  const bool setupIsNews = MayNotify() && !std::exchange(SetupWarned, true);
  if (setupIsNews) WarnAboutSetup();
  const rules::PieceCode king = KingInDanger();
  if (king != rules::NoPiece) {
    // The danger may have passed to this king while the other one was out of sight.
    const rules::Side safe = rules::OtherSide(rules::SideOfPiece(king));
    if (KingMarked) PaintNormally(rules::FindPiece(rules::OfSide(rules::WhiteKing, safe)));
    FlashKing(rules::FindPiece(king));
  } else if (KingMarked) {
    StopFlashing();
  }
  const rules::Side mine = ThePosition().SideToMove;
  if (SelfCheckFlashes > 0) FlickerKing(SelfCheckFlashes, mine);
  if (StalemateFlashes > 0) FlickerKing(StalemateFlashes, rules::OtherSide(mine));
  ShowNotices();
}

/// One notice at a time, and none before the window is there to look at.
bool Board::MayNotify() const { return view_.Visible() && !NoticeUp && !ClosingDown; }

/// How the game ended and what the opponent offers, each once.
void Board::ShowNotices() {
  if (MayNotify() && !std::exchange(MateMessageShown, true)) DisplayMateMessage();
  if (MayNotify() && !std::exchange(DrawMessageShown, true)) DisplayDrawMessage();
  if (!MayNotify() || !std::exchange(DrawMessagePending, false)) return;
  const DialogLock notice(NoticeUp);
  platform::ShowMessage(platform::InformationIcon, "Offer of a draw",
                        "Your opponent has offered a draw.  Please either accept or decline with "
                        "the buttons to the top right.",
                        "OK", {}, false, platform::AttentionSound);
}

void Board::StopFlashing() {
  view_.SetTimerInterval(quietInterval);
  PaintNormally(rules::FindPiece(rules::WhiteKing));
  PaintNormally(rules::FindPiece(rules::BlackKing));
  FlashPhase = true;
  KingMarked = false;
}

void Board::ShowKing() {
  const rules::PieceCode king = KingInDanger();
  if (king == rules::NoPiece || FlashPhase) return;
  PaintNormally(rules::FindPiece(king));
  FlashPhase = true;
  view_.SetTimerInterval(kingShownInterval);
}

void Board::FlashKing(rules::Square king) {
  if (FlashPhase) {
    PaintEmpty(king);
  } else {
    PaintNormally(king);
  }
  FlashPhase = !FlashPhase;
  view_.SetTimerInterval(FlashPhase ? kingShownInterval : quietInterval);
  KingMarked = true;
}

void Board::FlickerKing(int& ticksLeft, rules::Side side) {
  const rules::Square king = rules::FindPiece(rules::OfSide(rules::WhiteKing, side));
  if (ticksLeft % 2 == 0) {
    PaintEmpty(king);
  } else {
    PaintNormally(king);
  }
  --ticksLeft;
  view_.SetTimerInterval(ticksLeft == 0 ? quietInterval : flickerInterval);
}

}  // namespace board
