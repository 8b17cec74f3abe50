// SPDX-License-Identifier: GPL-3.0-or-later
// The mouse pointer of the whole program.
#pragma once

#include <QApplication>

namespace ui {

/// Another pointer for its lifetime; then the one before it comes back.
class OtherPointer {
 public:
  explicit OtherPointer(Qt::CursorShape shape) { QApplication::setOverrideCursor(shape); }
  ~OtherPointer() { QApplication::restoreOverrideCursor(); }
  OtherPointer(const OtherPointer&) = delete;
  OtherPointer& operator=(const OtherPointer&) = delete;
};

/// What the program's BusyPointer asks for.
inline void ShowBusyPointer(bool busy) {
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

}  // namespace ui
