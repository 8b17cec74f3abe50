// SPDX-License-Identifier: GPL-3.0-or-later
// Lines that rise slowly, again and again, and fade at the edges. They stand still while they are
// pointed at; the keyboard stops and moves them, the wheel moves them.
#pragma once

#include <QTimer>
#include <QWidget>

#include <vector>

namespace ui {

struct RisingLine {
  QString text;
  bool isHeading = false;
};

class RisingText : public QWidget {
  Q_OBJECT

 public:
  RisingText(std::vector<RisingLine> lines, QWidget* parent);

  /// With `colour` on a dark edge, to be read on any picture; else in the desktop's own colour.
  void WriteOnPicture(const QColor& colour) { pictureColour_ = colour; }

  /// How far the first line has risen above the top, in pixels; below it where negative.
  int Offset() const { return offset_; }
  bool IsStopped() const { return isStopped_; }

 public Q_SLOTS:
  /// One beat of the timer.
  void Rise();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  int LineHeight() const;
  int TextHeight() const;
  void MoveBy(int pixels);
  void WriteLine(QPainter& painter, const RisingLine& line, const QRect& place) const;

  std::vector<RisingLine> lines_;
  QColor pictureColour_;  // invalid on the desktop's own ground
  QTimer timer_;
  int offset_;
  bool isStopped_ = false;
};

}  // namespace ui
