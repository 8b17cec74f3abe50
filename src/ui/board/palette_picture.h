// SPDX-License-Identifier: GPL-3.0-or-later
// One picture of the palette, and the marker that covers a king's.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

#include "rules/position.h"

namespace ui {

class PalettePicture : public QWidget {
  Q_OBJECT

 public:
  PalettePicture(rules::PieceCode piece, QWidget* parent);

  void SetPicture(const QImage& picture);
  void SetSelected(bool selected);

  /// Whether Tab leads here. The arrow keys lead on to the others.
  void SetReachedByTab(bool reached);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const QPixmap& Scaled();

  QImage picture_;
  QPixmap scaled_;  // for the screen's pixels
  bool selected_ = false;
};

/// Covers its parent, which keeps the mouse: a paler piece with a tick.
class PaletteMarker : public QWidget {
  Q_OBJECT

 public:
  explicit PaletteMarker(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace ui
