// SPDX-License-Identifier: GPL-3.0-or-later
// Where a window goes that belongs to another one.
#pragma once

#include <QRect>
#include <QSize>

class QWidget;

namespace ui {

/// How large a window can be on its screen, with the frame that a desktop draws round it.
QSize RoomOnScreen(const QWidget& window);

/// While the desktop takes up a window, the toolkit can hear of a place where it never stood: it
/// would go there with its next size, and what opens beside its fields would open there.
void KeepPlace(QWidget& frameless);

/// Where the other one stands, as far as the screen has room for it there.
void PutInPlaceOf(const QWidget& old, QWidget& next);

/// At its side, so that it stays in sight. Where neither side has room the window moves, and the
/// next one is narrower than it would be; only a window as wide as the screen is covered, at its
/// right.
void PutBeside(QWidget& window, QWidget& next);

struct TwoPlaces {
  QRect window;
  QRect next;
};

/// The frames of the two, where the next one may be as narrow as that.
TwoPlaces PlacesSideBySide(const QRect& screen, QRect window, QRect next, int narrowest);

}  // namespace ui
