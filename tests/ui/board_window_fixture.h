// SPDX-License-Identifier: GPL-3.0-or-later
// An open Board window, and the user's hand on its mouse and keyboard.
#pragma once

#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTextEdit>

#include <string>
#include <utility>
#include <vector>

#include "ui/board_window.h"
#include "ui/floating_piece.h"
#include "ui_fixture.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Process;
using rules::FromNumber;

class BoardWindowTest : public testing::Test {
 protected:
  BoardWindowTest() {
    Process().Offline = false;
    platform::Settings().Verbose = true;
    platform::Settings().NotificationTimeout = 0;
  }
  void TearDown() override { delete window_; }

  void Open(const std::vector<PlayedEntry>& entries, bool playsWhite = true,
            const std::string& startBoard = {}) {
    delete window_;
    desktop_.files.content.clear();
    Process().CurrentGameID = StoreGame(entries, playsWhite, store::MoveWaiting, startBoard);
    window_ = new BoardWindow(graphics_);
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_));
    Picture()->setFocus();
    desktop_.sounds.played.clear();
  }

  template <typename Widget>
  Widget* Find(const char* name) {
    auto* widget = window_->findChild<Widget*>(QLatin1StringView(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  BoardPicture* Picture() { return Find<BoardPicture>("CBoard"); }
  QPushButton* Button(int number) {
    return Find<QPushButton>(("Toolbar1S_" + std::to_string(number)).c_str());
  }
  QPlainTextEdit* Comment() { return Find<QPlainTextEdit>("PlayerComment"); }

  QString ShownComment() { return Find<QTextEdit>("OpponentComment")->toPlainText(); }

  QPoint Centre(int square) {
    return square == 0 ? QPoint(2, 2) : Picture()->RectOf(FromNumber(square)).center().toPoint();
  }
  void Press(int square) { QTest::mousePress(Picture(), Qt::LeftButton, {}, Centre(square)); }
  void MoveTo(int square) { QTest::mouseMove(Picture(), Centre(square)); }
  void Release(int square) { QTest::mouseRelease(Picture(), Qt::LeftButton, {}, Centre(square)); }
  void Drag(int from, int to) {
    Press(from);
    MoveTo(to);
    Release(to);
  }
  void Click(int square) { QTest::mouseClick(Picture(), Qt::LeftButton, {}, Centre(square)); }
  void Key(Qt::Key key, int times = 1) {
    while (times-- > 0) QTest::keyClick(Picture(), key);
  }

  int CellOn(int square) { return Picture()->CellOn(FromNumber(square)); }

  /// What is really seen in the middle of a square, once pieces have settled.
  QColor SeenOn(int square) {
    Settle();
    return window_->grab().toImage().pixelColor(Picture()->mapTo(window_, Centre(square)));
  }
  void Settle() {
    const auto* floating = window_->findChild<FloatingPiece*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !floating->IsSettling(); }));
  }

  std::string LastMove() { return window_->Logic().Moves.Last().MoveText; }

  fakes::FakeDesktop desktop_;
  const ChessGraphics graphics_ = ColouredGraphics();
  QPointer<BoardWindow> window_;
};

}  // namespace ui
