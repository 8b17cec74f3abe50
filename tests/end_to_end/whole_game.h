// SPDX-License-Identifier: GPL-3.0-or-later
// A whole game between two players, each with a program folder and settings of his own, played
// through the real program: every turn starts it, moves with the mouse on the board that opens,
// sends with the button, and stops it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "app/program.h"
#include "store/queries.h"
#include "ui/board/board_window.h"

/// With the mouse; the button has to be there and enabled.
void Click(ui::BoardWindow& board, int button);

/// Opens the game that the list has selected.
ui::BoardWindow* OpenSelected(app::Program& program);

class WholeGameTest : public testing::Test {
 protected:
  using Deliver = std::function<void(const std::string& from, const std::string& to)>;

  WholeGameTest();
  ~WholeGameTest() override;

  /// A program folder for a player "anna" or "bob"; `mail` are his mail settings but for his name.
  void MakePlayer(const std::string& player, const std::string& mail);

  /// Runs the console companion; answers its exit code.
  int Console(const std::string& player, const std::string& arguments) const;

  /// Anna's first move, against bob at `address`.
  void FoundGame(const std::string& address, const std::string& more) const;

  std::unique_ptr<app::Program> Start(const std::string& player, const std::string& commandLine);

  /// Plays all turns; `deliver` carries what a player has sent to the other one.
  void PlayGame(const std::string& commandLine, const Deliver& deliver);

  /// Opens the only game, whatever its state, and closes it again.
  void LookAtGame(const std::string& player, const std::string& commandLine,
                  const std::string& caption);

  /// Both copies hold the same game, ended the same way.
  void ExpectTheSameEnd();

  std::filesystem::path root_;

 private:
  struct Stored {
    store::GameRecord record;
    store::MoveRecords moves;
  };
  Stored GameOf(const std::string& player);
};
