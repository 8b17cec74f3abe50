// SPDX-License-Identifier: GPL-3.0-or-later
// A board in a coloured frame that says what it is for, so that nobody takes it for his game.
#pragma once

#include <QLabel>
#include <QWidget>

namespace ui {

class BoardPicture;

class TryFrame : public QWidget {
  Q_OBJECT

 public:
  /// Takes the picture in. `width` is how wide it should be.
  TryFrame(BoardPicture& picture, int width, const QString& caption, QWidget* parent);

  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  int BandHeight() const;
  void FitCaption(int width);

  BoardPicture& picture_;
  QLabel* caption_;
  const int width_;
};

}  // namespace ui
