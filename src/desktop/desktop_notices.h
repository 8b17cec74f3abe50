// SPDX-License-Identifier: GPL-3.0-or-later
// Notices through the session bus: the interface org.freedesktop.Notifications, as the Desktop
// Notifications interface has it. A notice has the actions "Play" and "Later" and is known by
// the number that the desktop's daemon gave it. No bus, no daemon, or one that dies or refuses:
// nothing is shown then.
#pragma once

#include <QDBusConnection>
#include <QObject>

#include "platform/notices.h"

class QDBusPendingCallWatcher;

namespace desktop {

class DesktopNotices : public QObject, public platform::Notices {
  Q_OBJECT

 public:
  ~DesktopNotices() override;

  void Show(const platform::Notice& notice, const Answered& answered) override;
  void Withdraw() override;

 private Q_SLOTS:
  void TakeAction(uint number, const QString& action);
  void Forget(uint number, uint reason);

 private:
  bool ReachesBus();
  void TakeNumber(QDBusPendingCallWatcher* call);

  QDBusConnection bus_{QString()};  // taken by the first notice
  QDBusPendingCallWatcher* coming_ = nullptr;
  uint number_ = 0;  // 0 for none
  Answered answered_;
};

}  // namespace desktop
