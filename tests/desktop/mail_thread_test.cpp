// SPDX-License-Identifier: GPL-3.0-or-later
// The mail thread over both kinds of event loop.
#include "desktop/mail_thread.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <stdexcept>
#include <string>

#include "desktop/plain_events.h"
#include "desktop/qt_events.h"

namespace {

using desktop::MailThread;

/// An event loop with what it needs.
struct Loop {
  virtual ~Loop() = default;
  virtual platform::Events& Events() = 0;
};

struct PlainLoop : Loop {
  platform::Events& Events() override { return events; }
  desktop::PlainEvents events;
};

struct QtLoop : Loop {
  platform::Events& Events() override { return events; }
  int argumentCount = 1;
  char name[5] = "test";
  char* arguments[2] = {name, nullptr};
  QCoreApplication application{argumentCount, arguments};
  desktop::QtEvents events;
};

template <typename LoopType>
class MailThreadTest : public testing::Test {
 protected:
  LoopType loop_;
  platform::Events& events_ = loop_.Events();
};

using Loops = testing::Types<PlainLoop, QtLoop>;
TYPED_TEST_SUITE(MailThreadTest, Loops);

TYPED_TEST(MailThreadTest, WorksInOrderOnItsOwnThreadWhileEventsRun) {
  MailThread thread(this->events_);
  std::string order;
  std::promise<void> eventRan;
  std::thread::id worker;
  thread.Post([&] { order += 'a'; });
  thread.Post([&] {
    this->events_.Post([&] { eventRan.set_value(); });
    eventRan.get_future().wait();  // would never come if the caller didn't let events run
    order += 'b';
  });
  thread.Run([&] {
    worker = std::this_thread::get_id();
    order += 'c';
  });
  EXPECT_EQ(order, "abc");
  EXPECT_NE(worker, std::this_thread::get_id());
}

TYPED_TEST(MailThreadTest, RunRaisesItsOwnFailureAndFlushTheFirstPostedOneOnce) {
  MailThread thread(this->events_);
  thread.Post([] { throw std::runtime_error("first"); });
  thread.Post([] { throw std::runtime_error("second"); });
  EXPECT_THROW(thread.Run([] { throw std::out_of_range("mine"); }), std::out_of_range);
  EXPECT_NO_THROW(thread.Run([] {}));
  try {
    thread.Flush();
    ADD_FAILURE() << "nothing raised";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "first");
  }
  EXPECT_NO_THROW(thread.Flush());
}

TYPED_TEST(MailThreadTest, WaitsNest) {
  MailThread thread(this->events_);
  std::string order;
  this->events_.Post([&] {
    thread.Run([&] { order += 'i'; });
    order += 'I';
  });
  std::atomic<bool> inner = false;
  this->events_.Post([&] { inner = true; });
  thread.Run([&] { order += 'o'; });
  this->events_.RunUntil([&] { return inner.load(); });
  EXPECT_EQ(order, "oiI");
}

TYPED_TEST(MailThreadTest, EndsBehindTheItemThatItWorksOn) {
  std::atomic<int> done = 0;
  {
    MailThread thread(this->events_);
    std::promise<void> started;
    thread.Post([&] {
      started.set_value();
      ++done;
    });
    started.get_future().wait();
  }
  EXPECT_EQ(done, 1);
}

TEST(QtEventsTest, AWaitOutlivesTheEndOfTheApplication) {
  QtLoop loop;
  MailThread thread(loop.events);
  std::promise<void> quitting;
  QMetaObject::invokeMethod(
      &loop.application,
      [&] {
        QCoreApplication::quit();
        quitting.set_value();
      },
      Qt::QueuedConnection);
  bool done = false;
  loop.events.Post([&] {
    thread.Run([&] {
      quitting.get_future().wait();
      done = true;
    });
  });
  loop.application.exec();
  loop.events.RunUntil([&] { return done; });
  EXPECT_TRUE(done);
}

}  // namespace
