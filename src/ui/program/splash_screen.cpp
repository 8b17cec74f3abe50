// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/splash_screen.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>

#include <utility>

#include "platform/process_state.h"
#include "platform/seams.h"
#include "skin/layouts/splash_screen_layout.h"
#include "skin/program_pictures.h"
#include "widgets/shown_text.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Process;

namespace {

constexpr int tickMilliseconds = 500;
constexpr int shortestStay = 6;  // ticks
constexpr int unknownDepth = 8;
constexpr int highColour = 16;

bool ShowsFewColours() {
  const int depth = platform::TheSeams().screen->Settings().BitsPerPixel.value_or(unknownDepth);
  return depth < highColour;
}

}  // namespace

SplashScreen::SplashScreen(std::function<void()> handOver)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      handOver_(std::move(handOver)),
      picture_(StartPicture(ShowsFewColours())) {
  setObjectName(u"SplashScreen"_s);
  setWindowTitle(u"Tarvolenix"_s);
  setAttribute(Qt::WA_DeleteOnClose);
  setFixedSize(layouts::splashScreen.size.width, layouts::splashScreen.size.height);
  move(screen()->availableGeometry().center() - rect().center());
  auto* timer = new QTimer(this);
  connect(timer, &QTimer::timeout, this, &SplashScreen::Tick);
  timer->start(tickMilliseconds);
}

void SplashScreen::Display() {
  show();
  repaint();
}

void SplashScreen::CloseAtOnce() {
  handOver_ = nullptr;
  close();
}

void SplashScreen::Tick() {
  // What the start has to ask must be seen.
  if (QApplication::activeModalWidget()) lower();
  if (ticks_ < shortestStay) {
    ++ticks_;
  } else if (Process().StartupComplete) {
    close();
  }
}

void SplashScreen::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(rect(), picture_);
}

void SplashScreen::closeEvent(QCloseEvent* event) {
  // The user's own close would hand over too early.
  if (event->spontaneous() && (ticks_ < shortestStay || !Process().StartupComplete)) {
    event->ignore();
    return;
  }
  hide();
  if (handOver_ && !Process().ShuttingDown) {
    // Behind this window's end: the hand-over may ask the user something.
    QTimer::singleShot(0, QApplication::instance(), std::exchange(handOver_, nullptr));
  }
}

}  // namespace ui
