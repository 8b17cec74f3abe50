// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/why_grey.h"

#include <initializer_list>

#include "board/controls.h"
#include "board/ends.h"
#include "platform/process_state.h"

namespace ui {

using platform::Process;

namespace {

struct Reason {
  bool holds;
  const char* sentence;
};

const char* FirstOf(std::initializer_list<Reason> reasons) {
  for (const Reason& reason : reasons) {
    if (reason.holds) return reason.sentence;
  }
  return "";
}

/// What keeps the buttons of a move from working, whichever it is.
const char* WhyNoMove(const board::Game& game) {
  const bool cut = !board::OpponentIsReachable(game) && !Process().ComputerGame;
  return FirstOf({{game.ComputerThinking, "Works once the computer has moved."},
                  {cut, "Works once your mail service is reached."},
                  {!game.Moves.AtEnd(), "Works when the last move of the list is selected."}});
}

}  // namespace

const char* WhyGrey(const board::Game& game, int button) {
  if (Process().BoardSetupMode) return "Works once both kings and one more piece are on the board.";
  const char* whyNoMove = WhyNoMove(game);
  if (*whyNoMove != '\0') return whyNoMove;
  switch (button) {
    case board::UndoButton:
      return "Works once you have made a move, until it is sent.";
    case board::SendButton:
      return "Works once you have made a move.";
    case board::ResendButton:
      return "Works while your last move waits for an answer.";
    case board::SurrenderButton:
      return FirstOf({{board::GameIsOver(game), "The game is over."},
                      {game.DrawOffered, "Works once the offer of a draw has been answered."},
                      {board::LastMoveIsMine(game), "Works when it is your turn."},
                      {true, whyNoHistory}});
    default:
      return "";
  }
}

}  // namespace ui
