// SPDX-License-Identifier: GPL-3.0-or-later
// The polling tick over the real mail service and the real event loop: whatever the server does,
// the windows live.
#include "platform/polling.h"

#include <QPushButton>

#include <atomic>
#include <chrono>
#include <future>

#include "desktop/qt_events.h"
#include "fakes/memory_passwords.h"
#include "platform/registry.h"
#include "post/mail_service.h"
#include "shell/polling_loop.h"
#include "store/queries.h"
#include "ui/program/system_tray.h"
#include "ui/program/waiting_windows.h"
#include "ui/ui_fixture.h"

namespace ui {
namespace {

constexpr const char* moveText =
    "<<TARVOLENIX:0|5|100320261200|New one|10/03/2026|Dora||False||1|4244|d4|:TARVOLENIX>>";

/// A server with one move mail that keeps everybody waiting until it may answer, or for very long.
class StallingTransport : public post::MailTransport {
 public:
  StallingTransport(std::shared_future<void> gate, std::atomic<bool>& hasAnswered)
      : gate_(std::move(gate)), hasAnswered_(hasAnswered) {}

  void Open() override {}
  std::vector<letters::FetchedMail> List(bool) override {
    gate_.wait_for(std::chrono::seconds(10));
    hasAnswered_ = true;
    return {{"1", "Tarvolenix : d4", "Dora", "dora@example.org", moveText, false}};
  }
  void MarkRead(const std::string&) override {}
  void Remove(const std::string&) override {}
  void Send(const letters::OutgoingMail&) override {}
  void Close() override {}

 private:
  std::shared_future<void> gate_;
  std::atomic<bool>& hasAnswered_;
};

TEST(PollingTest, AClickIsHandledBeforeTheServerAnswersTheTick) {
  const fakes::FakeDesktop desktop;
  desktop::QtEvents events;
  fakes::MemoryPasswords passwords;
  std::promise<void> answer;
  std::atomic<bool> hasAnswered = false;
  post::MailService service(
      events, passwords, {},
      [gate = answer.get_future().share(), &hasAnswered](const auto&, const auto&) {
        return std::make_unique<StallingTransport>(gate, hasAnswered);
      });
  platform::TheSeams().events = &events;
  platform::TheSeams().MSess = &service;
  platform::TheSeams().MMess = &service;
  platform::WriteRegistry(platform::mailSection, {{"MailKind", "Post"}});
  service.SignOn();
  Process().Offline = false;
  platform::Settings().NotificationMethod = 0;
  SystemTray tray([](const char*) {}, [] {}, [] { return true; });
  Process().StartupComplete = true;
  Process().CheckTimer.Interval = 5;
  platform::SetCheckTimer(true);

  int clicks = 0;
  QPushButton button;
  QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
  // The timer of the hidden window makes the ticks, several of them while nothing comes.
  QTest::qWait(20);
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
  QTest::qWait(20);
  EXPECT_FALSE(hasAnswered);
  answer.set_value();
  const auto games = [] {
    store::GameRecords records;
    store::SelectGames(records, {});
    return records.size();
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return games() == 1; }));
  EXPECT_EQ(tray.Icon().Tip(), u"Tarvolenix - New move arrived"_s);
  platform::SetCheckTimer(false);
}

TEST(WaitingTest, AWaitTurnsTheWindowsOffAndSaysSoWhenItIsLong) {
  const fakes::FakeDesktop desktop;
  desktop::QtEvents events;
  WaitingWindows waiting;
  events.OnWait([&](bool waits) { waiting.Wait(waits); });
  QWidget window;
  QWidget unshown;
  window.show();
  EXPECT_FALSE(events.IsWaiting());
  events.RunUntil([] { return true; });
  bool done = false;
  QTimer::singleShot(0, &window, [&] {
    EXPECT_TRUE(events.IsWaiting());
    EXPECT_FALSE(window.isEnabled());
    EXPECT_TRUE(unshown.isEnabled());
    EXPECT_TRUE(desktop.boxes.statusTexts.empty()) << "not for a moment";
  });
  QTimer ticks;
  QObject::connect(&ticks, &QTimer::timeout, [&] { done = !desktop.boxes.statusTexts.empty(); });
  ticks.start(20);
  events.RunUntil([&] { return done; });
  EXPECT_TRUE(window.isEnabled());
  EXPECT_EQ(desktop.boxes.statusTexts,
            (std::vector<std::string>{"Waiting for the mail service...", ""}));
}

}  // namespace
}  // namespace ui
