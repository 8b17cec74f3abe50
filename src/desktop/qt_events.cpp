// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/qt_events.h"

#include <QEventLoop>
#include <QMetaObject>

#include <utility>

namespace desktop {

void QtEvents::RunUntil(const std::function<bool()>& done) {
  if (done()) return;
  QEventLoop loop;
  waits_.push_back({&done, &loop});
  loop.exec();
  waits_.pop_back();
}

void QtEvents::Wake() {
  QMetaObject::invokeMethod(
      this, [this] { AskAll(); }, Qt::QueuedConnection);
}

void QtEvents::Post(std::function<void()> work) {
  QMetaObject::invokeMethod(this, std::move(work), Qt::QueuedConnection);
}

void QtEvents::AskAll() const {
  for (const Wait& wait : waits_) {
    if ((*wait.done)()) wait.loop->quit();
  }
}

}  // namespace desktop
