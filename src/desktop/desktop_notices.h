// SPDX-License-Identifier: GPL-3.0-or-later
// Notices through the session bus: the interface org.freedesktop.Notifications. A notice has the
// actions "Play" and "Later" and is known by the number that the desktop's daemon gave it. Its text
// is escaped unless the daemon, which is asked once, shows it as it is. No bus, no daemon, or one
// that dies or refuses: nothing is shown then.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <optional>

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
  void TakeToken(uint number, const QString& token);
  void TakeAction(uint number, const QString& action);
  void Forget(uint number, uint reason);

 private:
  bool ReachesBus();
  void ForgetDaemon();
  QDBusPendingCallWatcher* Await(const QDBusMessage& call);
  void AskWhatItShows(const platform::Notice& notice);
  void Send(const platform::Notice& notice);
  void TakeNumber(QDBusPendingCallWatcher* call);

  QDBusConnection bus_{QString()};  // taken by the first notice
  QDBusPendingCallWatcher* coming_ = nullptr;
  std::optional<bool> showsMarkup_;  // once the daemon has told
  uint number_ = 0;                  // 0 for none
  Answered answered_;
};

}  // namespace desktop
