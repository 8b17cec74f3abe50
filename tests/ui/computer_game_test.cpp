// SPDX-License-Identifier: GPL-3.0-or-later
// The window while the computer thinks, and games against it.
#include <QLabel>

#include <algorithm>
#include <thread>

#include "ai/heuristics.h"
#include "board/controls.h"
#include "board/ends.h"
#include "board_window_fixture.h"
#include "desktop/qt_events.h"
#include "store/queries.h"

namespace ui {
namespace {

class ComputerGameTest : public BoardWindowTest {
 protected:
  ComputerGameTest() {
    platform::TheDesktop().events = &events_;
    ai::LoadDefaultHeuristics();
  }

  void OpenNew(int depth) {
    delete window_;
    desktop_.files.content.clear();
    platform::Settings().SearchDepth = static_cast<std::int16_t>(depth);
    Process().ComputerGame = true;
    Process().CurrentGameID = -1;
    Process().NewGame = {"Evening", "The Computer", "n/a"};
    window_ = new BoardWindow(graphics_);
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_));
  }

  QWidget& Part(const char* name) { return *Find<QWidget>(name); }
  void Click(const char* name) { QTest::mouseClick(&Part(name), Qt::LeftButton); }
  void Send() { QTest::mouseClick(Button(board::SendButton), Qt::LeftButton); }
  void Resend() { QTest::mouseClick(Button(board::ResendButton), Qt::LeftButton); }

  /// Does something as the first thing after the computer has begun to think.
  void Meanwhile(const std::function<void()>& act) {
    QTimer::singleShot(0, window_, [this, act] {
      ASSERT_TRUE(window_->Logic().ComputerThinking);
      act();
    });
  }

  static std::string StoredTexts() {
    store::MoveRecords moves;
    EXPECT_TRUE(store::SelectMoves(moves, 1));
    std::string texts;
    for (const auto& move : moves) texts += move.MoveText + " ";
    return texts;
  }

  std::string ShownTexts() {
    std::string texts;
    const board::MoveList& moves = window_->Logic().Moves;
    for (int row = 1; row <= moves.Count(); ++row) texts += moves.Row(row).MoveText + " ";
    return texts;
  }

  /// The best that White sees at once; a pawn that would promote stays where it is.
  void PlayAMove() {
    const board::Game& game = window_->Logic();
    ai::SearchOrder order;
    order.side = rules::White;
    order.lastMove = game.Moves.MoveOf(game.Moves.Count());
    order.sideInCheck = rules::ThePosition().SideInCheck;
    ai::SearchWatch watch;
    for (const ai::CandidateMove& move : ai::SearchBestMove(order, watch).root) {
      if (rules::IsPromotion(rules::ThePosition().BoardState.At(move.from), move.to.y)) continue;
      Do("click " + std::to_string(NumberOf(move.from)) + " click " +
         std::to_string(NumberOf(move.to)));
      return;
    }
  }

  desktop::QtEvents events_;
};

