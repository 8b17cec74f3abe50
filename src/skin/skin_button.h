// SPDX-License-Identifier: GPL-3.0-or-later
// A button of a skinned window: a picture that presses down, and a ring round it while it has the
// focus. Mouse, Space and Enter press it. The widget is larger than the button by the room of the
// ring.
#pragma once

#include <QAbstractButton>

#include "skin/layouts/layout.h"

namespace ui {

enum class FaceState { Up, Hover, Down, Disabled };

/// What a button is larger than its picture on each side: the room of the ring.
inline constexpr int buttonRingRoom = 4;

class SkinButton : public QAbstractButton {
  Q_OBJECT

 public:
  SkinButton(const QString& name, QWidget* window);

  /// Where the button stands in its window.
  void PlaceAt(const QRect& place);
  QRect Place() const;

  QSize sizeHint() const override { return size(); }

 protected:
  FaceState CurrentState() const;

  virtual void PaintButton(QPainter& painter, const QRect& button) = 0;

  void paintEvent(QPaintEvent* event) override;
  bool hitButton(const QPoint& point) const override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QRect Inner() const;
};

/// Round a control of a window, in the room of four pixels: a line in the colour and one in its
/// contrast, so that the ring is seen on every surface.
void DrawFocusRing(QPainter& painter, const QRect& control, qreal radius, const QColor& colour);

/// Draws the part of a picture over a rectangle, cut round at the corners.
void DrawRounded(QPainter& painter, const QRect& place, const QImage& picture);

}  // namespace ui
