// SPDX-License-Identifier: GPL-3.0-or-later
// A slider that marks a stretch of its range: where a motivation stands, while the thumb is where
// it is about to go.
#pragma once

#include <QSlider>

namespace ui {

class MotivationSlider : public QSlider {
  Q_OBJECT

 public:
  explicit MotivationSlider(QWidget* parent);

  /// From a value on; none where the length is 0.
  void SetSelection(int start, int length);

  int SelStart() const { return selStart_; }
  int SelLength() const { return selLength_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int PlaceOf(int value) const;
  QRect Stretch() const;
  void PaintPlain();
  void PaintSkinned();

  int selStart_ = 0;
  int selLength_ = 0;
};

}  // namespace ui
