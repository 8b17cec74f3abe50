// SPDX-License-Identifier: GPL-3.0-or-later
// The small world of the mail tests: one game between Anna, who created it and plays White, and
// Bernd. "Ours" is the copy in this program's store, "theirs" the one that mails and files come
// from.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "fakes/fake_desktop.h"
#include "mail/move_mail.h"
#include "platform/process_state.h"
#include "store/queries.h"
#include "store/saving.h"

namespace mail {

class MailFixture : public testing::Test {
 protected:
  static constexpr std::int32_t hostsID = 7;
  static constexpr std::int32_t guestsID = 12;

  /// The host's copy, or the guest's one that was founded by the host's mail.
  static store::GameRecord Game(bool host, std::int32_t id, std::int32_t opponentsID) {
    store::GameRecord game;
    game.GAME_ID = id;
    game.GAME_DATESTAMP = "090320260805";
    game.GAME_OPPONENTS_ID = opponentsID;
    game.GAME_NAME = "Sunday game";
    game.GAME_DATE = "09/03/2026";
    game.GAME_OPPONENTS_EMAIL = host ? "bernd@example.org" : "anna@example.org";
    game.GAME_WHITE_NAME = host ? "" : "Anna";
    game.GAME_BLACK_NAME = "Bernd";
    game.GAME_HOST = host;
    game.GAME_OPPONENTS_NAME = host ? "Bernd" : "Anna";
    game.GAME_STATUS = store::WaitingForOpponent;
    return game;
  }

  static store::MoveRecords Moves(int count) {
    const store::MoveRecords all = {{1, "5254", "e4", "Good luck!"},
                                    {2, "5755", "e5", ""},
                                    {3, "7163", "Nf3", "für dich"},
                                    {4, "2836", "Nc6", ""}};
    return {all.begin(), all.begin() + count};
  }

  static std::string FromHost(int moves, std::int32_t opponentsID = 0) {
    return BuildMailBody(Game(true, hostsID, opponentsID), Moves(moves));
  }
  static std::string FromGuest(int moves) {
    return BuildMailBody(Game(false, guestsID, hostsID), Moves(moves));
  }

  static void Store(store::GameRecord game, int moves) {
    ASSERT_TRUE(store::SaveGame(game, Moves(moves)));
  }

  static store::GameRecords Stored() {
    store::GameRecords games;
    EXPECT_TRUE(store::SelectGames(games, "", "Game_ID;A"));
    return games;
  }
  static std::size_t StoredMoves(std::int32_t id) {
    store::MoveRecords moves;
    EXPECT_TRUE(store::SelectMoves(moves, id));
    return moves.size();
  }

  void Arrives(const std::string& body, const std::string& subject = "Tarvolenix : e4, Hi") {
    desktop.mail.inbox.push_back({subject, body, "Anna or Bernd", "sender@example.org"});
  }

  void DamageStore() { desktop.files.content[databasePath] = "no number|\r\n"; }
  void MakeFileFail(const std::string& path) { desktop.files.content.erase(path); }

  std::string TitleShown() const { return desktop.LastMessage().first; }
  std::string TextShown() const { return desktop.LastMessage().second; }

  const std::string folder = "/program/Data/";
  const std::string databasePath = folder + "Tvgdb.dat";
  fakes::FakeDesktop desktop;
};

}  // namespace mail
