// SPDX-License-Identifier: GPL-3.0-or-later
// A piece that floats over the window, under the pointer or on its way to a square. The mouse goes
// through it.
#pragma once

#include <QPixmap>
#include <QPropertyAnimation>
#include <QWidget>

namespace ui {

class FloatingPiece : public QWidget {
  Q_OBJECT

 public:
  explicit FloatingPiece(QWidget* window);

  void PickUp(const QPixmap& picture, QPoint corner);

  /// Glides to a place within the time that a piece takes to settle, and hides there. A glide that
  /// is under way is turned to the new place.
  void SettleAt(QPoint corner);
  bool IsSettling() const { return glide_.state() == QAbstractAnimation::Running; }

  void PutAway();

 Q_SIGNALS:
  void Settled();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_;
  QPropertyAnimation glide_;
};

}  // namespace ui
