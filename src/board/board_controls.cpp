// SPDX-License-Identifier: GPL-3.0-or-later
// What the window offers at a moment, and the timer that makes kings flash.
#include "board/board.h"
#include "mail/move_mail.h"
#include "platform/process_state.h"

namespace board {

using platform::Process;
using rules::ThePosition;

namespace {

constexpr int quietInterval = 250;
constexpr int kingShownInterval = 650;
constexpr int flickerInterval = 100;

}  // namespace

bool Board::LastMoveIsMine() const { return (Moves.Count() % 2 == 1) == PlaysWhite; }

/// The user can't reach the opponent, and no computer is there to answer.
bool Board::IsCut() const {
  return Process().Offline && !Process().StandAlone && !Process().ComputerGame;
}

BoardControls Board::Controls() const {
  const bool cut = IsCut();
  const bool atEnd = Moves.AtEnd();
  const bool mine = LastMoveIsMine();
  const int count = Moves.Count();
  const bool unreachable = Process().Offline && !Process().StandAlone &&
                           (!Process().ComputerGame || ThePosition().CheckmateFlag || Surrendered);
  const std::string& lastText = Moves.Last().MoveText;
  const bool lastEnded =
      lastText.ends_with("++") || lastText == "Surrender" || lastText == "0-1" || lastText == "1-0";

  BoardControls controls;
  controls.undo = controls.send = !cut && atEnd && mine && !AwaitingOpponent;
  controls.resend = atEnd && mine && AwaitingOpponent && !unreachable;
  controls.answerDraw = !cut && atEnd && !mine && !AwaitingOpponent && DrawOffered && DrawButtonsUp;
  controls.playerComment = !cut && !AwaitingOpponent;
  controls.surrender = atEnd && (count >= 1 || Process().SetupGame) && !cut && !DrawOffered &&
                       !GameIsOver() && !mine;
  controls.viewAndCoordinates = true;
  controls.hilight = count >= 1;
  controls.firstAndLast = count >= 2;
  controls.viewIsMine = ViewSide == ThePosition().SideToMove;
  controls.closeReadsClose = (lastEnded && !mine) || (AwaitingOpponent && mine) || cut;
  return controls;
}

bool Board::CleanPlayerComment() {
  std::string clean = mail::StripReservedText(PlayerComment);
  if (clean == PlayerComment) return false;
  PlayerComment = std::move(clean);
  mail::ReportReservedText(mail::ReservedTextIn::PlayerComment);
  return true;
}

bool Board::WonGame() const {
  return (ThePosition().CheckmateFlag && LastMoveIsMine()) || (Surrendered && !LastMoveIsMine());
}

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
  if (UnloadPending) {
    view_.Close();
    return;
  }
  const rules::PieceCode king = KingInDanger();
  if (king != rules::NoPiece) {
    // The danger may have passed to this king while the other one was out of sight.
    const rules::Side safe = rules::OtherSide(rules::SideOfPiece(king));
    if (KingMarked) PaintNormally(rules::FindPiece(rules::OfSide(rules::WhiteKing, safe)));
    FlashKing(rules::FindPiece(king));
  } else if (KingMarked) {
    view_.SetTimerInterval(quietInterval);
    PaintNormally(rules::FindPiece(rules::WhiteKing));
    PaintNormally(rules::FindPiece(rules::BlackKing));
    FlashPhase = true;
    KingMarked = false;
  }
  const rules::Side mine = ThePosition().SideToMove;
  if (SelfCheckFlashes > 0) FlickerKing(SelfCheckFlashes, mine);
  if (StalemateFlashes > 0) FlickerKing(StalemateFlashes, rules::OtherSide(mine));
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
