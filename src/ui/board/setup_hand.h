// SPDX-License-Identifier: GPL-3.0-or-later
// The user's hand while a position is set up: dragging a piece between the palette, the board and
// the bin, clicking it and then its place, or the keyboard. A piece of the palette that is chosen
// takes the keyboard along to the board, where Enter puts it down; Delete throws away what stands
// on a square, and on the palette every piece of that kind, as its menu does.
//
// A click acts on the release, so that a new drag never drops what was selected before.
#pragma once

#include <QObject>
#include <QPointF>

#include <optional>

#include "board/game.h"
#include "ui/board/board_picture.h"
#include "ui/board/floating_piece.h"
#include "ui/board/piece_palette.h"
#include "ui/board/trash.h"

class QKeyEvent;
class QMouseEvent;

namespace ui {

class SetupHand : public QObject {
  Q_OBJECT

 public:
  /// Listens to the picture, the palette and the bin. All of them must outlive the hand.
  SetupHand(board::Game& board, BoardPicture& picture, PiecePalette& palette, Trash& trash,
            FloatingPiece& floating, QObject* parent);

  /// Puts a held piece back where it was.
  void LetGo();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// Where a piece is taken or dropped.
  struct Place {
    enum Kind { Nowhere, OnBoard, OnPalette, InTrash } kind = Nowhere;
    rules::Square square{};                   // on the board
    rules::PieceCode piece = rules::NoPiece;  // of the palette; none beside its pictures

    bool operator==(const Place&) const = default;
  };

  bool Press(const QMouseEvent& event, QPointF point);
  bool Move(QPointF point);
  bool Release(const QMouseEvent& event, QPointF point);
  bool Key(const QKeyEvent& event, bool onBoard);
  void ThrowAway(rules::Square square);
  void ThrowAwayEvery(rules::PieceCode piece);
  void OpenPaletteMenu(QPoint point);

  bool Lifts(Place place);
  void Click(Place place, bool lifts);
  void Drop(Place target);
  bool Carry(Place source, Place target);
  void Float(Place source, QPointF pointer);
  void ShowSelection();

  Place PlaceUnder(QPointF point) const;
  QPoint CornerOf(Place place) const;
  rules::PieceCode PieceAt(Place place) const;

  board::Game& board_;
  BoardPicture& picture_;
  PiecePalette& palette_;
  Trash& trash_;
  FloatingPiece& floating_;
  std::optional<Place> pressed_;  // the mouse button is down, and nothing was dragged yet
  bool pressLifts_ = false;       // there is a piece to drag
  QPointF pressPoint_;
  std::optional<Place> held_;  // where the piece in the hand comes from
  bool dragging_ = false;      // it hangs on the pointer; else it is only selected
  QPoint grab_;                // from the floating picture's corner to the pointer
};

}  // namespace ui
