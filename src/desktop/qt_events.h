// SPDX-License-Identifier: GPL-3.0-or-later
// Waiting in the toolkit's event loop, so that windows repaint and timers fire meanwhile.
#pragma once

#include <QObject>

#include <functional>
#include <utility>

#include "platform/events.h"

namespace desktop {

/// Belongs to the thread that makes it, which must have the application object. Waits may nest; an
/// outer one ends after the inner ones. A wait outlives the application's own end.
class QtEvents : public QObject, public platform::Events {
 public:
  /// Is told true when a wait of the user begins that isn't over at once, and false when the
  /// outermost is over.
  void OnWait(std::function<void(bool waiting)> tell) { tell_ = std::move(tell); }
  bool IsWaiting() const { return waits_ > 0; }

  void RunUntil(const std::function<bool()>& done) override;
  void LetUserActUntil(const std::function<bool()>& done) override;
  void Wake() override;
  void Post(std::function<void()> work) override;

 protected:
  bool event(QEvent* event) override;

 private:
  std::function<void(bool waiting)> tell_;
  int waits_ = 0;
};

}  // namespace desktop
