// SPDX-License-Identifier: GPL-3.0-or-later
// From a full mailbox into the game file, over the local post office and real files. Aim: 1,000
// waiting move mails in 30 s.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include "desktop/real_desktop.h"
#include "mail/mail_session.h"
#include "mail/move_mail.h"
#include "platform/desktop.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "rules/board_text.h"

namespace {

namespace fs = std::filesystem;

class SilentBoxes : public platform::MessageBoxes {
 public:
  bool Ask(const platform::Message&) override { return true; }
  void ShowStatus(const std::string&) override {}
  void HideStatus() override {}
  void PlainBox(const std::string&, const std::string&) override {}
};

fs::path EmptyProgramFolder() {
  std::string pattern = (fs::temp_directory_path() / "mail_bench_XXXXXX").string();
  fs::path folder = mkdtemp(pattern.data());
  fs::create_directory(folder / "Data");
  // A settings file in the program folder is the one that counts.
  std::ofstream(folder / "Tarvolenix.conf");
  return folder;
}

/// A player who sends all his mail to himself.
class Player {
 public:
  Player() : folder_(EmptyProgramFolder()), desktop_(folder_.string() + "/") {
    platform::SetupGlobalVariables(folder_.string(), "-nosound");
    platform::TheDesktop().messageBoxes = &boxes_;
    const auto set = [](const char* name, const std::string& value) {
      platform::WriteRegistry(platform::mailSection, name, value, true);
    };
    set("MyName", "Anna");
    set("MyAddress", "anna@example.org");
    set("PostFolder", (folder_ / "post/").string());
    mail::MailLogon(false);
  }
  ~Player() {
    mail::MailLogoff(false);
    fs::remove_all(folder_);
  }
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  /// The first mail of a game that has run for 20 moves.
  static void SendGame(int number) {
    store::GameRecord game;
    game.GAME_ID = number;
    game.GAME_DATESTAMP = "090320260805";
    game.GAME_NAME = "Game " + std::to_string(number);
    game.GAME_DATE = "09/03/2026";
    game.GAME_BLACK_NAME = "Anna";
    game.GAME_HOST = true;
    game.GAME_START_BOARD = rules::normalStart;
    store::MoveRecords moves;
    for (int i = 1; i <= 20; ++i) moves.push_back({i, "7163", "Nf3", "What do you say to this?"});
    platform::MAPIMessages& mail = *platform::TheDesktop().MMess;
    mail.MsgIndex(-1);
    while (mail.RecipCount() > 0) {
      mail.RecipIndex(0);
      mail.DeleteRecipient();
    }
    mail.RecipAddress("anna@example.org");
    mail.RecipType(1);
    mail.MsgSubject(mail::BuildMailSubject(moves));
    mail.MsgNoteText(mail::BuildMailBody(game, moves));
    mail.Send();
  }

 private:
  fs::path folder_;
  desktop::RealDesktop desktop_;
  SilentBoxes boxes_;
};

void Retrieve(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    {
      const Player player;
      for (int i = 1; i <= state.range(0); ++i) Player::SendGame(i);
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
