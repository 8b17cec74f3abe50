// SPDX-License-Identifier: GPL-3.0-or-later
// From a full mailbox into the game file, over the local post office and real files. Aim: 1,000
// waiting move mails in 30 s.
#include <benchmark/benchmark.h>

#include "mail_player.h"

namespace {

constexpr const char* anna = "anna@example.org";

/// She sends all her mail to herself.
void SendGame(int number) {
  platform::MAPIMessages& mail = *platform::TheDesktop().MMess;
  const auto [subject, text] = GameMail(number);
  mail.MsgIndex(-1);
  while (mail.RecipCount() > 0) {
    mail.RecipIndex(0);
    mail.DeleteRecipient();
  }
  mail.RecipAddress(anna);
  mail.RecipType(1);
  mail.MsgSubject(subject);
  mail.MsgNoteText(text);
  mail.Send();
}

void Retrieve(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    {
      const MailPlayer player(
          MailSettings{{"MyName", "Anna"}, {"MyAddress", anna}, {"PostFolder", "post/"}});
      for (int i = 1; i <= state.range(0); ++i) SendGame(i);
      state.ResumeTiming();
      const auto arrivals = mail::LogonAndCollect(false, false, true);
      state.PauseTiming();
      state.counters["mails"] = static_cast<double>(arrivals.size());
    }
    state.ResumeTiming();
  }
}
BENCHMARK(Retrieve)->Arg(1000)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

}  // namespace
