// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/board/floating_piece.h"

#include <QPainter>

namespace ui {

namespace {
constexpr int settleMilliseconds = 120;
}

FloatingPiece::FloatingPiece(QWidget* window) : QWidget(window), glide_(this, "pos") {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  glide_.setDuration(settleMilliseconds);
  glide_.setEasingCurve(QEasingCurve::OutCubic);
  connect(&glide_, &QAbstractAnimation::finished, this, [this] {
    hide();
    Q_EMIT Settled();
  });
  hide();
}

void FloatingPiece::PickUp(const QPixmap& picture, QPoint corner) {
  glide_.stop();
  picture_ = picture;
  resize(picture.deviceIndependentSize().toSize());
  move(corner);
  raise();
  show();
}

void FloatingPiece::SettleAt(QPoint corner) {
  glide_.stop();
  glide_.setStartValue(pos());
  glide_.setEndValue(corner);
  glide_.start();
}

void FloatingPiece::PutAway() {
  glide_.stop();
  hide();
}

void FloatingPiece::paintEvent(QPaintEvent*) { QPainter(this).drawPixmap(0, 0, picture_); }

}  // namespace ui
