// SPDX-License-Identifier: GPL-3.0-or-later
#include "board/ends.h"

#include "board/controls.h"
#include "board/dialog_lock.h"
#include "board/history.h"
#include "platform/conversions.h"
#include "platform/messages.h"
#include "platform/setting_variables.h"

namespace board {

using rules::ThePosition;

namespace {

/// Adds an entry that the side to move makes, with `flag` becoming `value`. No piece moves; the
/// king's square stands for both squares of a move.
void AddEntry(Game& game, const char* moveText, bool& flag, bool value) {
  game.ListUpdating = true;
  game.Undo = rules::SaveGameState(game.Surrendered);
  const rules::PieceCode king = rules::OfSide(rules::WhiteKing, ThePosition().SideToMove);
  const std::string square = platform::ZeroFilled(NumberOf(rules::FindPiece(king)), 2);
  store::MoveRecord row;
  row.MoveNumber = game.Moves.Count() + 1;
  row.MoveCoordinates = square + square;
  row.MoveText = moveText;
  row.MoveComment = game.PlayerComment;
  game.Moves.Add(std::move(row));
  game.Moves.Select(game.Moves.Count());
  flag = value;
  ThePosition().MoveAllowed = false;
  DisplayPlayerComment(game);
  SetButtonEnable(game);
  game.ListUpdating = false;
}

std::string MateText(bool won, bool mate, const std::string& name, const std::string& comment) {
  if (won && mate) {
    return "Congratulations!||You have won by getting your opponent in checkmate.";
  }
  if (won) {
    return "Congratulations!||You have won because your opponent surrendered" +
           (comment.empty() ? "." : " and had a parting comment: " + comment);
  }
  std::string text = "You lost!||";
  if (mate) {
    text += comment.empty() ? name + " has won the game by getting you in checkmate."
                            : name + " got you in checkmate and had a parting comment: " + comment;
  } else {
    text += comment.empty()
                ? name + " won the game because you surrendered."
                : "You surrendered to " + name + " and the last thing said was: " + comment;
  }
  return text;
}

/// Why a drawn game ended, in words for the user.
std::string DrawReason(const MoveList& moves, bool lastIsMine) {
  const int count = moves.Count();
  if (count == 0) return ".";
  if (moves.Row(count - 1).MoveText == "Draw offer") {
    return lastIsMine ? " because you accepted your opponents offer of a draw."
                      : " because your opponent accepted your offer of a draw.";
  }
  return lastIsMine ? " because you forced a draw." : " because your opponent forced a draw.";
}

}  // namespace

void OfferDraw(Game& game) {
  RemoveHilight(game);
  AddEntry(game, "Draw offer", game.DrawOffered, true);
}

void SurrenderGame(Game& game) {
  RemoveHilight(game);
  AddEntry(game, ThePosition().SideToMove == rules::White ? "0-1" : "1-0", game.Surrendered, true);
}

bool MaySend(Game& game) {
  if (!game.Surrendered || !EntryIsPending(game)) return true;
  if (!platform::Settings().AskBeforeSurrender) return true;
  const DialogLock lock(game.LockedForDialog);
  // Neither Enter nor Escape gives anything up.
  return !platform::AskWithExtra(platform::InformationIcon, "Give the game up?",
                                 "If you send this, you surrender and the game is over.", "Go back",
                                 "Give up", platform::AttentionSound);
}

void DecideDraw(Game& game, bool accept) {
  AddEntry(game, accept ? "1/2-1/2" : "Decline", game.GameDrawn, accept);
}

void ConfirmDraw(Game& game) {
  if (!game.DrawOffered || game.GameDrawn || LastMoveIsMine(game)) return;
  game.DrawMessagePending = true;
  game.DrawButtonsUp = true;
  ThePosition().MoveAllowed = false;
}

bool GameIsOver(const Game& game) {
  return ThePosition().CheckmateFlag || game.Surrendered || game.GameDrawn;
}

bool WonGame(const Game& game) {
  return (ThePosition().CheckmateFlag && LastMoveIsMine(game)) ||
         (game.Surrendered && !LastMoveIsMine(game));
}

rules::PieceCode SurrenderedKing(const Game& game) {
  return game.Moves.Count() % 2 == 0 ? rules::BlackKing : rules::WhiteKing;
}

void DisplayMateMessage(Game& game) {
  const bool mate = ThePosition().CheckmateFlag;
  if (!mate && !game.Surrendered) return;
  const bool won = WonGame(game);
  const DialogLock notice(game.NoticeUp);
  platform::ShowMessage(platform::InformationIcon, mate ? "CHECKMATE!" : "SURRENDER!",
                        MateText(won, mate, OpponentName(game), game.Moves.Last().MoveComment),
                        "OK", {}, false, won ? platform::WonSound : platform::LostSound);
}

void DisplayDrawMessage(Game& game) {
  if (!game.GameDrawn) return;
  const bool mine = LastMoveIsMine(game);
  const bool offered = game.Moves.Row(game.Moves.Count() - 1).MoveText == "Draw offer";
  const rules::Side next = game.Moves.Count() % 2 == 0 ? rules::White : rules::Black;
  std::string text = "The game ended in a ";
  if (game.Moves.Count() > 0 && !offered &&
      rules::NoLegalMoves(next, game.Moves.MoveOf(game.Moves.Count()), ThePosition().SideInCheck)) {
    text += mine ? "forced draw because you put your opponent in stalemate."
                 : "forced draw because your opponent put you in stalemate.";
  } else {
    text += "draw" + DrawReason(game.Moves, mine);
  }
  const DialogLock notice(game.NoticeUp);
  platform::ShowMessage(platform::InformationIcon, "DRAW!", text, "OK", {}, false,
                        platform::AttentionSound);
}

const char* WhyNobodyCanWin(rules::ForcedDraw type) {
  static constexpr const char* reasons[] = {"", "with only a king each.",
                                            "with only a knight or a bishop.",
                                            "with only two bishops on the same colour."};
  return reasons[static_cast<int>(type)];
}

void DeterminIfDrawForced(Game& game) {
  const rules::ForcedDraw type = rules::ForcedDrawType();
  game.GameDrawn = type != rules::ForcedDraw::None;
  if (!game.GameDrawn) return;
  platform::ShowMessage(platform::InformationIcon, "Forced draw",
                        std::string("This move will force a draw because you cannot checkmate ") +
                            WhyNobodyCanWin(type),
                        "OK", {}, false, platform::FailureSound);
}

}  // namespace board
