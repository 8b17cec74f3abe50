// SPDX-License-Identifier: GPL-3.0-or-later
#include "board/timer.h"

#include <utility>

#include "board/dialog_lock.h"
#include "board/ends.h"
#include "board/setup.h"
#include "board/squares.h"
#include "platform/messages.h"

namespace board {

using rules::ThePosition;

namespace {

constexpr int quietInterval = 250;
constexpr int kingShownInterval = 650;
constexpr int flickerInterval = 100;

rules::PieceCode KingInDanger(const Game& game) {
  if (game.Surrendered) return SurrenderedKing(game);
  if (ThePosition().SideInCheck == rules::NobodyInCheck) return rules::NoPiece;
  return rules::OfSide(rules::WhiteKing, ThePosition().SideInCheck);
}

/// One notice at a time, and none before the window is there to look at.
bool MayNotify(const Game& game) {
  return game.view.Visible() && !game.NoticeUp && !game.ClosingDown;
}

/// How the game ended and what the opponent offers, each once.
void ShowNotices(Game& game) {
  if (MayNotify(game) && !std::exchange(game.MateMessageShown, true)) DisplayMateMessage(game);
  if (MayNotify(game) && !std::exchange(game.DrawMessageShown, true)) DisplayDrawMessage(game);
  if (!MayNotify(game) || !std::exchange(game.DrawMessagePending, false)) return;
  const DialogLock notice(game.NoticeUp);
  platform::ShowMessage(platform::InformationIcon, "Offer of a draw",
                        "Your opponent has offered a draw.  Please either accept or decline with "
                        "the buttons to the top right.",
                        "OK", {}, false, platform::AttentionSound);
}

void FlashKing(Game& game, rules::Square king) {
  if (game.FlashPhase) {
    PaintEmpty(game, king);
  } else {
    PaintNormally(game, king);
  }
  game.FlashPhase = !game.FlashPhase;
  game.view.SetTimerInterval(game.FlashPhase ? kingShownInterval : quietInterval);
  game.KingMarked = true;
}

}  // namespace

void CheckTimer(Game& game) {
  if (game.LockedForDialog) return;
  if (game.ComputerThinking) return;
  if (game.UnloadPending) {
    game.view.Close();
    return;
  }
  const bool setupIsNews = MayNotify(game) && !std::exchange(game.SetupWarned, true);
  if (setupIsNews) WarnAboutSetup(game);
  const rules::PieceCode king = KingInDanger(game);
  if (king != rules::NoPiece) {
    // The danger may have passed to this king while the other one was out of sight.
    const rules::Side safe = rules::OtherSide(rules::SideOfPiece(king));
    if (game.KingMarked)
      PaintNormally(game, rules::FindPiece(rules::OfSide(rules::WhiteKing, safe)));
    FlashKing(game, rules::FindPiece(king));
  } else if (game.KingMarked) {
    StopFlashing(game);
  }
  const rules::Side mine = ThePosition().SideToMove;
  if (game.SelfCheckFlashes > 0) FlickerKing(game, game.SelfCheckFlashes, mine);
  if (game.StalemateFlashes > 0) FlickerKing(game, game.StalemateFlashes, rules::OtherSide(mine));
  ShowNotices(game);
}

void StopFlashing(Game& game) {
  game.view.SetTimerInterval(quietInterval);
  PaintNormally(game, rules::FindPiece(rules::WhiteKing));
  PaintNormally(game, rules::FindPiece(rules::BlackKing));
  game.FlashPhase = true;
  game.KingMarked = false;
}

void ShowKing(Game& game) {
  const rules::PieceCode king = KingInDanger(game);
  if (king == rules::NoPiece || game.FlashPhase) return;
  PaintNormally(game, rules::FindPiece(king));
  game.FlashPhase = true;
  game.view.SetTimerInterval(kingShownInterval);
}

void FlickerKing(Game& game, int& ticksLeft, rules::Side side) {
  const rules::Square king = rules::FindPiece(rules::OfSide(rules::WhiteKing, side));
  if (ticksLeft % 2 == 0) {
    PaintEmpty(game, king);
  } else {
    PaintNormally(game, king);
  }
  --ticksLeft;
  game.view.SetTimerInterval(ticksLeft == 0 ? quietInterval : flickerInterval);
}

}  // namespace board
