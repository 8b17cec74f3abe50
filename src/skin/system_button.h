// SPDX-License-Identifier: GPL-3.0-or-later
// The button that all skinned windows share, with its caption written on it.
#pragma once

#include "skin/skin_button.h"

namespace ui {

/// The strip of "SystemButtons.bmp", which all buttons of all windows show. It belongs to the
/// program and not to a window, and is there before the first of them.
QImage& ButtonImages();

class SystemButton : public SkinButton {
  Q_OBJECT

 public:
  using SkinButton::SkinButton;

 protected:
  void PaintButton(QPainter& painter, const QRect& button) override;

 private:
  void PaintCaption(QPainter& painter, const QRect& button) const;
};

/// Of the button of that name: the caption's colour, and whether the face answers the mouse.
void SetButtonEnabled(QWidget& window, const QString& name, bool enabled);

}  // namespace ui
