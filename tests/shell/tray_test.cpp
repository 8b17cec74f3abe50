// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/notification.h"
#include "shell/shell_fixture.h"
#include "shell/tray_status.h"

namespace shell {
namespace {

using platform::Process;
using platform::TrayOperation;

using TrayTest = ShellFixture;

TEST_F(TrayTest, TheIconTellsTheConnectionFirstAndThenTheGameFile) {
  const struct {
    const char* name;
    bool offline, standAlone;
    std::int16_t status;
    const char* shown;
  } rows[] = {
      {"nothing new", false, false, 2, "tray modify 1"},
      {"new move, or an open game against the computer", false, false, 1, "tray modify 2"},
      {"offline whatever the games are", true, false, 1, "tray modify 3"},
      {"offline doesn't count stand-alone", true, true, 1, "tray modify 2"},
  };
  for (const auto& row : rows) {
    Process().Offline = row.offline;
    Process().StandAlone = row.standAlone;
    Store(1, row.status);
    UpdateTrayStatus(TrayOperation::Modify);
    EXPECT_TRUE(Happened().starts_with(row.shown)) << row.name;
    desktop.files.operations.clear();
    UpdateTrayStatus(TrayOperation::Modify);
    EXPECT_TRUE(Happened().starts_with(row.shown)) << row.name;
    EXPECT_TRUE(desktop.files.operations.empty()) << "the games are as they were";
  }
}

TEST_F(TrayTest, AGameAgainstTheComputerCountsIfItIsWantedAndIsNeverToldAtTheStart) {
  Process().Offline = false;
  store::GameRecord computer = Game(1, 1, "The Computer");
  computer.GAME_VS_COMPUTER = true;
  ASSERT_TRUE(store::SaveGame(computer, {{1, "5254", "e4", ""}}));
  UpdateTrayStatus(TrayOperation::Modify);
  CountComputerGames(false);
  EXPECT_EQ(Happened({"tray"}).find("tray modify 2"), 0U);
  EXPECT_FALSE(AnyNewArrivals());
  const struct {
    int method;
    std::int32_t stored;
    const char* said;
  } rows[] = {{2, 1, ""},
              {3, 2, "said Anna has moved: a game waits for your move."},
              {2, 3, "said 2 games wait for your move."},
              {1, 3, ""}};
  for (const auto& [method, stored, said] : rows) {
    platform::Settings().NotificationMethod = method;
    if (stored > 1) Store(stored, 1);
    TellOfWaitingGames();
    EXPECT_EQ(Happened({"said"}), said) << method << stored;
  }
}

TEST_F(TrayTest, WhatTheMenuCantDoSaysWhy) {
  Process().Offline = false;
  Process().GameListOpen = true;
  EXPECT_EQ(TrayMenu().open.whyNot, "The game list is open already.");
  Process().CheckTimerHeld = true;
  for (const TrayMenuEntry& entry : {TrayMenu().open, TrayMenu().newGame, TrayMenu().others}) {
    EXPECT_FALSE(entry.enabled || entry.whyNot.empty());
  }
  Process().CheckTimerHeld = Process().GameListOpen = false;
  for (const TrayMenuEntry& entry : {TrayMenu().open, TrayMenu().newGame, TrayMenu().others}) {
    EXPECT_TRUE(entry.enabled && entry.whyNot.empty());
  }
}

}  // namespace
}  // namespace shell
