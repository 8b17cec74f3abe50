// SPDX-License-Identifier: GPL-3.0-or-later
// What the window's controls offer at a moment, and what its action bar does.
#pragma once

#include "board/game.h"

namespace board {

/// What the window's controls offer, worked out from the state of the game.
struct BoardControls {
  bool undo = false;
  bool send = false;
  bool resend = false;
  bool answerDraw = false;  ///< Accept and Decline
  bool surrender = false;   ///< and the draw offer of the menu
  bool playerComment = false;
  bool viewAndCoordinates = false;
  bool hilight = false;         ///< "Show hilight" of the history menu
  bool firstAndLast = false;    ///< "First move" and "Last move"
  bool viewIsMine = true;       ///< the board is seen from the user's own side
  bool closeReadsClose = true;  ///< else the last button reads Cancel
  bool playSetup = false;       ///< the position that is set up can be played
};

BoardControls Controls(const Game& game);

/// Lets the window show what it offers now.
void SetButtonEnable(const Game& game);

/// Who is to do something next, in words; blank where nobody is.
std::string TurnInWords(const Game& game);

/// Whether the user's moves reach the opponent, or needn't.
bool OpponentIsReachable(const Game& game);

/// Buttons of the action bar. Three have another meaning while a position is set up.
enum ToolbarButton {
  ViewButton = 1,
  CoordinatesButton,
  UndoButton,
  SendButton,
  ResendButton,
  SurrenderButton,
  CloseButton,
  ResetSetupButton = SendButton,
  ClearSetupButton = ResendButton,
  PlaySetupButton = SurrenderButton
};

void ToolbarClick(Game& game, int button);

/// Cleans what the user typed as a comment of reserved text and says so where that changed it.
/// True where it did: the focus then stays in the box.
bool CleanPlayerComment(Game& game);

}  // namespace board
