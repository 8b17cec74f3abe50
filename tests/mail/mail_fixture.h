// SPDX-License-Identifier: GPL-3.0-or-later
// The small world of the mail tests: one game between Anna, who created it as number 7 and plays
// White, and Bernd, whose copy is number 12.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "fakes/fake_desktop.h"
#include "mail/move_mail.h"
#include "platform/process_state.h"
#include "store/saving.h"

namespace mail {

class MailFixture : public testing::Test {
 protected:
  static store::GameRecord AnnasGame(std::int32_t opponentsID = 0) {
    store::GameRecord game = BerndsGame();
    game.GAME_ID = 7;
    game.GAME_OPPONENTS_ID = opponentsID;
    game.GAME_OPPONENTS_EMAIL = "bernd@example.org";
    game.GAME_OPPONENTS_NAME = "Bernd";
    game.GAME_WHITE_NAME = game.GAME_START_BOARD = "";
    game.GAME_HOST = true;
    return game;
  }
  static store::GameRecord BerndsGame() {
    return {
        12,    "090320260805", 7, "Sunday game", "09/03/2026", "anna@example.org", "Anna", "Bernd",
        false, "Anna",         2, false,         ";;;;;;;"};
  }
  static store::MoveRecords Moves(int count) {
    const store::MoveRecords all = {
        {1, "5254", "e4", "Good luck!"}, {2, "5755", "e5", ""}, {3, "7163", "Nf3", "für dich"}};
    return {all.begin(), all.begin() + count};
  }

  static std::string FromAnna(int moves, std::int32_t berndsID = 0) {
    return BuildMailBody(AnnasGame(berndsID), Moves(moves));
  }
  static std::string FromBernd(int moves) { return BuildMailBody(BerndsGame(), Moves(moves)); }

  static void Store(store::GameRecord game, int moves) {
    ASSERT_TRUE(store::SaveGame(game, Moves(moves)));
  }
  /// A line of the game file.
  static std::string Line(const std::string& thirteenFields, int moves) {
    std::string line = thirteenFields;
    for (const store::MoveRecord& move : Moves(moves)) {
      const std::string number = std::to_string(move.MoveNumber);
      for (const std::string& field :
           {number, move.MoveCoordinates, move.MoveText, move.MoveComment}) {
        line.append("|").append(field);
      }
    }
    return line + "\r\n";
  }
  std::string& File(const std::string& name) { return desktop.files.content[folder + name]; }
  std::string& GameFile() { return File("Tvgdb.dat"); }
  bool IsThere(const std::string& name) const {
    return desktop.files.content.contains(folder + name);
  }

  void Arrives(const std::string& body, const std::string& subject = "Tarvolenix : e4, Hi",
               const std::string& address = "sender@example.org") {
    desktop.mail.inbox.push_back({subject, body, "Sender", address});
  }

  /// Forgets what the user was told and what was done.
  void ForgetRecords() {
    desktop.boxes.messages.clear();
    desktop.files.operations.clear();
    desktop.settings.writes.clear();
    desktop.mail.calls.clear();
  }
  /// What the last message says; empty where there was none.
  std::string Told() const { return desktop.LastMessage().second; }

  const std::string folder = "/program/Data/";
  fakes::FakeDesktop desktop;
};

}  // namespace mail
