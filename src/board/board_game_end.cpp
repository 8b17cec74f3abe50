// SPDX-License-Identifier: GPL-3.0-or-later
// Moves of the second kind: an offer of a draw, its answer, a surrender. Each is an entry of the
// list, goes the way of a move, and can be taken back until it is sent. And how a game ended, in
// words.
#include "board/board.h"
#include "board/dialog_lock.h"
#include "platform/conversions.h"
#include "platform/messages.h"
#include "rules/game_end.h"

namespace board {

using rules::ThePosition;

/// Adds an entry that the side to move makes, with `flag` becoming `value`. No piece moves; the
/// king's square stands for both squares of a move.
void Board::AddEntry(const char* moveText, bool& flag, bool value) {
  ListUpdating = true;
  Undo = rules::SaveGameState(Surrendered);
  const rules::PieceCode king = rules::OfSide(rules::WhiteKing, ThePosition().SideToMove);
  const std::string square = platform::ZeroFilled(NumberOf(rules::FindPiece(king)), 2);
  store::MoveRecord row;
  row.MoveNumber = Moves.Count() + 1;
  row.MoveCoordinates = square + square;
  row.MoveText = moveText;
  row.MoveComment = PlayerComment;
  Moves.Add(std::move(row));
  Moves.Select(Moves.Count());
  flag = value;
  ThePosition().MoveAllowed = false;
  DisplayPlayerComment();
  SetButtonEnable();
  ListUpdating = false;
}

void Board::OfferDraw() {
  RemoveHilight();
  AddEntry("Draw offer", DrawOffered, true);
}

void Board::SurrenderGame() {
  RemoveHilight();
  AddEntry(ThePosition().SideToMove == rules::White ? "0-1" : "1-0", Surrendered, true);
}

void Board::DecideDraw(bool accept) { AddEntry(accept ? "1/2-1/2" : "Decline", GameDrawn, accept); }

void Board::ConfirmDraw() {
  if (!DrawOffered || GameDrawn || LastMoveIsMine()) return;
  DrawMessagePending = true;
  DrawButtonsUp = true;
  ThePosition().MoveAllowed = false;
}

bool Board::WonGame() const {
  return (ThePosition().CheckmateFlag && LastMoveIsMine()) || (Surrendered && !LastMoveIsMine());
}

namespace {

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

}  // namespace

void Board::DisplayMateMessage() {
  const bool mate = ThePosition().CheckmateFlag;
  if (!mate && !Surrendered) return;
  const bool won = WonGame();
  const DialogLock notice(NoticeUp);
  platform::ShowMessage(platform::InformationIcon, mate ? "CHECKMATE!" : "SURRENDER!",
                        MateText(won, mate, OpponentName(), Moves.Last().MoveComment), "OK", {},
                        false, won ? platform::WonSound : platform::LostSound);
}

namespace {

const char* WhyNobodyCanWin(rules::ForcedDraw type) {
  static constexpr const char* reasons[] = {"", "with only a king each.",
                                            "with only a knight or a bishop.",
                                            "with only two bishops on the same colour."};
  return reasons[static_cast<int>(type)];
}

}  // namespace

void Board::DeterminIfDrawForced() {
  const rules::ForcedDraw type = rules::ForcedDrawType();
  GameDrawn = type != rules::ForcedDraw::None;
  if (!GameDrawn) return;
  platform::ShowMessage(platform::InformationIcon, "Forced draw",
                        std::string("This move will force a draw because you cannot checkmate ") +
                            WhyNobodyCanWin(type),
                        "OK", {}, false, platform::FailureSound);
}

bool Board::DrawForcedWarning(bool warn) {
  const rules::ForcedDraw type = rules::ForcedDrawType();
  if (type == rules::ForcedDraw::None) return false;
  if (warn) {
    ReportInvalidSetup(std::string("Forced draw.  Placing that piece there will force a draw "
                                   "because you cannot checkmate ") +
                       WhyNobodyCanWin(type));
  }
  return true;
}

namespace {

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

void Board::DisplayDrawMessage() {
  if (!GameDrawn) return;
  const bool mine = LastMoveIsMine();
  const bool offered = Moves.Row(Moves.Count() - 1).MoveText == "Draw offer";
  const rules::Side next = Moves.Count() % 2 == 0 ? rules::White : rules::Black;
  std::string text = "The game ended in a ";
  if (Moves.Count() > 0 && !offered &&
      rules::NoLegalMoves(next, Moves.MoveOf(Moves.Count()), ThePosition().SideInCheck)) {
    text += mine ? "forced draw because you put your opponent in stalemate."
                 : "forced draw because your opponent put you in stalemate.";
  } else {
    text += "draw" + DrawReason(Moves, mine);
  }
  const DialogLock notice(NoticeUp);
  platform::ShowMessage(platform::InformationIcon, "DRAW!", text, "OK", {}, false,
                        platform::AttentionSound);
}

}  // namespace board
