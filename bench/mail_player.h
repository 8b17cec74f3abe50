// SPDX-License-Identifier: GPL-3.0-or-later
// A player with a new program folder, for the benchmarks that get moves by mail.
#pragma once

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "contacts/contacts_book.h"
#include "mail/mail_session.h"
#include "mail/move_mail.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/seams.h"
#include "rules/board_text.h"
#include "wiring/real_seams.h"

class SilentBoxes : public platform::MessageBoxes {
 public:
  bool Ask(const platform::Message&) override { return true; }
  void ShowStatus(const std::string&) override {}
  void HideStatus() override {}
  void PlainBox(platform::PlainIcon, const std::string&, const std::string&) override {}
};

inline std::filesystem::path EmptyProgramFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "mail_bench_XXXXXX").string();
  std::filesystem::path folder = mkdtemp(pattern.data());
  std::filesystem::create_directory(folder / "Data");
  // A settings file in the program folder is the one that counts.
  std::ofstream(folder / "Tarvolenix.conf");
  return folder;
}

using MailSettings = std::map<std::string, std::string>;

/// Signed on for its lifetime. Knows Bob: of strangers only some begin games at a time.
class MailPlayer {
 public:
  explicit MailPlayer(const MailSettings& mailSettings, const std::string& passwordKey = {},
                      const std::string& password = {})
      : folder_(EmptyProgramFolder()), desktop_((folder_ / "Tarvolenix.conf").string()) {
    platform::SetupGlobalVariables(folder_.string(), "-nosound");
    platform::TheSeams().messageBoxes = &boxes_;
    platform::TheSeams().addressBook = &book_;
    book_.Add({"Bob", {"bob@example.org"}});
    for (const auto& [name, value] : mailSettings) {
      platform::WriteRegistry(platform::mailSection, name, value, true);
    }
    if (!passwordKey.empty()) desktop_.KeptPasswords().Write(passwordKey, password);
    mail::MailLogon(false);
  }
  ~MailPlayer() {
    mail::MailLogoff(false);
    std::filesystem::remove_all(folder_);
  }
  MailPlayer(const MailPlayer&) = delete;
  MailPlayer& operator=(const MailPlayer&) = delete;

 private:
  std::filesystem::path folder_;
  wiring::RealSeams desktop_;
  SilentBoxes boxes_;
  contacts::ContactsBook book_{[] { return std::vector<platform::Recipient>(); }};
};

/// How many mails are in the game file.
inline double Saved(const std::vector<mail::MoveArrival>& arrivals) {
  return static_cast<double>(
      std::ranges::count_if(arrivals, [](const auto& arrival) { return arrival.ok; }));
}

struct MoveMail {
  std::string subject;
  std::string text;
};

/// The first mail of a game that has run for 20 moves.
inline MoveMail GameMail(int number) {
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
  return {mail::BuildMailSubject(moves), mail::BuildMailBody(game, moves)};
}
