// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned look of one window: a frameless, shaped picture that can be dragged by its surface,
// with the window's controls in their places on it. What it wears comes from ApplySkin and can
// change while the window is open.
#pragma once

#include <QImage>
#include <QObject>
#include <QPixmap>
#include <QPoint>
#include <QPolygonF>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "skin/composited_screen.h"
#include "skin/layouts/layout.h"
#include "skin/skin_colours.h"

namespace ui {

/// What a window takes from a skin, whole or not at all.
struct SkinPictures {
  QImage background;
  std::map<std::string, QImage, std::less<>> strips;  ///< by their targets
  std::vector<QColor> textColours;                    ///< by the controls' order in the skin table
  std::vector<FieldColours> fieldColours;
  std::vector<GridColours> gridColours;
  std::vector<QColor> tabColours;
};

class WindowSkin : public QObject {
  Q_OBJECT

 public:
  /// Shapes the window and places its controls, which must be there. Belongs to the window. What
  /// lies behind a composited window shows through its smooth edge; else its edge is made of whole
  /// pixels.
  WindowSkin(QWidget& window, const layouts::Layout& layout,
             bool composited = ScreenIsComposited());

  /// Null for a window in the plain look.
  static WindowSkin* Of(const QWidget& window);

  /// The layout's, by which the skin table knows the window.
  std::string_view Name() const { return layout_.window; }

  void Wear(SkinPictures pictures);

  /// The picture for a strip's target; null where the skin has none.
  QImage Strip(std::string_view target) const;

  /// A window without its skin is never seen: this closes it, at once or when it is shown.
  void Fail();

 Q_SIGNALS:
  /// There are new pictures.
  void Worn();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShapeWindow(bool composited);
  void PlaceControls();
  void Colour();
  void Paint();
  void PaintFocus(QPainter& painter) const;
  void MoveToMiddle();
  void MoveWith(QPoint pointer);

  QWidget& window_;
  const layouts::Layout& layout_;
  QPolygonF outline_;
  SkinPictures pictures_;
  QPixmap scaled_;  // the background for the screen's pixels
  std::optional<QPoint> pressedAt_;
  std::optional<QPoint> grab_;  // from the window's corner, where the desktop can't move it itself
  bool failed_ = false;
};

}  // namespace ui
