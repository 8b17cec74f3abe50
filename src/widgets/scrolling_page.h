// SPDX-License-Identifier: GPL-3.0-or-later
// A part of a window that wants to be as high as its content, and scrolls where the screen has no
// room for that.
#pragma once

#include <QScrollArea>

namespace ui {

class ScrollingPage : public QScrollArea {
  Q_OBJECT

 public:
  /// Takes the content, which must have a layout.
  explicit ScrollingPage(QWidget* content);

  /// Counts what was shown and hidden in the content now, not with the next events.
  void Settle();

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
};

}  // namespace ui
