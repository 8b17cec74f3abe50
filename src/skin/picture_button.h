// SPDX-License-Identifier: GPL-3.0-or-later
// A picture that is a button, on the bare surface of a skinned window.
#pragma once

#include <QImage>

#include "skin/skin_button.h"

namespace ui {

class PictureButton : public SkinButton {
  Q_OBJECT

 public:
  PictureButton(const QString& name, const QImage& picture, QWidget* window)
      : SkinButton(name, window), picture_(picture) {}

 protected:
  void PaintButton(QPainter& painter, const QRect& button) override;

 private:
  QImage picture_;
};

}  // namespace ui
