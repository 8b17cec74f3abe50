// SPDX-License-Identifier: GPL-3.0-or-later
// The skin of a window of one size and shape, whose controls have their places on its picture.
#pragma once

#include "skin/composited_screen.h"
#include "skin/layouts/layout.h"
#include "skin/window_skin.h"

namespace ui {

class PlacedSkin : public WindowSkin {
  Q_OBJECT

 public:
  /// Shapes the window and places its controls, which must be there.
  PlacedSkin(QWidget& window, const layouts::Layout& layout,
             bool composited = ScreenIsComposited());

 protected:
  void Colour() override;
  void PaintOnGround(QPainter& painter) const override;

 private:
  void PlaceControls();

  const layouts::Layout& layout_;
};

}  // namespace ui
