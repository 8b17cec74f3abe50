// SPDX-License-Identifier: GPL-3.0-or-later
// The world of the shell's tests: a program whose windows, tray, messages and mail session tell
// what they do in one log.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "fakes/fake_desktop.h"
#include "mail/move_mail.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"
#include "shell/shell_hooks.h"
#include "store/saving.h"

namespace shell {

class ShellFixture : public testing::Test {
 protected:
  explicit ShellFixture(const std::string& commandLine = {}) : desktop(commandLine) {
    FillHooks();
    platform::ShellHooks& hooks = platform::TheSeams().hooks;
    hooks.checkTimerChanged = [this] {
      desktop.log.emplace_back(platform::Process().CheckTimer.Enabled ? "timer on" : "timer off");
    };
    hooks.handedOver = [this] { desktop.log.emplace_back("handed over"); };
    hooks.stopped = [this] { desktop.log.emplace_back("stopped"); };
  }

  /// As the start leaves a program that is connected.
  void BecomeIdle() {
    desktop.mail.SignOn();
    platform::Process().Offline = false;
    platform::Process().CheckTimer.Enabled = true;
    Happened();
  }

  /// What happened since the last question, one event behind the other; where beginnings are given
  /// only the events that have one of them.
  std::string Happened(const std::vector<std::string>& beginnings = {""}) {
    std::string all;
    for (const std::string& event : std::exchange(desktop.log, {})) {
      const bool isMeant = std::any_of(beginnings.begin(), beginnings.end(),
                                       [&](const auto& word) { return event.starts_with(word); });
      if (isMeant) all += (all.empty() ? "" : ", ") + event;
    }
    return all;
  }

  static store::GameRecord Game(std::int32_t id, std::int16_t status, const std::string& opponent,
                                const std::string& date = "01/03/2026") {
    store::GameRecord game;
    game.GAME_ID = id;
    game.GAME_DATESTAMP = "010320260805";
    game.GAME_OPPONENTS_ID = 7;
    game.GAME_NAME = "Game " + std::to_string(id);
    game.GAME_DATE = date;
    game.GAME_OPPONENTS_EMAIL = "anna@example.org";
    game.GAME_OPPONENTS_NAME = opponent;
    game.GAME_STATUS = status;
    return game;
  }

  static void Store(std::int32_t id, std::int16_t status, const std::string& opponent = "Anna",
                    const std::string& comment = "Hi", const std::string& date = "01/03/2026") {
    store::GameRecord game = Game(id, status, opponent, date);
    ASSERT_TRUE(store::SaveGame(game, {{1, "5254", "e4", comment}}));
  }

  /// A first move of a new game comes into the Inbox, unless told otherwise.
  void MoveArrives(const store::MoveRecords& moves = {{1, "5254", "e4", "Hi"}}) {
    desktop.mail.inbox.push_back({"Tarvolenix : e4", mail::BuildMailBody(Game(7, 2, "Me"), moves),
                                  "Anna", "anna@example.org"});
  }

  std::string& Setting(const std::string& name) { return desktop.settings.groups[{}][name]; }

  fakes::FakeDesktop desktop;
};

}  // namespace shell
