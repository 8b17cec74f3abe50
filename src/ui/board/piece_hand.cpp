// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/piece_hand.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

#include "platform/setting_variables.h"
#include "ui/board/hand_parts.h"

namespace ui {

using rules::Square;

PieceHand::PieceHand(std::unique_ptr<BoardUnderHand> board, BoardPicture& picture,
                     FloatingPiece& floating, QObject* parent)
    : QObject(parent), board_(std::move(board)), picture_(picture), floating_(floating) {
  picture_.installEventFilter(this);
}

bool PieceHand::eventFilter(QObject*, QEvent* event) {
  if (board_->Rests()) return false;
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return Press(static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseMove:
      return Move(static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
      return Release(static_cast<const QMouseEvent&>(*event));
    case QEvent::KeyPress:
      return Key(static_cast<const QKeyEvent&>(*event));
    case QEvent::WindowBlocked:
    case QEvent::Hide:
      // The release of the button won't come here any more.
      if (dragging_) LetGo();
      return false;
    default:
      return false;
  }
}

bool PieceHand::Press(const QMouseEvent& event) {
  const auto square = picture_.SquareUnder(event.position());
  if (event.button() != Qt::LeftButton || !square) {
    if (held_) SetDown();
    return false;
  }
  picture_.MoveCursor(*square, false);
  wasSelected_ = held_ == square;
  if (Touch(*square)) {
    dragging_ = true;
    leftItsSquare_ = false;
    Float(*square, event.pos() - picture_.RectOf(*square).topLeft().toPoint());
  }
  return true;
}

bool PieceHand::Move(const QMouseEvent& event) {
  if (!dragging_) return false;
  if (picture_.SquareUnder(event.position()) != held_) leftItsSquare_ = true;
  floating_.move(picture_.mapTo(picture_.window(), event.pos()) - grab_);
  return true;
}

bool PieceHand::Release(const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton || !dragging_) return false;
  dragging_ = false;
  const auto target = picture_.SquareUnder(event.position());
  if (target != held_) {
    Drop(target);
  } else if (wasSelected_ || leftItsSquare_) {
    SetDown();
  } else {
    PutAway();
  }
  return true;
}

bool PieceHand::Key(const QKeyEvent& event) {
  // With Ctrl or Alt the arrows are the window's.
  const auto step = ArrowStepOf(event.key());
  if (step && (event.modifiers() & (Qt::AltModifier | Qt::ControlModifier))) return false;
  if (step && (step->up != 0 || held_ || picture_.ShowsRing())) {
    picture_.MoveCursor(picture_.Neighbour(picture_.Cursor(), step->right, step->up), true);
    return true;
  }
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (!event.isAutoRepeat() && !dragging_) ActOn(picture_.Cursor());
      return true;
    case Qt::Key_Escape:
      return PutCursorAway();
    default:
      return false;
  }
}

/// What is in the hand first.
bool PieceHand::PutCursorAway() {
  if (held_) {
    SetDown();
  } else if (picture_.ShowsRing()) {
    picture_.MoveCursor(picture_.Cursor(), false);
  } else {
    return false;
  }
  return true;
}

void PieceHand::ActOn(Square square) {
  picture_.MoveCursor(square, true);
  if (held_ == square) {
    SetDown();
  } else if (Touch(square)) {
    picture_.ShowSelection(held_);
  }
}

/// A press or Enter on a square. True where a piece of that square is in the hand now.
bool PieceHand::Touch(Square square) {
  const bool ownPiece = rules::SideOfPiece(board_->PieceOn(square)) == board_->SideToMove();
  if (held_ == square) return true;
  if (held_ && !ownPiece) {
    Drop(square);
    return false;
  }
  LetGo();
  if (!board_->PickUp(square)) return false;
  held_ = square;
  ShowTargets();
  return true;
}

void PieceHand::ShowTargets() {
  if (platform::Settings().ShowMoves) picture_.ShowTargets(board_->TargetsFrom(*held_));
}

void PieceHand::SetDown() {
  if (!held_) return;
  const Square square = *held_;
  LetGo();
  board_->Drop(square, square);
}

void PieceHand::LetGo() {
  if (!held_) return;
  held_.reset();
  dragging_ = false;
  picture_.ShowTargets(0);
  PutAway();
}

/// Drops the held piece. Until the logic has taken the move, the piece is on its way back; from
/// then on, whatever messages follow, to its new square.
void PieceHand::Drop(std::optional<Square> target) {
  const Square source = *std::exchange(held_, std::nullopt);
  picture_.ShowSelection(std::nullopt);
  picture_.ShowTargets(0);
  if (!floating_.isVisible()) Float(source, {});
  floating_.SettleAt(CornerOf(source));
  const int cellBefore = target ? picture_.CellOn(*target) : 0;
  const auto turning = connect(&picture_, &BoardPicture::Painted, this, [&](Square painted) {
    const bool taken = board_->PieceOn(source) == rules::NoPiece;
    if (painted != target || !taken || !floating_.IsSettling()) return;
    picture_.Cover(*target, cellBefore);
    floating_.SettleAt(CornerOf(*target));
  });
  board_->Drop(target.value_or(Square{}), source);
  disconnect(turning);
}

QPoint PieceHand::CornerOf(Square square) const {
  return picture_.mapTo(picture_.window(), picture_.RectOf(square).topLeft().toPoint());
}

/// Takes a square's piece off the picture, the pointer being `grab` away from its corner.
void PieceHand::Float(Square square, QPoint grab) {
  grab_ = grab;
  floating_.PickUp(picture_.FloatingPicture(board_->PieceOn(square)), CornerOf(square));
  picture_.Cover(square, EmptyCell(square));
}

void PieceHand::PutAway() {
  floating_.PutAway();
  picture_.Uncover();
  picture_.ShowSelection(held_);
}

}  // namespace ui
