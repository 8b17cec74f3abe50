// SPDX-License-Identifier: GPL-3.0-or-later
// The picture that shows while the program starts. It has no skin. It stays a few seconds, outlasts
// the start, and then hands over to the program's idle life.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

#include <functional>
#include <future>

namespace ui {

/// It is made by what starts the program, and used by the program proper, which may be a module
/// with a process state of its own: it knows none, and has no meta object.
class SplashScreen : public QWidget {
 public:
  /// The picture may still be on its way.
  explicit SplashScreen(std::future<QImage> picture);

  /// Shows it at once, without waiting for the event loop. Until the stay begins it makes way where
  /// another window shows: what has to be said first is said without it.
  void Display();

  /// From now on it counts its time; it closes when that is over and `isStarted` says so. Deletes
  /// itself then, and calls `handOver` behind that.
  void BeginStay(std::function<bool()> isStarted, std::function<void()> handOver);

  /// Without the hand-over.
  void CloseAtOnce();

  void Tick();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void AwaitSurface();
  bool HasStayed() const;

  std::future<QImage> coming_;
  QPixmap picture_;                  ///< once it has come
  std::function<bool()> isStarted_;  ///< none until the stay begins
  std::function<void()> handOver_;
  int ticks_ = 0;
};

}  // namespace ui
