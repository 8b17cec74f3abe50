// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/held_mail_questions.h"

#include "shell/polling_loop.h"
#include "shell/shell_fixture.h"
#include "store/queries.h"

namespace shell {
namespace {

using platform::HeldMailChoice;

class HeldMailQuestionsTest : public ShellFixture {
 protected:
  HeldMailQuestionsTest() {
    BecomeIdle();
    platform::Settings().NotificationMethod = 0;
    Store(7, 2);
  }

  /// Sends the second move of the stored game, which is Anna's to send.
  void AStrangerWrites() {
    MoveArrives({{1, "5254", "e4", "Hi"}, {2, "5755", "e5", ""}});
    desktop.mail.inbox.back().senderAddress = "stranger@example.net";
  }
  std::size_t TimesAsked() const { return desktop.windows.heldQuestions.size(); }
  static std::size_t MovesStored() {
    store::MoveRecords moves;
    EXPECT_TRUE(store::SelectMoves(moves, 7));
    return moves.size();
  }
};

TEST_F(HeldMailQuestionsTest, ATickAsksOnceAndTheAnswerIsCarriedOut) {
  const struct {
    HeldMailChoice choice;
    std::size_t movesStored;
    std::size_t thoughtBetterOf;
  } rows[] = {{HeldMailChoice::Later, 1, 1},
              {HeldMailChoice::Refuse, 1, 1},
              {HeldMailChoice::Accept, 2, 0}};
  for (const auto& row : rows) {
    desktop.files.content.clear();
    desktop.mail.inbox.clear();
    desktop.windows.heldQuestions.clear();
    Store(7, 2);
    AStrangerWrites();
    desktop.windows.heldChoices = {row.choice};
    CheckTimerTick();
    CheckTimerTick();
    EXPECT_EQ(TimesAsked(), 1U);
    EXPECT_EQ(MovesStored(), row.movesStored);
    AskAboutHeldMails(HeldMails::All);
    EXPECT_EQ(TimesAsked(), 1 + row.thoughtBetterOf);
  }
}

}  // namespace
}  // namespace shell
