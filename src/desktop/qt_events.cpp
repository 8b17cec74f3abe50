// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/qt_events.h"

#include <QEventLoop>
#include <QMetaObject>

#include <utility>

namespace desktop {

void QtEvents::RunUntil(const std::function<bool()>& done) {
  // Not exec(), which returns at once when the application has been told to quit.
  QEventLoop loop;
  while (!done()) loop.processEvents(QEventLoop::WaitForMoreEvents);
}

void QtEvents::Wake() {
  Post([] {});
}

void QtEvents::Post(std::function<void()> work) {
  QMetaObject::invokeMethod(this, std::move(work), Qt::QueuedConnection);
}

}  // namespace desktop
