// SPDX-License-Identifier: GPL-3.0-or-later
// The skinned look of one window: a frameless, shaped picture that can be dragged by its surface.
// What it wears comes from ApplySkin and can change while the window is open. Its heirs know the
// window's shape and its controls.
#pragma once

#include <QImage>
#include <QObject>
#include <QPixmap>
#include <QPoint>
#include <QPolygonF>
#include <QRegion>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "skin/skin_colours.h"

class QPainter;

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
  /// Null for a window in the plain look.
  static WindowSkin* Of(const QWidget& window);

  /// By which the skin table knows the window.
  std::string_view Name() const { return name_; }

  void Wear(SkinPictures pictures);

  /// The picture for a strip's target; null where the skin has none.
  QImage Strip(std::string_view target) const;

  /// A window without its skin is never seen: this closes it, at once or when it is shown.
  void Fail();

 Q_SIGNALS:
  /// There are new pictures.
  void Worn();

 protected:
  /// Belongs to the window. What lies behind a composited window shows through its smooth edge;
  /// else its edge is made of whole pixels.
  WindowSkin(QWidget& window, std::string_view name, bool draggable, bool composited);

  QWidget& Window() const { return window_; }
  const SkinPictures& Pictures() const { return pictures_; }

  /// From now on the window is of this shape, told both ways.
  void TakeShape(const QPolygonF& outline, const QRegion& mask);

  /// Gives the window and its controls their colours.
  virtual void Colour() = 0;

  /// The background of a window that is so many pixels large.
  virtual QImage Ground(QSize pixels) const;

  /// What the window has on its ground.
  virtual void PaintOnGround(QPainter& painter) const = 0;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Paint();
  void MoveToMiddle();
  void MoveWith(QPoint pointer);

  QWidget& window_;
  std::string_view name_;
  bool draggable_;
  QPolygonF outline_;
  SkinPictures pictures_;
  QPixmap ground_;  // for the screen's pixels
  std::optional<QPoint> pressedAt_;
  std::optional<QPoint> grab_;  // from the window's corner, where the desktop can't move it itself
  bool failed_ = false;
};

}  // namespace ui
