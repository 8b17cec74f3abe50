// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/setup_hand.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

#include "board/moving.h"
#include "board/setup.h"
#include "platform/process_state.h"
#include "ui/board/board_menus.h"
#include "ui/board/hand_parts.h"

namespace ui {

using rules::ThePosition;

SetupHand::SetupHand(board::Game& board, BoardPicture& picture, PiecePalette& palette, Trash& trash,
                     FloatingPiece& floating, QObject* parent)
    : QObject(parent),
      board_(board),
      picture_(picture),
      palette_(palette),
      trash_(trash),
      floating_(floating) {
  for (QWidget* widget : {static_cast<QWidget*>(&picture), static_cast<QWidget*>(&palette),
                          static_cast<QWidget*>(&trash)}) {
    widget->installEventFilter(this);
  }
  connect(&palette, &QWidget::customContextMenuRequested, this, &SetupHand::OpenPaletteMenu);
}

bool SetupHand::eventFilter(QObject* watched, QEvent* event) {
  if (!platform::Process().BoardSetupMode) return false;
  const auto pointOf = [watched](const QMouseEvent& mouse) {
    const auto* widget = static_cast<const QWidget*>(watched);
    return widget->mapTo(widget->window(), mouse.position());
  };
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      const auto& mouse = static_cast<const QMouseEvent&>(*event);
      return Press(mouse, pointOf(mouse));
    }
    case QEvent::MouseMove:
      return Move(pointOf(static_cast<const QMouseEvent&>(*event)));
    case QEvent::MouseButtonRelease: {
      const auto& mouse = static_cast<const QMouseEvent&>(*event);
      return Release(mouse, pointOf(mouse));
    }
    case QEvent::KeyPress:
      return Key(static_cast<const QKeyEvent&>(*event), watched == &picture_);
    case QEvent::WindowBlocked:
    case QEvent::Hide:
      // The release of the button won't come here any more.
      if (dragging_ || pressed_) LetGo();
      return false;
    default:
      return false;
  }
}

bool SetupHand::Press(const QMouseEvent& event, QPointF point) {
  const Place place = PlaceUnder(point);
  if (event.button() != Qt::LeftButton || place.kind == Place::Nowhere) {
    LetGo();
    return false;
  }
  if (place.kind == Place::OnBoard) picture_.MoveCursor(place.square, false);
  if (place.kind == Place::OnPalette && place.piece != rules::NoPiece) {
    palette_.SetCurrent(place.piece);
  }
  pressLifts_ = Lifts(place);
  pressed_ = place;
  pressPoint_ = point;
  return true;
}

bool SetupHand::Move(QPointF point) {
  if (pressed_ && pressLifts_ &&
      (point - pressPoint_).manhattanLength() >= QApplication::startDragDistance()) {
    LetGo();
    held_ = *std::exchange(pressed_, std::nullopt);
    dragging_ = true;
    Float(*held_, pressPoint_);
  }
  if (!dragging_) return pressed_.has_value();
  floating_.move(point.toPoint() - grab_);
  trash_.SetOpen(PlaceUnder(point).kind == Place::InTrash);
  return true;
}

bool SetupHand::Release(const QMouseEvent& event, QPointF point) {
  if (event.button() != Qt::LeftButton) return false;
  const auto pressed = std::exchange(pressed_, std::nullopt);
  const Place place = PlaceUnder(point);
  if (dragging_) {
    Drop(place);
  } else if (pressed == place) {
    Click(place, pressLifts_);
  }
  return true;
}

bool SetupHand::Key(const QKeyEvent& event, bool onBoard) {
  if (const auto step = ArrowStepOf(event.key())) {
    if (onBoard) {
      picture_.MoveCursor(picture_.Neighbour(picture_.Cursor(), step->right, step->up), true);
    } else {
      palette_.MoveFocus(step->right, step->up);
    }
    return true;
  }
  const bool fresh = !event.isAutoRepeat() && !dragging_;
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (fresh) {
        const Place here = onBoard ? Place{Place::OnBoard, picture_.Cursor()}
                                   : Place{Place::OnPalette, {}, palette_.Current()};
        Click(here, Lifts(here));
        picture_.MoveCursor(picture_.Cursor(), true);
      }
      return true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
      if (fresh && onBoard) ThrowAway(picture_.Cursor());
      if (fresh && !onBoard) ThrowAwayEvery(palette_.Current());
      return true;
    case Qt::Key_Escape:
      if (!held_) return false;
      LetGo();
      return true;
    default:
      return false;
  }
}

void SetupHand::ThrowAway(rules::Square square) {
  LetGo();
  if (!Lifts({Place::OnBoard, square})) return;
  held_ = {Place::OnBoard, square};
  Drop({Place::InTrash});
}

/// A king is never thrown away.
void SetupHand::ThrowAwayEvery(rules::PieceCode piece) {
  if (piece == rules::NoPiece || rules::KindOf(piece) == rules::WhiteKing) return;
  LetGo();
  board::RemovePieces(board_, piece);
}

