// SPDX-License-Identifier: GPL-3.0-or-later
// The user's hand on the board: dragging a piece, clicking it and then its target, or moving a
// cursor with the arrow keys and picking up and dropping with Enter or Space. All of them end in
// the same two operations of the board, a pick-up and a drop on squares. The keys to both sides are
// his only while a piece is in the hand or the cursor is seen; else the window goes through the
// moves with them.
#pragma once

#include <QObject>
#include <QPoint>

#include <memory>
#include <optional>

#include "ui/board/board_picture.h"
#include "ui/board/board_under_hand.h"
#include "ui/board/floating_piece.h"

class QKeyEvent;
class QMouseEvent;

namespace ui {

class PieceHand : public QObject {
  Q_OBJECT

 public:
  /// Listens to the picture. It and the floating piece must outlive the hand.
  PieceHand(std::unique_ptr<BoardUnderHand> board, BoardPicture& picture, FloatingPiece& floating,
            QObject* parent);

  bool HoldsPiece() const { return held_.has_value(); }

  /// Puts a held piece back on its square.
  void SetDown();

  /// The same without a sound, where the position no longer allows a move.
  void LetGo();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Press(const QMouseEvent& event);
  bool Move(const QMouseEvent& event);
  bool Release(const QMouseEvent& event);
  bool Key(const QKeyEvent& event);
  bool PutCursorAway();
  void ActOn(rules::Square square);

  void ShowTargets();
  bool Touch(rules::Square square);
  void Drop(std::optional<rules::Square> target);
  void Float(rules::Square square, QPoint grab);
  void PutAway();
  QPoint CornerOf(rules::Square square) const;

  const std::unique_ptr<BoardUnderHand> board_;
  BoardPicture& picture_;
  FloatingPiece& floating_;
  std::optional<rules::Square> held_;  // the square of the piece in the hand
  bool dragging_ = false;              // it hangs on the pointer; else it is only selected
  bool wasSelected_ = false;           // before this drag began
  bool leftItsSquare_ = false;         // during this drag
  QPoint grab_;                        // from the floating picture's corner to the pointer
};

}  // namespace ui
