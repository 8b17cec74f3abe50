// SPDX-License-Identifier: GPL-3.0-or-later
// The picture that shows while the program starts. It has no skin. It stays a few seconds, outlasts
// the start, and then hands over to the program's idle life.
#pragma once

#include <QPixmap>
#include <QWidget>

#include <functional>

namespace ui {

class SplashScreen : public QWidget {
  Q_OBJECT

 public:
  /// Deletes itself when it closes, and calls `handOver` behind that.
  explicit SplashScreen(std::function<void()> handOver);

  /// Shows it at once, without waiting for the event loop.
  void Display();

  /// Without the hand-over.
  void CloseAtOnce();

 public Q_SLOTS:
  void Tick();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  std::function<void()> handOver_;
  QPixmap picture_;
  int ticks_ = 0;
};

}  // namespace ui
