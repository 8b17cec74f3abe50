// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/qt_events.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <future>

#include "post/mail_thread.h"

namespace {

TEST(QtEventsTest, AWaitOutlivesTheEndOfTheApplication) {
  int argumentCount = 1;
  char name[] = "test";
  char* arguments[] = {name, nullptr};
  QCoreApplication application(argumentCount, arguments);
  desktop::QtEvents events;
  post::MailThread thread(events);
  std::promise<void> quitting;
  QMetaObject::invokeMethod(
      &application,
      [&] {
        QCoreApplication::quit();
        quitting.set_value();
      },
      Qt::QueuedConnection);
  bool done = false;
  events.Post([&] {
    thread.Run([&] {
      quitting.get_future().wait();
      done = true;
    });
  });
  application.exec();
  events.RunUntil([&] { return done; });
  EXPECT_TRUE(done);
}

}  // namespace
