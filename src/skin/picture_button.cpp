// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/picture_button.h"

#include <QPainter>

#include "skin/layouts/strips.h"

namespace ui {

void PictureButton::PaintButton(QPainter& painter, const QRect& button) {
  const FaceState state = CurrentState();
  if (state == FaceState::Hover || state == FaceState::Down) {
    QColor glow = window()->palette().color(QPalette::WindowText);
    glow.setAlpha(state == FaceState::Down ? 90 : 50);
    painter.setPen(Qt::NoPen);
    painter.setBrush(glow);
    painter.drawRoundedRect(button, layouts::buttonRadius, layouts::buttonRadius);
  }
  painter.setOpacity(state == FaceState::Disabled ? 0.5 : 1);
  constexpr int pressed = 1;
  const QSize pixels = (QSizeF(button.size()) * devicePixelRatioF()).toSize();
  painter.drawImage(state == FaceState::Down ? button.translated(pressed, pressed) : button,
                    picture_.scaled(pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

}  // namespace ui
