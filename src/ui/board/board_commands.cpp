// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/board_commands.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QScopedValueRollback>

#include <utility>

#include "board/asked_move.h"
#include "board/controls.h"
#include "board/conversation.h"
#include "board/ends.h"
#include "board/history.h"
#include "board/moving.h"
#include "board/opening.h"
#include "board/squares.h"
#include "platform/busy_pointer.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "print/printing.h"
#include "rules/position_guard.h"
#include "ui/board/board_exchange.h"
#include "ui/board/board_picture.h"
#include "ui/board/board_study.h"
#include "ui/board/comment_box.h"
#include "ui/board/conversation_form.h"
#include "ui/board/piece_palette.h"
#include "ui/board/why_form.h"
#include "ui/exchange/clipboard.h"
#include "ui/exchange/game_texts.h"
#include "widgets/disabled_window.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Process;

namespace {

constexpr int lateEscapeMilliseconds = 1500;
constexpr int imageEdge = 800;
constexpr int longestPosition = 1000;

}  // namespace

BoardCommands::BoardCommands(const BoardParts& parts, std::function<void()> openOptions)
    : QObject(&parts.window),
      parts_(parts),
      board_(parts.game),
      openOptions_(std::move(openOptions)) {}

BoardActions BoardCommands::Actions() {
  return {[this](int button) { Click(button); },
          [this] { OfferDraw(); },
          [this] { ShowOptions(); },
          [this] { PrintBoard(); },
          [this] { ToggleHilight(); },
          [this](int row) { board::MoveList_RowColChange(board_, row); },
          [this] { ShowConversation(); },
          [this] { CopyShownPosition(); },
          [this] { CopyShownImage(); },
          [this] { PastePosition(); },
          [this] { CopyGame(parts_.window, Process().CurrentGameID); },
          [this] { SaveGame(); },
          parts_.study ? std::function([this] { TryMoves(); }) : nullptr,
          parts_.study ? std::function([this] { ShowNotes(); }) : nullptr,
          [this] { AskWhy(); }};
}

void BoardCommands::Click(int button, bool byMouse) {
  const bool sends =
      !Process().BoardSetupMode && (button == board::SendButton || button == board::ResendButton);
  if (sends) return Send(button);
  if (button == board::SurrenderButton && LeaveComment()) return;
  // A press of the mouse on the button is no accident.
  if (button == board::CloseButton && !byMouse && !board::MayClose(board_)) return;
  board::ToolbarClick(board_, button);
}

void BoardCommands::Send(int button) {
  const QPointer<QWidget> window(&parts_.window);
  if (button == board::SendButton && !board::MaySend(board_)) return;
  if (!window || board_.ClosingDown) return;
  if (Process().ComputerGame) return TakeTurns(button);
  // A shortcut sends without taking the focus from the comment.
  if (LeaveComment()) return;
  const DisabledWindow disabled(*window);
  const platform::BusyPointer busy;
  board::ToolbarClick(board_, button);
}

/// The window lives on while the computer thinks. It closes when the turn, which is still at work
/// in it, is over: soon, as the search is cancelled then.
void BoardCommands::TakeTurns(int button) {
  parts_.picture.setFocus();
  takingTurns_ = true;
  board::ToolbarClick(board_, button);
  takingTurns_ = false;
  lateEscape_.setRemainingTime(lateEscapeMilliseconds);
  if (!closesAfterTurns_) return;
  parts_.window.close();
  // The list that comes back for the board is too late for the end of the program.
  if (Process().Stopping) platform::TheSeams().windows->CloseAll();
}

bool BoardCommands::PutsOffClosing() {
  if (takingTurns_) closesAfterTurns_ = true;
  return takingTurns_;
}

bool BoardCommands::LeaveComment() {
  if (board_.ClosingDown || !board::CleanPlayerComment(board_)) return false;
  parts_.comment.setPlainText(AsItIs(board_.PlayerComment));
  parts_.comment.setFocus();
  return true;
}

void BoardCommands::OfferDraw() {
  if (!LeaveComment()) board::OfferDraw(board_);
}

void BoardCommands::DecideDraw(bool accept) {
  if (!LeaveComment()) board::DecideDraw(board_, accept);
}

void BoardCommands::ShowOptions() {
  if (!LeaveComment()) OpenOptions();
}

/// The chess set may be another one behind that.
void BoardCommands::OpenOptions() {
  const QPointer<QWidget> window(&parts_.window);
  const bool coordinates = platform::Settings().Coordinates;
  openOptions_();
  if (!window || board_.ClosingDown) return;
  const bool wanted = platform::Settings().Coordinates;
  if (wanted != coordinates) board_.CoordsVisible = wanted;
  if (!platform::TheSeams().windows->LoadChessGraphics()) return board_.view.Close();
  parts_.picture.TakeGraphics();
  board::DisplayBoardState(board_, true);
  if (Process().BoardSetupMode) parts_.palette.SetPiecePallete();
  board_.view.Refresh();
}

