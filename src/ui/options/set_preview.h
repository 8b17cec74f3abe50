// SPDX-License-Identifier: GPL-3.0-or-later
// A small board with the start position, in a chess set on a board picture.
#pragma once

#include <QImage>
#include <QWidget>

namespace ui {

/// The cell of a sheet for a square of the start position, from 0 along the rows. Column and row
/// are counted from 1 at White's left.
int PreviewClipGraphic(int col, int row);

class SetPreview : public QWidget {
  Q_OBJECT

 public:
  explicit SetPreview(QWidget* page);

  /// A null sheet shows nothing.
  void ShowSheet(const QImage& sheet);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QImage sheet_;
};

}  // namespace ui
