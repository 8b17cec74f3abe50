// SPDX-License-Identifier: GPL-3.0-or-later
// A button of an action bar: one row of a strip with a column for each state, and a caption below
// its icon.
#pragma once

#include "skin/layouts/strips.h"
#include "skin/skin_button.h"

namespace ui {

class StripButton : public SkinButton {
  Q_OBJECT

 public:
  /// Shows a row of strips of that shape, counting from 0.
  StripButton(const QString& name, const layouts::Strip& shape, int row, QWidget* window);

  void SetStrip(const QImage& strip);

 protected:
  void PaintButton(QPainter& painter, const QRect& button) override;

 private:
  static void PaintCaption(QPainter& painter, const QRect& place, const QStringList& lines);
  int ColumnOf(FaceState state) const;

  layouts::Strip shape_;
  int row_;
  QImage strip_;
};

}  // namespace ui
