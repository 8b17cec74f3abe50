// SPDX-License-Identifier: GPL-3.0-or-later
// The window while the computer thinks, and games against it.
#include <QLabel>

#include <algorithm>
#include <thread>
#include <utility>

#include "ai/heuristics.h"
#include "board/ends.h"
#include "desktop/qt_events.h"
#include "store/queries.h"
#include "ui/board/board_window_fixture.h"

namespace ui {
namespace {

/// The real event loop, with a user who acts before the computer can have ended its turn, however
/// fast it thinks.
class QuickUser : public desktop::QtEvents {
 public:
  void LetUserActUntil(const std::function<bool()>& done) override {
    if (act) std::exchange(act, {})();
    QtEvents::LetUserActUntil(done);
  }

  std::function<void()> act;
};

class ComputerGameTest : public BoardWindowTest {
 protected:
  ComputerGameTest() {
    platform::TheSeams().events = &events_;
    ai::LoadDefaultHeuristics();
  }

  /// Sends the move; `meanwhile` happens while the computer thinks about it.
  void Send(std::function<void()> meanwhile) {
    bool hasActed = false;
    events_.act = [&, act = std::move(meanwhile)] {
      EXPECT_TRUE(Game().ComputerThinking);
      act();
      hasActed = true;
    };
    Click(board::SendButton);
    EXPECT_TRUE(hasActed);
  }

  std::string ShownTexts() {
    std::string texts;
    const board::MoveList& moves = Game().Moves;
    for (int row = 1; row <= moves.Count(); ++row) texts += moves.Row(row).MoveText + " ";
    return texts;
  }

  static void ExpectStored(const std::string& texts) {
    store::MoveRecords moves;
    EXPECT_TRUE(store::SelectMoves(moves, 1));
    std::string stored;
    for (const auto& move : moves) stored += move.MoveText + " ";
    EXPECT_EQ(stored, texts);
  }

  /// The best that White sees at once; a pawn that would promote stays where it is.
  void PlayAMove() {
    ai::SearchOrder order;
    order.side = rules::White;
    order.lastMove = Game().Moves.MoveOf(Game().Moves.Count());
    order.sideInCheck = rules::ThePosition().SideInCheck;
    ai::SearchWatch watch;
    for (const ai::CandidateMove& move : ai::SearchBestMove(order, watch).root) {
      if (rules::IsPromotion(rules::ThePosition().BoardState.At(move.from), move.to.y)) continue;
      Do("click " + std::to_string(NumberOf(move.from)) + " click " +
         std::to_string(NumberOf(move.to)));
      return;
    }
  }

  QuickUser events_;
};

constexpr const char* e2e4 = "click 52 click 54";

TEST_F(ComputerGameTest, NothingButStoppingItIsOfferedWhileItThinks) {
  OpenAgainstComputer(4);
  Do(e2e4);
  Send([this] {
    EXPECT_TRUE(Shows("SearchProgress") && Shows("CancelSearchS"));
    EXPECT_EQ(Find<QLabel>("PlayerComment_L").text(), u"Thinking..."_s);
    EXPECT_EQ(window_->windowTitle(), u"Tarvolenix - Awaiting The Computer's move"_s);
    for (int number = board::ViewButton; number < board::CloseButton; ++number) {
      EXPECT_FALSE(Button(number).isEnabled()) << number;
    }
    EXPECT_FALSE(Find("MoveList").isEnabled());
    Do("rightclick 44");
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    Do("escape");
    EXPECT_FALSE(window_->isMinimized());
  });
  Do("escape");
  EXPECT_FALSE(window_->isMinimized()) << "one that comes too late for the computer";
  EXPECT_FALSE(Shows("SearchProgress") || Shows("CancelSearchS"));
  EXPECT_TRUE(Find("MoveList").isEnabled());
}

TEST_F(ComputerGameTest, AStopIsHeardBeforeTheNextNodeAndTheTurnCanBeTakenAgain) {
  const std::function<void()> stops[] = {[this] { Click("CancelSearchS"); },
                                         [this] { Do("escape"); }};
  for (const auto& stop : stops) {
    OpenAgainstComputer(4);
    Do(e2e4);
    const ai::SearchWatch& search = Game().Search;
    std::int64_t considered = 0;
    Send([&] {
      stop();
      EXPECT_TRUE(search.SearchCancelled);
      considered = search.MovesConsidered;
    });
    // Each thread may end the node at which it is; no side has more than 218 moves.
    const auto threads = static_cast<std::int64_t>(std::thread::hardware_concurrency());
    EXPECT_LE(search.MovesConsidered - considered, threads * 218);
    ExpectStored("e4 ");
    EXPECT_TRUE(Find<QLabel>("TurnHint").text().contains(u"Resend"_s));
    platform::Settings().SearchDepth = 1;
    Click(board::ResendButton);
    EXPECT_EQ(Game().Moves.Count(), 2);
    ExpectStored(ShownTexts());
  }
}

TEST_F(ComputerGameTest, WhoClosesTheWindowMeanwhileFindsHisMoveStored) {
  const std::function<void()> closings[] = {[this] { window_->close(); },
                                            [this] { Click(board::CloseButton); },
                                            [this] {
                                              Process().Stopping = true;
                                              window_->close();
                                              window_->close();
                                            }};
  for (const auto& close : closings) {
    OpenAgainstComputer(4);
    Do(e2e4);
    Send([&] {
      close();
      EXPECT_TRUE(window_->isVisible()) << "the turn is still at work in it";
    });
    EXPECT_FALSE(window_->isVisible());
    EXPECT_FALSE(Process().BoardOpen);
    ExpectStored("e4 ");
    // What comes up for the board's sake goes with the program.
    EXPECT_EQ(std::count(desktop_.log.begin(), desktop_.log.end(), "close all"),
              Process().Stopping ? 1 : 0);
  }
}

TEST_F(ComputerGameTest, GamesAtEachDepthAreStoredAsTheyWerePlayed) {
#ifdef TARVOLENIX_SANITIZED
  constexpr int deepest = 2;
#else
  constexpr int deepest = ai::deepestSearch;
#endif
  constexpr int longest = 8, stopped = 3;
  for (int depth = 0; depth <= deepest; ++depth) {
    SCOPED_TRACE(depth);
    OpenAgainstComputer(depth);
    for (int turn = 1; turn <= longest && !GameIsOver(Game()); ++turn) {
      PlayAMove();
      if (turn == stopped) {
        Send([this] { Click("CancelSearchS"); });
        Click(board::ResendButton);
      } else {
        Click(board::SendButton);
      }
      ASSERT_TRUE(GameIsOver(Game()) || Game().Moves.Count() == 2 * turn) << ShownTexts();
    }
    const std::string played = ShownTexts();
    ExpectStored(played);
    const rules::BoardSquares end = rules::ThePosition().BoardState;
    delete window_;
    window_ = new BoardWindow(graphics_);
    EXPECT_EQ(ShownTexts(), played);
    EXPECT_TRUE(rules::ThePosition().BoardState == end);
  }
}

}  // namespace
}  // namespace ui
