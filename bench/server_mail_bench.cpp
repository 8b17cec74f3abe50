// SPDX-License-Identifier: GPL-3.0-or-later
// From an Inbox on a mail server into the game file, over TLS and a real server on this machine.
// Aims: 1,000 waiting move mails in 3 s; 50,000 other mails in the Inbox cost a retrieve at most
// 1 s more; a tick that finds nothing takes 20 ms. And out of the outbox to the server, at its
// pace.
#include <QCoreApplication>
#include <benchmark/benchmark.h>

#include "letters/mail_text.h"
#include "letters/message_ids.h"
#include "mail_player.h"
#include "mail_servers/the_servers.h"
#include "post/outbox.h"

namespace {

using servers::Told;

MailSettings Settings() {
  return {{"MailKind", "Imap"},
          {"MyName", "Anna"},
          {"MyAddress", Told("MAIL_USER")},
          {"UserName", Told("MAIL_USER")},
          {"ImapHost", Told("GOOD_HOST")},
          {"ImapPort", Told("IMAPS_PORT")},
          {"SmtpHost", Told("GOOD_HOST")},
          {"SmtpPort", Told("SMTPS_PORT")}};
}

class ServerPlayer : public MailPlayer {
 public:
  ServerPlayer()
      : MailPlayer(Settings(), Told("MAIL_USER") + "@" + Told("GOOD_HOST"), Told("MAIL_PASSWORD")) {
  }
};

servers::Box Inbox() { return servers::Box(Told("MAIL_USER")); }

void DeliverOthers(std::int64_t count) {
  for (int i = 0; i < count; ++i) {
    Inbox().Put("From: Shop <shop@example.com>\nSubject: Offer " + std::to_string(i) +
                "\n\nBuy!\n");
  }
}

void DeliverGames(std::int64_t count) {
  for (int i = 1; i <= count; ++i) {
    const auto [subject, text] = GameMail(i);
    Inbox().Put(letters::ComposeMail(
        {{"Bob", "bob@example.org"}, {{"", Told("MAIL_USER")}}, subject, text}));
  }
}

/// Once each: arguments are the move mails that wait, and the other mails.
void Retrieve(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    {
      servers::Empty();
      DeliverOthers(state.range(1));
      const ServerPlayer player;
      mail::LogonAndCollect(false, false, true);  // the server makes its index
      DeliverGames(state.range(0));
      state.ResumeTiming();
      const auto arrivals = mail::LogonAndCollect(false, false, true);
      state.PauseTiming();
      state.counters["mails"] = Saved(arrivals);
    }
    state.ResumeTiming();
  }
}
BENCHMARK(Retrieve)
    ->ArgNames({"moves", "others"})
    ->Args({1000, 0})
    ->Args({10, 0})
    ->Args({1, 50000})
    ->Args({10, 50000})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();

void PutIntoOutbox(std::int64_t count) {
  post::Outbox outbox(post::OutboxFolder(Told("MAIL_USER")));
  const letters::Mailbox me{"Anna", Told("MAIL_USER")};
  for (int i = 1; i <= count; ++i) {
    const auto [subject, text] = GameMail(i);
    letters::OutgoingMail mail{me, {me}, subject, text, std::to_string(i)};
    mail.messageID = letters::NewMessageID(mail);
    outbox.Add(mail, 0);
  }
}

void SendWhatWaits(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    {
      servers::Empty();
      const ServerPlayer player;
      mail::MailLogoff(false);
      PutIntoOutbox(state.range(0));
      mail::MailLogon(false);
      platform::MailState& mails = *platform::TheSeams().mailState;
      state.ResumeTiming();
      mails.DeliverNow();
      platform::TheSeams().events->RunUntil([&mails] { return mails.OnItsWay().empty(); });
      state.PauseTiming();
    }
    state.ResumeTiming();
  }
}
BENCHMARK(SendWhatWaits)->Arg(500)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

void IdleTick(benchmark::State& state) {
  servers::Empty();
  DeliverOthers(state.range(0));
  const ServerPlayer player;
  platform::Seams& desktop = platform::TheSeams();
  desktop.MMess->FetchUnreadOnly(true);
  desktop.MMess->Fetch();  // the server makes its index
  for (auto _ : state) {
    bool ready = false;
    desktop.MMess->Prefetch([&ready] { ready = true; });
    desktop.events->RunUntil([&ready] { return ready; });
    desktop.MMess->Fetch();
  }
  state.counters["mails"] = desktop.MMess->MsgCount();
}
BENCHMARK(IdleTick)
    ->ArgName("others")
    ->Arg(0)
    ->Arg(50000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace

int main(int count, char** arguments) {
  const QCoreApplication application(count, arguments);
  benchmark::Initialize(&count, arguments);
  benchmark::RunSpecifiedBenchmarks();
}
