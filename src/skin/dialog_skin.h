// SPDX-License-Identifier: GPL-3.0-or-later
// The skin of a dialog that lays its controls out itself: a frame round them, of the skin's one
// picture for all dialogs, with the window's title. A dialog whose size isn't fixed can be made
// larger and smaller by its rim.
#pragma once

#include "skin/composited_screen.h"
#include "skin/window_skin.h"

namespace ui {

class DialogSkin : public WindowSkin {
  Q_OBJECT

 public:
  /// The dialog's layout and controls must be there; it grows by the frame.
  explicit DialogSkin(QWidget& dialog, bool composited = ScreenIsComposited());

 protected:
  void Colour() override;
  QImage Ground(QSize pixels) const override;
  void PaintOnGround(QPainter& painter) const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Reshape();
  bool HasPicture() const;
  QColor TitleColour() const;
  void PaintTitle(QPainter& painter) const;
};

}  // namespace ui
