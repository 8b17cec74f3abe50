// SPDX-License-Identifier: GPL-3.0-or-later
// The whole game where no server is needed.
#include "end_to_end/whole_game.h"

#include <filesystem>

#include "board/controls.h"

namespace {

namespace fs = std::filesystem;

class LocalGameTest : public WholeGameTest {
 protected:
  LocalGameTest() {
    for (const std::string player : {"anna", "bob"}) {
      MakePlayer(player, "MailKind=Post\nMyAddress=" + player +
                             "@example.org\nPostFolder=" + (root_ / "post").string() + "/\n");
    }
  }

  static constexpr const char* bob = "bob@example.org";
};

TEST_F(LocalGameTest, ByMail) {
  FoundGame(bob, "--send");
  PlayGame("", [](const std::string&, const std::string&) {});
  if (HasFatalFailure()) return;
  LookAtGame("bob", "", "Tarvolenix - CHECKMATE! - anna won.");
  ExpectTheSameEnd();
}

TEST_F(LocalGameTest, ByMoveFiles) {
  FoundGame(bob, "");
  ASSERT_EQ(Console("anna", "export 1"), 0);
  const auto carry = [this](const std::string& from, const std::string& to) {
    const fs::path file = root_ / from / "Data/Cmove1.txt";
    ASSERT_TRUE(fs::exists(file)) << "nothing was sent";
    fs::rename(file, root_ / to / "Data/Cmove1.txt");
  };
  PlayGame("-testingmode -nonetwork", carry);
  if (HasFatalFailure()) return;
  LookAtGame("bob", "-testingmode -nonetwork", "Tarvolenix - CHECKMATE! - Unknown won.");
  ExpectTheSameEnd();
}

// The opponent says that nothing came: the move goes out again, and whoever got both has it once.
TEST_F(LocalGameTest, AResentMoveArrivesOnce) {
  FoundGame(bob, "--send");
  {
    const auto program = Start("anna", "");
    Click(*OpenSelected(*program), board::ResendButton);
    program->Stop();
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(root_ / "post/bob@example.org/new"), {}), 2);
  {
    const auto program = Start("bob", "");
    const ui::BoardWindow* board = OpenSelected(*program);
    ASSERT_NE(board, nullptr);
    EXPECT_EQ(board->Logic().Moves.Count(), 1);
    program->Stop();
  }
  EXPECT_TRUE(fs::is_empty(root_ / "post/bob@example.org/new"));
  EXPECT_TRUE(fs::is_empty(root_ / "post/bob@example.org/cur"));
}

}  // namespace
