// SPDX-License-Identifier: GPL-3.0-or-later
// What the window offers at a moment.
#include "board/board.h"
#include "mail/move_mail.h"
#include "platform/process_state.h"

namespace board {

using platform::Process;
using rules::ThePosition;

bool Board::LastMoveIsMine() const { return (Moves.Count() % 2 == 1) == PlaysWhite; }

/// The user can't reach the opponent, and no computer is there to answer.
bool Board::IsCut() const {
  return Process().Offline && !Process().StandAlone && !Process().ComputerGame;
}

/// What is left while the computer thinks: the user waits, and may only close the window.
BoardControls Board::LockedControls() const {
  BoardControls controls;
  controls.viewIsMine = ViewSide == rules::White;
  return controls;
}

BoardControls Board::Controls() const {
  if (ComputerThinking) return LockedControls();
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
  controls.playSetup = SetupPlayable;
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

}  // namespace board
