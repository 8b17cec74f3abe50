// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/qt_events.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>

#include <memory>
#include <utility>

namespace desktop {
namespace {

const auto workEvent = static_cast<QEvent::Type>(QEvent::registerEventType());

/// Posted work; what it holds is given up on the window's thread.
class WorkEvent : public QEvent {
 public:
  explicit WorkEvent(std::function<void()> work) : QEvent(workEvent), work_(std::move(work)) {}

  void Work() const { work_(); }

 private:
  std::function<void()> work_;
};

}  // namespace

void QtEvents::RunUntil(const std::function<bool()>& done) {
  if (done()) return;
  if (waits_++ == 0 && tell_) tell_(true);
  LetUserActUntil(done);
  if (--waits_ == 0 && tell_) tell_(false);
}

void QtEvents::LetUserActUntil(const std::function<bool()>& done) {
  // Not exec(), which returns at once when the application has been told to quit.
  QEventLoop loop;
  while (!done()) loop.processEvents(QEventLoop::WaitForMoreEvents);
}

void QtEvents::Wake() {
  Post([] {});
}

void QtEvents::Post(std::function<void()> work) {
  QCoreApplication::postEvent(this, std::make_unique<WorkEvent>(std::move(work)).release());
}

bool QtEvents::event(QEvent* event) {
  if (event->type() != workEvent) return QObject::event(event);
  static_cast<const WorkEvent*>(event)->Work();
  return true;
}

}  // namespace desktop
