// SPDX-License-Identifier: GPL-3.0-or-later
// The bin for pieces that are to go while a position is set up. It takes no input; SetupHand does.
#pragma once

#include <QWidget>

namespace ui {

class Trash : public QWidget {
  Q_OBJECT

 public:
  explicit Trash(QWidget* parent = nullptr);

  /// Open while a piece is held over it.
  void SetOpen(bool open);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool open_ = false;
};

}  // namespace ui
