// SPDX-License-Identifier: GPL-3.0-or-later
// The button that all skinned windows share, with its caption written on it.
#pragma once

#include "skin/skin_button.h"

namespace ui {

/// The strip of "SystemButtons.bmp", which all buttons of all windows show. It belongs to the
/// program and not to a window, and is there before the first of them.
QImage& ButtonImages();

/// One button of that strip, with its caption. `textFlags` are the toolkit's, such as that for the
/// mark of a key.
void PaintSystemButton(QPainter& painter, const QRect& button, FaceState state, const QString& text,
                       int textFlags = 0);

class SystemButton : public SkinButton {
  Q_OBJECT

 public:
  using SkinButton::SkinButton;

 protected:
  void PaintButton(QPainter& painter, const QRect& button) override;
};

/// Of the button of that name: the caption's colour, and whether the face answers the mouse.
void SetButtonEnabled(QWidget& window, const QString& name, bool enabled);

}  // namespace ui
