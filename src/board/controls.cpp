// SPDX-License-Identifier: GPL-3.0-or-later
#include "board/controls.h"

#include "board/computer.h"
#include "board/ends.h"
#include "board/moving.h"
#include "board/saving.h"
#include "board/setup.h"
#include "board/squares.h"
#include "mail/move_mail.h"
#include "platform/process_state.h"

namespace board {

using platform::Process;
using rules::ThePosition;

namespace {

/// The user can't reach the opponent, and no computer is there to answer.
bool IsCut(const Game& game) { return !OpponentIsReachable(game) && !Process().ComputerGame; }

/// What is left while the computer thinks: the user waits, and may only close the window.
BoardControls LockedControls(const Game& game) {
  BoardControls controls;
  controls.viewIsMine = game.ViewSide == rules::White;
  return controls;
}

}  // namespace

std::string TurnInWords(const Game& game) {
  if (Process().BoardSetupMode) return {};
  if (game.ComputerThinking) return "The computer's turn";
  if (EntryIsPending(game) && game.Moves.Count() > 0) {
    return Process().ComputerGame ? "Your move is still to be confirmed"
                                  : "Your move is not sent yet";
  }
  if (GameIsOver(game)) return "The game is over";
  return LastMoveIsMine(game) ? OpponentName(game) + "'s turn" : "Your turn";
}

bool OpponentIsReachable(const Game& game) {
  return !Process().Offline || Process().StandAlone || game.storedOnly;
}

BoardControls Controls(const Game& game) {
  if (game.ComputerThinking) return LockedControls(game);
  const bool cut = IsCut(game);
  const bool atEnd = game.Moves.AtEnd();
  const bool mine = LastMoveIsMine(game);
  const int count = game.Moves.Count();
  const bool unreachable =
      !OpponentIsReachable(game) &&
      (!Process().ComputerGame || ThePosition().CheckmateFlag || game.Surrendered);
  const std::string& lastText = game.Moves.Last().MoveText;
  const bool lastEnded = lastText.ends_with("++") || lastText.ends_with("1/2-1/2") ||
                         lastText == "Surrender" || lastText == "0-1" || lastText == "1-0";

  BoardControls controls;
  controls.undo = controls.send = !cut && atEnd && EntryIsPending(game);
  controls.resend = atEnd && mine && game.AwaitingOpponent && !unreachable;
  controls.answerDraw =
      !cut && atEnd && !mine && !game.AwaitingOpponent && game.DrawOffered && game.DrawButtonsUp;
  controls.playerComment = !cut && !game.AwaitingOpponent;
  controls.surrender = atEnd && (count >= 1 || Process().SetupGame) && !cut && !game.DrawOffered &&
                       !GameIsOver(game) && !mine;
  controls.viewAndCoordinates = true;
  controls.hilight = count >= 1;
  controls.firstAndLast = count >= 2;
  controls.playSetup = game.SetupPlayable;
  controls.viewIsMine = game.ViewSide == ThePosition().SideToMove;
  // An older row may be selected, which doesn't know how the game ended.
  controls.closeReadsClose = (lastEnded && !mine) || (game.AwaitingOpponent && mine) || cut ||
                             (GameIsOver(game) && !EntryIsPending(game));
  return controls;
}

void SetButtonEnable(const Game& game) { game.view.Refresh(); }

void ToolbarClick(Game& game, int button) {
  if (Process().BoardSetupMode && button >= ResetSetupButton && button <= PlaySetupButton) {
    if (button == ResetSetupButton) ResetSetup(game);
    if (button == ClearSetupButton) ClearSetup(game);
    if (button == PlaySetupButton) PlaySetup(game);
    return;
  }
  switch (button) {
    case ViewButton:
      ChangeView(game);
      break;
    case CoordinatesButton:
      ToggleCoords(game);
      break;
    case UndoButton:
      UndoLastMove(game);
      break;
    case SendButton:
      if (!Process().ComputerGame) {
        SendNewMove(game);
      } else if (SaveMove(game)) {
        // The move is stored: there is nothing to undo, and a turn that is cancelled can be resent.
        game.AwaitingOpponent = true;
        MakeComputerMove(game);
      }
      break;
    case ResendButton:
      if (Process().ComputerGame) {
        MakeComputerMove(game);
      } else {
        ResendLastMove(game);
      }
      break;
    case SurrenderButton:
      SurrenderGame(game);
      break;
    case CloseButton:
      game.view.Close();
      break;
    default:
      break;
  }
}

bool CleanPlayerComment(Game& game) {
  std::string clean = mail::StripReservedText(game.PlayerComment);
  if (clean == game.PlayerComment) return false;
  game.PlayerComment = std::move(clean);
  mail::ReportReservedText(mail::ReservedTextIn::PlayerComment);
  return true;
}

}  // namespace board