TEST_F(ComputerGameTest, NothingButStoppingItIsOfferedWhileItThinks) {
  OpenNew(4);
  Do("click 52 click 54");
  Meanwhile([this] {
    for (const char* part : {"SearchProgress", "CancelSearchS", "PlayerComment_L"}) {
      EXPECT_TRUE(Part(part).isVisible()) << part;
    }
    EXPECT_EQ(Find<QLabel>("PlayerComment_L")->text(), u"Thinking..."_s);
    EXPECT_EQ(window_->windowTitle(), u"Tarvolenix - Awaiting The Computer's move"_s);
    for (int number = board::ViewButton; number < board::CloseButton; ++number) {
      EXPECT_FALSE(Button(number)->isEnabled()) << number;
    }
    EXPECT_EQ(Button(board::CloseButton)->text(), u"&Close"_s);
    EXPECT_FALSE(Part("MoveList").isEnabled());
    Do("rightclick 44");
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    const std::size_t logged = desktop_.log.size();
    QTest::keyClick(window_->focusWidget(), Qt::Key_F1);
    EXPECT_EQ(desktop_.log.size(), logged) << "no help either";
    QTest::keyClick(window_->focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(window_->isMinimized());
  });
  Send();
  for (const char* part : {"SearchProgress", "CancelSearchS", "PlayerComment_L"}) {
    EXPECT_FALSE(Part(part).isVisible()) << part;
  }
  EXPECT_TRUE(Part("MoveList").isEnabled());
  QKeyEvent stillDown(QEvent::KeyPress, Qt::Key_Escape, {}, {}, true);
  QApplication::sendEvent(window_, &stillDown);
  EXPECT_FALSE(window_->isMinimized()) << "the key that has stopped the computer";
}

TEST_F(ComputerGameTest, AStopIsHeardBeforeTheNextNodeAndTheTurnCanBeTakenAgain) {
  const std::function<void()> stops[] = {
      [this] { Click("CancelSearchS"); },
      [this] { QTest::keyClick(window_->focusWidget(), Qt::Key_Escape); }};
  for (const auto& stop : stops) {
    OpenNew(4);
    Do("click 52 click 54");
    const ai::SearchWatch& search = window_->Logic().Search;
    std::int64_t considered = 0;
    Meanwhile([&] {
      stop();
      EXPECT_TRUE(search.SearchCancelled);
      considered = search.MovesConsidered;
    });
    Send();
    // Each thread may end the node at which it is; no side has more than 218 moves.
    const auto threads = static_cast<std::int64_t>(std::thread::hardware_concurrency());
    EXPECT_LE(search.MovesConsidered - considered, threads * 218);
    EXPECT_EQ(ShownTexts(), "e4 ");
    EXPECT_EQ(StoredTexts(), "e4 ");
    EXPECT_TRUE(Button(board::ResendButton)->isEnabled());
    EXPECT_TRUE(Find<QLabel>("TurnHint")->text().contains(u"Resend"_s));
    platform::Settings().SearchDepth = 1;
    Resend();
    EXPECT_EQ(window_->Logic().Moves.Count(), 2);
    EXPECT_EQ(StoredTexts(), ShownTexts());
    EXPECT_EQ(window_->windowTitle(), u"Tarvolenix - Awaiting your move"_s);
  }
}

TEST_F(ComputerGameTest, WhoClosesTheWindowMeanwhileFindsHisMoveStored) {
  const std::function<void()> closings[] = {
      [this] { window_->close(); },
      [this] { QTest::mouseClick(Button(board::CloseButton), Qt::LeftButton); },
      [this] {
        Process().Stopping = true;
        window_->close();
        window_->close();
      }};
  for (const auto& close : closings) {
    OpenNew(4);
    Do("click 52 click 54");
    Meanwhile([&] {
      close();
      EXPECT_TRUE(window_->isVisible()) << "the turn is still at work in it";
    });
    Send();
    EXPECT_FALSE(window_->isVisible());
    EXPECT_FALSE(Process().BoardOpen);
    EXPECT_EQ(StoredTexts(), "e4 ");
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
  constexpr int longest = 12;
  for (int depth = 0; depth <= deepest; ++depth) {
    SCOPED_TRACE(depth);
    OpenNew(depth);
    const board::Game& game = window_->Logic();
    for (int turn = 1; turn <= longest && !GameIsOver(game); ++turn) {
      // A shorter search may be over before it can be stopped.
      const bool stops = turn == 3 && depth == deepest;
      PlayAMove();
      if (stops) Meanwhile([this] { Click("CancelSearchS"); });
      Send();
      if (stops) Resend();
      ASSERT_TRUE(GameIsOver(game) || game.Moves.Count() == 2 * turn) << ShownTexts();
    }
    EXPECT_EQ(StoredTexts(), ShownTexts());
    const rules::BoardSquares end = rules::ThePosition().BoardState;
    delete window_;
    window_ = new BoardWindow(graphics_);
    EXPECT_EQ(StoredTexts(), ShownTexts());
    EXPECT_TRUE(rules::ThePosition().BoardState == end);
  }
}

}  // namespace
}  // namespace ui
