// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/window_places.h"

#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace ui {

namespace {

constexpr int between = 8;
constexpr QSize mostDecoration(16, 48);  // with the title bar

int CoordinateWithin(int wanted, int length, int begin, int end) {
  return std::max(begin, std::min(wanted, end - length));
}

QRect Within(const QRect& screen, QRect frame) {
  frame.setSize(frame.size().boundedTo(screen.size()));
  frame.moveTo(CoordinateWithin(frame.left(), frame.width(), screen.left(), screen.right() + 1),
               CoordinateWithin(frame.top(), frame.height(), screen.top(), screen.bottom() + 1));
  return frame;
}

/// What the desktop draws round a window. The next one has none yet, and will have the same.
QSize Decoration(const QWidget& window) { return window.frameGeometry().size() - window.size(); }

}  // namespace

QSize RoomOnScreen(const QWidget& window) {
  return window.screen()->availableSize() - mostDecoration;
}

void KeepPlace(QWidget& frameless) {
  QWindow* window = frameless.windowHandle();
  if (window && window->position() != frameless.pos()) window->setPosition(frameless.pos());
}

TwoPlaces PlacesSideBySide(const QRect& screen, QRect window, QRect next, int narrowest) {
  const int atRight = screen.right() - window.right() - between;
  const int atLeft = window.left() - screen.left() - between;
  const int inAll = screen.width() - window.width() - between;
  const bool right = atRight >= next.width() || atRight >= atLeft || inAll < narrowest;
  int room = right ? atRight : atLeft;
  if (room < narrowest && inAll >= narrowest) {
    window.moveLeft(right ? screen.left() : screen.right() + 1 - window.width());
    room = inAll;
  }
  if (room >= narrowest) next.setWidth(std::min(room, next.width()));
  next.moveTop(window.top());
  next.moveLeft(right ? window.right() + 1 + between : window.left() - between - next.width());
  return {window, Within(screen, next)};
}

void PutInPlaceOf(const QWidget& old, QWidget& next) {
  const QRect screen = old.screen()->availableGeometry();
  QRect frame({}, next.size() + Decoration(old));
  frame.moveCenter(old.frameGeometry().center());
  frame = Within(screen, frame);
  next.resize(frame.size() - Decoration(old));
  next.move(frame.topLeft());
}

void PutBeside(QWidget& window, QWidget& next) {
  const QSize decoration = Decoration(window);
  const auto places = PlacesSideBySide(window.screen()->availableGeometry(), window.frameGeometry(),
                                       QRect({}, next.size() + decoration),
                                       next.minimumSizeHint().width() + decoration.width());
  if (places.window != window.frameGeometry()) window.move(places.window.topLeft());
  next.resize(places.next.size() - decoration);
  next.move(places.next.topLeft());
}

}  // namespace ui
