// SPDX-License-Identifier: GPL-3.0-or-later
// From a full mailbox into the game file, over the local post office and real files, and how long a
// click waits while a mail server lets everybody wait. Aims: 1,000 waiting move mails in 30 s; a
// click in 50 ms; the page beside a move in 20 ms.
#include <QCoreApplication>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <future>
#include <thread>

#include "mail_player.h"
#include "post/rude_server.h"
#include "real_games.h"
#include "store/saving.h"

namespace {

constexpr const char* anna = "anna@example.org";

/// She sends all her mail to herself.
void SendGame(int number) {
  platform::MAPIMessages& mail = *platform::TheSeams().MMess;
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
      const std::string post = EmptyProgramFolder().string() + "/post/";
      const auto account = [&post](const char* address) {
        return MailSettings{{"MailKind", "Post"}, {"MyAddress", address}, {"PostFolder", post}};
      };
      {
        const MailPlayer bob(account("bob@example.org"));
        for (int i = 1; i <= state.range(0); ++i) SendGame(i);
      }
      const MailPlayer player(account(anna));
      state.ResumeTiming();
      const auto arrivals = mail::LogonAndCollect(false, false, true);
      state.PauseTiming();
      state.counters["mails"] = Saved(arrivals);
    }
    state.ResumeTiming();
  }
}
BENCHMARK(Retrieve)->Arg(1000)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

/// What Send takes more where a page goes with the move, in a game of 80 entries.
void PageBesideAMove(benchmark::State& state) {
  const MailPlayer player(MailSettings{{"MailKind", "Post"}, {"MyAddress", anna}});
  platform::Process().ProgramFolder = PROGRAM_FOLDER "/";
  store::GameRecord game;
  game.GAME_ID = 1;
  game.GAME_HOST = true;
  store::MoveRecords moves;
  for (int i = 1; i <= 80; ++i) {
    const auto beginning = bench::realGames[0].substr(static_cast<std::size_t>(i - 1) % 31 * 5, 4);
    moves.push_back({i, std::string(beginning), "Nf3", "What do you say to this?"});
  }
  store::SaveGame(game, moves);
  for (auto _ : state) {
    const platform::MovePage page = platform::TheSeams().movePages->PageOf(1);
    state.counters["html"] = static_cast<double>(page.html.size());
    state.counters["picture"] = static_cast<double>(page.picture.size());
  }
}
BENCHMARK(PageBesideAMove)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Milliseconds until the window's thread has seen a click.
double TimeOfClick(platform::Events& events) {
  const auto clicked = std::chrono::steady_clock::now();
  std::promise<double> seen;
  events.Post([clicked, &seen] {
    seen.set_value(
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - clicked)
            .count());
  });
  return seen.get_future().get();
}

/// The times are in the counters: what the loop takes is the server's stalling.
void ClickWhileTheServerStalls(benchmark::State& state) {
  RudeServer server({{"", "* OK ready\n"},
                     {"CAPABILITY", "* CAPABILITY IMAP4rev1\n$ OK done\n"},
                     {"LOGIN", "$ OK done\n"},
                     {"SELECT", "* OK [UIDVALIDITY 1] fine\n$ OK done\n"},
                     {"NOOP", hang},
                     {"UID SEARCH", "* SEARCH\n$ OK done\n"}});
  const MailPlayer player({{"MailKind", "Imap"},
                           {"MyAddress", anna},
                           {"UserName", anna},
                           {"ImapHost", "127.0.0.1"},
                           {"ImapPort", std::to_string(server.Port())},
                           {"ImapSecurity", "None"}},
                          std::string(anna) + "@127.0.0.1", "secret");
  platform::Seams& desktop = platform::TheSeams();
  for (auto _ : state) {
    std::thread clicking([&] {
      while (server.Count("NOOP") == 0) std::this_thread::yield();
      double sum = 0;
      double longest = 0;
      constexpr int clicks = 500;
      for (int i = 0; i < clicks; ++i) {
        const double time = TimeOfClick(*desktop.events);
        sum += time;
        longest = std::max(longest, time);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
      }
      state.counters["mean_ms"] = sum / clicks;
      state.counters["longest_ms"] = longest;
      server.Answer("NOOP", "$ OK done\n");
      server.GoOn();
    });
    desktop.MMess->Fetch();
    clicking.join();
  }
}
BENCHMARK(ClickWhileTheServerStalls)->Iterations(1)->UseRealTime();

}  // namespace

int main(int count, char** arguments) {
  const QCoreApplication application(count, arguments);
  benchmark::Initialize(&count, arguments);
  benchmark::RunSpecifiedBenchmarks();
}
