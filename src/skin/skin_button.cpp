// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/skin_button.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

#include <utility>

#include "skin/layouts/strips.h"

namespace ui {

SkinButton::SkinButton(const QString& name, QWidget* window) : QAbstractButton(window) {
  setObjectName(name);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
}

void SkinButton::PlaceAt(const QRect& place) {
  setGeometry(place.adjusted(-buttonRingRoom, -buttonRingRoom, buttonRingRoom, buttonRingRoom));
}

QRect SkinButton::Inner() const {
  return rect().adjusted(buttonRingRoom, buttonRingRoom, -buttonRingRoom, -buttonRingRoom);
}

QRect SkinButton::Place() const { return Inner().translated(pos()); }

FaceState SkinButton::CurrentState() const {
  if (!isEnabled()) return FaceState::Disabled;
  if (isDown() || isChecked()) return FaceState::Down;
  return underMouse() ? FaceState::Hover : FaceState::Up;
}

void SkinButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  PaintButton(painter, Inner());
  if (!hasFocus()) return;
  DrawFocusRing(painter, Inner(), layouts::buttonRadius,
                window()->palette().color(QPalette::WindowText));
}

bool SkinButton::hitButton(const QPoint& point) const { return Inner().contains(point); }

void SkinButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    // One that stays down is chosen already: the window may have a use for the key.
    if (isCheckable()) return event->ignore();
    if (!event->isAutoRepeat()) click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void DrawFocusRing(QPainter& painter, const QRect& control, qreal radius, const QColor& colour) {
  constexpr qreal width = buttonRingRoom / 2.0, inner = width / 2, outer = inner + width;
  const QColor contrast = qGray(colour.rgb()) < 128 ? Qt::white : Qt::black;
  painter.setBrush(Qt::NoBrush);
  for (const auto& [line, room] : {std::pair{contrast, inner}, std::pair{colour, outer}}) {
    painter.setPen(QPen(line, width));
    painter.drawRoundedRect(QRectF(control).adjusted(-room, -room, room, room), radius + room,
                            radius + room);
  }
}

void DrawRounded(QPainter& painter, const QRect& place, const QImage& picture) {
  QBrush brush(picture);
  QTransform toPlace = QTransform::fromTranslate(place.x(), place.y());
  toPlace.scale(1.0 * place.width() / picture.width(), 1.0 * place.height() / picture.height());
  brush.setTransform(toPlace);
  painter.setPen(Qt::NoPen);
  painter.setBrush(brush);
  painter.drawRoundedRect(place, layouts::buttonRadius, layouts::buttonRadius);
}

}  // namespace ui