void SetupHand::OpenPaletteMenu(QPoint point) {
  const rules::PieceCode piece = palette_.PieceUnder(point);
  if (piece == rules::NoPiece || rules::KindOf(piece) == rules::WhiteKing) return;
  NewPiecePalleteMenu([this, piece] { ThrowAwayEvery(piece); })->exec(palette_.mapToGlobal(point));
}

/// A press or Enter. True where there is a piece for the hand.
bool SetupHand::Lifts(Place place) {
  switch (place.kind) {
    case Place::OnBoard:
      return board::CBoard_MouseDown(board_, place.square);
    case Place::OnPalette:
      return place.piece != rules::NoPiece && board::PiecePallete_MouseDown(board_, place.piece);
    default:
      return false;
  }
}

/// Selects a piece, or drops the selected one. On the palette it always selects: a piece of the
/// board isn't thrown away by a look at the others.
void SetupHand::Click(Place place, bool lifts) {
  if (held_ && held_ != place && place.kind != Place::OnPalette) {
    Drop(place);
    return;
  }
  const bool wasHeld = held_ == place;
  LetGo();
  if (wasHeld || !lifts) return;
  held_ = place;
  ShowSelection();
  picture_.setFocus();
}

void SetupHand::LetGo() {
  pressed_.reset();
  if (!held_) return;
  held_.reset();
  dragging_ = false;
  trash_.SetOpen(false);
  floating_.PutAway();
  picture_.Uncover();
  ShowSelection();
}

/// Drops the held piece. Until the logic has accepted that, the piece is on its way back.
void SetupHand::Drop(Place target) {
  const Place source = *std::exchange(held_, std::nullopt);
  const bool dragged = std::exchange(dragging_, false);
  trash_.SetOpen(false);
  ShowSelection();
  if (!dragged) Float(source, {});
  floating_.SettleAt(CornerOf(source));
  const bool onBoard = target.kind == Place::OnBoard;
  const int cellBefore = onBoard ? picture_.CellOn(target.square) : 0;
  if (!Carry(source, target) || !floating_.IsSettling()) return;
  if (onBoard) {
    picture_.Cover(target.square, cellBefore);
    floating_.SettleAt(CornerOf(target));
  } else {
    floating_.PutAway();
    picture_.Uncover();
  }
}

/// True where that changed the board.
bool SetupHand::Carry(Place source, Place target) {
  const bool fromPalette = source.kind == Place::OnPalette;
  const bool meansNothing =
      target.kind == Place::Nowhere || (fromPalette && target.kind == Place::OnPalette);
  if (meansNothing) return false;
  const rules::BoardSquares before = ThePosition().BoardState;
  if (fromPalette) {
    board::DropInSetup(board_, target.square, source.piece);
  } else {
    board::DropInSetup(board_, target.square, source.square);
  }
  return ThePosition().BoardState != before;
}

/// Lets a piece float over its place; the pointer, if any, keeps hold of it where it was pressed.
void SetupHand::Float(Place source, QPointF pointer) {
  const QPoint corner = CornerOf(source);
  grab_ = pointer.toPoint() - corner;
  floating_.PickUp(picture_.FloatingPicture(PieceAt(source)), corner);
  if (source.kind != Place::OnBoard) return;
  picture_.Cover(source.square, EmptyCell(source.square));
}

void SetupHand::ShowSelection() {
  const Place shown = held_.value_or(Place{});
  const bool onBoard = shown.kind == Place::OnBoard;
  picture_.ShowSelection(onBoard ? std::optional(shown.square) : std::nullopt);
  palette_.ShowSelection(shown.piece);
}

SetupHand::Place SetupHand::PlaceUnder(QPointF point) const {
  const QWidget* window = picture_.window();
  if (const auto square = picture_.SquareUnder(picture_.mapFrom(window, point))) {
    return {Place::OnBoard, *square};
  }
  const QPoint onPalette = palette_.mapFrom(window, point.toPoint());
  if (palette_.rect().contains(onPalette)) {
    return {Place::OnPalette, {}, palette_.PieceUnder(onPalette)};
  }
  if (trash_.rect().contains(trash_.mapFrom(window, point.toPoint()))) return {Place::InTrash};
  return {};
}

/// The corner of the floating picture over the middle of a place, in the window.
QPoint SetupHand::CornerOf(Place place) const {
  const QWidget* window = picture_.window();
  if (place.kind == Place::OnBoard) {
    return picture_.mapTo(window, picture_.RectOf(place.square).topLeft().toPoint());
  }
  QRectF rect = picture_.RectOf({1, 1});
  rect.moveCenter(QRectF(palette_.RectOf(place.piece)).center());
  return palette_.mapTo(window, rect.topLeft().toPoint());
}

rules::PieceCode SetupHand::PieceAt(Place place) const {
  if (place.kind == Place::OnPalette) return place.piece;
  return ThePosition().BoardState.At(place.square);
}

}  // namespace ui
