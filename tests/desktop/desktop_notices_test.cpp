// SPDX-License-Identifier: GPL-3.0-or-later
// Notices over a session bus of the test's own, shown by a small daemon, or by none; and who shows
// the icons of programs there.
#include "desktop/desktop_notices.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTest>
#include <QVariantMap>
#include <gtest/gtest.h>

#include <future>

#include "desktop/activation.h"
#include "desktop/tray_host.h"

namespace {

using namespace std::chrono_literals;

class Daemon : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

 public Q_SLOTS:
  uint Notify(const QString&, uint, const QString&, const QString&, const QString& body,
              const QStringList& offered, const QVariantMap&, int) {
    shown = body;
    captions = offered;
    return ++number;
  }
  QStringList GetCapabilities() { return abilities; }
  void CloseNotification(uint) { shown.clear(); }

 Q_SIGNALS:
  void ActivationToken(uint number, const QString& token);
  void ActionInvoked(uint number, const QString& action);
  void NotificationClosed(uint number, uint reason);

 public:
  QStringList abilities{QStringLiteral("actions"), QStringLiteral("body-markup")};
  QString shown;
  QStringList captions;
  uint number = 0;
};

class Watcher : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
  Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER hasHost)

 public:
  bool hasHost = true;
};

void ExpectTrayHostsAreSeen(QDBusConnection desktop) {
  const auto isThere = [] {
    auto asked = std::async(std::launch::async, desktop::TrayHostIsThere);
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked.wait_for(0s) == std::future_status::ready; }));
    return asked.get();
  };
  const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");
  Watcher watcher;
  desktop.registerObject(QStringLiteral("/StatusNotifierWatcher"), &watcher,
                         QDBusConnection::ExportAllProperties);
  EXPECT_FALSE(isThere());
  ASSERT_TRUE(desktop.registerService(service));
  EXPECT_TRUE(isThere()) << "though it came after the first look";
  EXPECT_FALSE(desktop::TrayHostIsThere()) << "it hangs";
  watcher.hasHost = false;
  EXPECT_FALSE(isThere());
  watcher.hasHost = true;
  desktop.unregisterService(service);
  EXPECT_FALSE(isThere()) << "it has gone";
}

/// QtDBus asks for the session's bus once: all that there is to say of it is one test.
TEST(DesktopNoticesTest, AreAnsweredOverTheBusAndSilentWithoutADaemon) {
  int argumentCount = 1;
  char name[] = "test";
  char* arguments[] = {name, nullptr};
  QCoreApplication application(argumentCount, arguments);
  QProcess bus;
  bus.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                            QStringLiteral("--print-address")});
  ASSERT_TRUE(bus.waitForReadyRead()) << "the package dbus-daemon is missing";
  const QByteArray address = bus.readLine().trimmed();
  qputenv("DBUS_SESSION_BUS_ADDRESS", address);

  desktop::DesktopNotices notices;
  std::vector<platform::NotifyChoice> answers;
  const auto show = [&](const char* text) {
    notices.Show({"A new move", text}, [&](auto choice) { answers.push_back(choice); });
  };
  show("nobody shows it");
  notices.Withdraw();

  QDBusConnection desktop =
      QDBusConnection::connectToBus(QString::fromLatin1(address), QStringLiteral("daemon"));
  const QString service = QStringLiteral("org.freedesktop.Notifications");
  ExpectTrayHostsAreSeen(desktop);
  Daemon daemon;
  desktop.registerObject(QStringLiteral("/org/freedesktop/Notifications"), &daemon,
                         QDBusConnection::ExportAllContents);
  ASSERT_TRUE(desktop.registerService(service));
  const auto showsSoon = [&](const char* text) {
    return QTest::qWaitFor([&] { return daemon.shown == QLatin1StringView(text); });
  };

  const struct {
    const char* action;
    std::vector<platform::NotifyChoice> answers;
  } rows[] = {{"play", {platform::NotifyChoice::Play}},
              {"later", {platform::NotifyChoice::Later}},
              {"unheard of", {}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.action);
    answers.clear();
    show("<b>Anna</b> & you");
    ASSERT_TRUE(showsSoon("&lt;b&gt;Anna&lt;/b&gt; &amp; you")) << "it is no markup";
    EXPECT_TRUE(daemon.captions.contains(QLatin1StringView("Play")) &&
                daemon.captions.contains(QLatin1StringView("Later")));
    QTest::qWait(50);  // its number comes behind it
    for (const uint number : {daemon.number + 1, daemon.number, daemon.number}) {
      Q_EMIT daemon.ActivationToken(number, QString::number(number));
      Q_EMIT daemon.ActionInvoked(number, QLatin1StringView(row.action));
    }
    QTest::qWait(50);
    EXPECT_EQ(answers, row.answers) << "once, and of the one that is shown";
    EXPECT_EQ(desktop::OwnActivation(), QByteArray::number(daemon.number));
    notices.Withdraw();
    ASSERT_TRUE(showsSoon("")) << "whoever has answered needs it no more";
  }

  answers.clear();
  show("withdrawn");
  notices.Withdraw();
  ASSERT_TRUE(QTest::qWaitFor([&] { return daemon.number == 4; }));
  ASSERT_TRUE(showsSoon("")) << "before anybody knew its number";
  show("closed by the user");
  ASSERT_TRUE(showsSoon("closed by the user"));
  QTest::qWait(50);
  Q_EMIT daemon.NotificationClosed(daemon.number, 2);
  QTest::qWait(50);
  Q_EMIT daemon.ActionInvoked(daemon.number, QStringLiteral("play"));

  show("of the daemon before");
  ASSERT_TRUE(showsSoon("of the daemon before"));
  QTest::qWait(50);
  desktop.unregisterService(service);
  ASSERT_TRUE(desktop.registerService(service));
  QTest::qWait(50);
  Q_EMIT daemon.ActionInvoked(daemon.number, QStringLiteral("play"));  // another program's notice

  daemon.abilities.removeLast();
  desktop::DesktopNotices plain;
  plain.Show({"A new move", "<b>Anna</b> & you"}, [](auto) {});
  ASSERT_TRUE(showsSoon("<b>Anna</b> & you")) << "a daemon without markup shows what it gets";

  desktop.unregisterService(service);
  show("the daemon has died");
  bus.terminate();
  EXPECT_TRUE(bus.waitForFinished());
  show("the bus has died");
  QTest::qWait(50);
  EXPECT_TRUE(answers.empty());
}

}  // namespace

#include "desktop_notices_test.moc"
