// SPDX-License-Identifier: GPL-3.0-or-later
// The verbs of mails that are on their way.
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <map>
#include <optional>

#include "cli/delivery_states.h"
#include "cli/mail_service.h"
#include "cli/verbs.h"
#include "mail/mail_memory.h"
#include "mail/sending.h"
#include "platform/conversions.h"
#include "platform/process_state.h"
#include "platform/seams.h"
#include "store/queries.h"

namespace cli {
namespace {

using platform::MailConnection;
using platform::MailLink;
using platform::MailOnItsWay;
using platform::MailStage;

constexpr std::chrono::seconds patience(90);

platform::MailState& State() { return *platform::TheSeams().mailState; }

bool IsAnySending() {
  const auto mails = State().OnItsWay();
  return std::any_of(mails.begin(), mails.end(),
                     [](const auto& mail) { return mail.stage == MailStage::Sending; });
}

std::map<std::string, std::int32_t> GamesByThread() {
  store::GameRecords games;
  if (!store::SelectGames(games, {})) throw Refusal("The games can't be read.");
  std::map<std::string, std::int32_t> byThread;
  for (const auto& game : games) {
    if (!game.GAME_VS_COMPUTER) byThread[mail::ThreadOf(game)] = game.GAME_ID;
  }
  return byThread;
}

std::optional<std::int32_t> GameOf(const std::string& thread,
                                   const std::map<std::string, std::int32_t>& games) {
  const auto found = games.find(thread);
  return found == games.end() ? std::nullopt : std::optional(found->second);
}

void PrintMail(std::optional<std::int32_t> game, const std::string& state, std::optional<int> tries,
               const std::string& reason) {
  JsonObject()
      .Add("game", game)
      .Add("state", state)
      .Add("tries", tries)
      .Add("reason", reason)
      .Print();
}

std::vector<std::string> WaitingThreads() {
  std::vector<std::string> threads;
  for (const MailOnItsWay& mail : State().OnItsWay()) {
    if (mail.stage != MailStage::Failed) threads.push_back(mail.thread);
  }
  return threads;
}

/// Those of `before` that aren't there any more.
void PrintSent(const std::vector<std::string>& before) {
  const auto games = GamesByThread();
  const auto mails = State().OnItsWay();
  for (const std::string& thread : before) {
    const bool isThere = std::ranges::any_of(
        mails, [&thread](const MailOnItsWay& mail) { return mail.thread == thread; });
    if (!isThere) PrintMail(GameOf(thread, games), "sent", {}, "");
  }
}

/// What is on its way, and what a mail server has sent back.
void PrintMails() {
  const auto games = GamesByThread();
  for (const MailOnItsWay& mail : State().OnItsWay()) {
    PrintMail(GameOf(mail.thread, games), NameOf(mail.stage), mail.tries, mail.reason);
  }
  for (const auto& [thread, reason] : mail::LoadMailMemory().undelivered) {
    PrintMail(GameOf(thread, games), "bounced", {}, reason);
  }
}

Json TimeOrNull(std::int64_t seconds) {
  return Json{seconds == 0 ? "null" : Quoted(UtcText(seconds))};
}

void PrintConnection() {
  const MailConnection connection = State().Connection();
  const auto mails = State().OnItsWay();
  const auto failed =
      static_cast<int>(std::count_if(mails.begin(), mails.end(), [](const auto& mail) {
        return mail.stage == MailStage::Failed;
      }));
  JsonObject()
      .Add("connected", connection.link == MailLink::Connected)
      .Add("since", TimeOrNull(connection.since))
      .Add("next", TimeOrNull(connection.nextTry))
      .Add("waiting", static_cast<int>(mails.size()) - failed)
      .Add("failed", failed)
      .Print();
}

void RequireAccount(CollectedMessages& messages) {
  if (!platform::Process().Offline) return;
  throw Refusal(WithServiceReason(messages.TakeSentence("There is no mail account.")));
}

}  // namespace

std::string NameOf(MailStage stage) {
  static constexpr const char* names[] = {"sending", "waiting", "perhaps", "failed"};
  return names[static_cast<std::size_t>(stage)];
}

/// Asked again at each change, and when the time is over.
void AwaitDelivery() {
  using Clock = std::chrono::steady_clock;
  const Clock::time_point end = Clock::now() + patience;
  platform::Events& events = *platform::TheSeams().events;
  QTimer over;
  QObject::connect(&over, &QTimer::timeout, &over, [&events] { events.Wake(); });
  over.start(std::chrono::seconds(1));
  events.RunUntil([end] { return !IsAnySending() || Clock::now() >= end; });
}

bool MailStatus(const Call& call) {
  LogOn();
  PrintConnection();
  PrintMails();
  RequireAccount(call.messages);
  return true;
}

bool MailDeliver(const Call& call) {
  LogOn();
  RequireAccount(call.messages);
  const auto before = WaitingThreads();
  State().DeliverNow();
  AwaitDelivery();
  PrintSent(before);
  PrintMails();
  return true;
}

std::string UtcText(std::int64_t seconds) {
  using namespace std::chrono;
  const sys_seconds time{std::chrono::seconds(seconds)};
  const auto day = floor<days>(time);
  const year_month_day date(day);
  const hh_mm_ss clock(time - day);
  const auto two = [](auto number) { return platform::ZeroFilled(static_cast<int>(number), 2); };
  return std::to_string(static_cast<int>(date.year())) + '-' + two(unsigned{date.month()}) + '-' +
         two(unsigned{date.day()}) + 'T' + two(clock.hours().count()) + ':' +
         two(clock.minutes().count()) + ':' + two(clock.seconds().count()) + 'Z';
}

}  // namespace cli
