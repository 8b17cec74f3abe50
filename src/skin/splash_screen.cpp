// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/splash_screen.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <utility>

#include "skin/layouts/splash_screen_layout.h"

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int tickMilliseconds = 500;
constexpr int shortestStay = 6;  // ticks
constexpr std::chrono::milliseconds longestAnswer(200);

}  // namespace

SplashScreen::SplashScreen(std::future<QImage> picture)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), coming_(std::move(picture)) {
  setObjectName(u"SplashScreen"_s);
  setWindowTitle(u"Tarvolenix"_s);
  setAttribute(Qt::WA_DeleteOnClose);
  setFixedSize(layouts::splashScreen.size.width, layouts::splashScreen.size.height);
  move(screen()->availableGeometry().center() - rect().center());
  QApplication::instance()->installEventFilter(this);
  create();  // while the picture comes
}

void SplashScreen::Display() {
  if (coming_.valid()) picture_ = QPixmap::fromImage(coming_.get());
  show();
  AwaitSurface();
  repaint();
}

/// On a Wayland desktop nothing can be painted before it has answered; elsewhere nobody waits.
void SplashScreen::AwaitSurface() {
  if (!QGuiApplication::platformName().startsWith(u"wayland"_s)) return;
  QTimer patience;
  patience.setSingleShot(true);
  patience.start(longestAnswer);
  while (!windowHandle()->isExposed() && patience.isActive()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                    QEventLoop::WaitForMoreEvents);
  }
}

void SplashScreen::BeginStay(std::function<bool()> isStarted, std::function<void()> handOver) {
  QApplication::instance()->removeEventFilter(this);
  isStarted_ = std::move(isStarted);
  handOver_ = std::move(handOver);
  auto* timer = new QTimer(this);
  connect(timer, &QTimer::timeout, this, [this] { Tick(); });
  timer->start(tickMilliseconds);
}

void SplashScreen::CloseAtOnce() {
  handOver_ = nullptr;
  close();
}

bool SplashScreen::HasStayed() const {
  return ticks_ >= shortestStay && isStarted_ && isStarted_();
}

void SplashScreen::Tick() {
  // What the start has to ask must be seen.
  if (QApplication::activeModalWidget()) lower();
  if (HasStayed()) {
    close();
  } else {
    ticks_ = std::min(ticks_ + 1, shortestStay);
  }
}

bool SplashScreen::eventFilter(QObject* watched, QEvent* event) {
  const bool shows = event->type() == QEvent::Show && watched != this && watched->isWidgetType();
  if (shows && static_cast<QWidget*>(watched)->isWindow()) hide();
  return false;
}

void SplashScreen::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(rect(), picture_);
}

void SplashScreen::closeEvent(QCloseEvent* event) {
  // The user's own close would hand over too early.
  if (event->spontaneous() && !HasStayed()) {
    event->ignore();
    return;
  }
  hide();
  // Behind this window's end: the hand-over may ask the user something.
  if (handOver_) {
    QTimer::singleShot(0, QApplication::instance(), std::exchange(handOver_, nullptr));
  }
}

}  // namespace ui