void BoardCommands::PrintBoard() {
  const QPointer<QWidget> window(&parts_.window);
  board_.LockedForDialog = true;
  print::PrintCurrentBoardState(board_);
  if (window) board_.LockedForDialog = false;
}

void BoardCommands::ShowConversation() {
  const QPointer<QWidget> window(&parts_.window);
  board_.LockedForDialog = true;
  ConversationForm(board::Conversation(board_), window).exec();
  if (window) board_.LockedForDialog = false;
}

void BoardCommands::CopyShownPosition() {
  CopyText(parts_.window, AsItIs(ShownFen(board_)), u"The position was copied."_s);
}

void BoardCommands::CopyShownImage() {
  const auto cellOf = [this](rules::Square square) { return board::SquareCell(board_, square); };
  CopyImage(parts_.window, parts_.picture.Image(imageEdge, cellOf), u"The picture was copied."_s);
}

/// A position is short, whatever else the clipboard holds.
void BoardCommands::PastePosition() {
  const QString text = QGuiApplication::clipboard()->text().left(longestPosition);
  const std::string trouble = SetUpFen(board_, text.toStdString());
  if (trouble.empty()) return;
  const QPointer<QWidget> window(&parts_.window);
  board_.LockedForDialog = true;
  platform::ShowMessage(platform::SetupIcon, "Paste position",
                        "The clipboard holds no position that a game can begin with.||" + trouble,
                        "OK", {}, false, platform::AttentionSound);
  if (window) board_.LockedForDialog = false;
}

void BoardCommands::SaveGame() {
  const QPointer<QWidget> window(&parts_.window);
  board_.LockedForDialog = true;
  SaveGameAsPgn(parts_.window, Process().CurrentGameID);
  if (window) board_.LockedForDialog = false;
}

void BoardCommands::TryMoves() {
  const QPointer<QWidget> window(&parts_.window);
  board_.LockedForDialog = true;
  const auto mayAskWhy = [this, window] { return window && MayAskWhy(); };
  const auto wanted = parts_.study->TryMoves(board_, parts_.window, mayAskWhy);
  if (!window) return;
  board_.LockedForDialog = false;
  if (wanted && !board_.ClosingDown) Play(*wanted);
}

/// As if the user had moved the piece himself, where the game stands now.
void BoardCommands::Play(const WantedMove& move) {
  const QPointer<QWidget> window(&parts_.window);
  board::MoveList_RowColChange(board_, board_.Moves.Count());
  if (!board::CBoard_MouseDown(board_, move.from)) return;
  wantedPiece_ = move.becomes;
  board::CBoard_DragDrop(board_, move.to, move.from);
  if (window) wantedPiece_ = rules::NoPiece;
}

void BoardCommands::ShowNotes() { parts_.study->ShowNotes(board_, parts_.window); }

void BoardCommands::AskWhy() {
  if (!LeaveComment() && MayAskWhy()) Explain();
}

/// Tells the user where he may not.
bool BoardCommands::MayAskWhy() {
  const bool may = board::MayAskWhy(board_);
  if (!may) TellOfFairness();
  return may;
}

void BoardCommands::TellOfFairness() {
  const QPointer<QWidget> window(&parts_.window);
  const bool wasLocked = std::exchange(board_.LockedForDialog, true);
  const bool leavesIt = platform::AskWithExtra(
      platform::InformationIcon, "Why this move?",
      "In a game against a person this would be help from a machine.||Your friend and you may "
      "agree on it: Options..., Notification.",
      "OK", "Options...");
  if (!window) return;
  if (!leavesIt) OpenOptions();
  if (window) board_.LockedForDialog = wasLocked;
}

/// The board shows meanwhile what is selected there, and its own game again afterwards.
void BoardCommands::Explain() {
  const QPointer<QWidget> window(&parts_.window);
  board_.LockedForDialog = true;
  {
    WhyForm form(
        QuestionOn(board::MoveToAskAbout(board_)),
        [this](const WhyPicture& picture) { ShowWhy(picture); }, window);
    form.StandBeside(parts_.window);
    form.exec();
  }
  if (!window) return;
  board_.LockedForDialog = false;
  ShowWhy({});
  board_.view.Refresh();
}

void BoardCommands::ShowWhy(const WhyPicture& picture) {
  const rules::PositionGuard guard;
  // No king has fallen where the game would have gone on.
  const QScopedValueRollback surrendered(board_.Surrendered);
  if (picture.position) {
    board_.Surrendered = false;
    rules::ThePosition() = *picture.position;
  }
  board::DisplayBoardState(board_, true);
  parts_.picture.ShowLastMove(picture.move);
  parts_.picture.ShowArrow(picture.arrow);
}

void BoardCommands::ToggleHilight() {
  if (board_.HilightAsked) {
    board::RemoveHilight(board_);
  } else {
    board::AskForHilight(board_);
  }
}

}  // namespace ui
