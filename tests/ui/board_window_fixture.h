// SPDX-License-Identifier: GPL-3.0-or-later
// An open Board window, and the user's hand on its mouse and keyboard.
#pragma once

#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "ui/board/board_window.h"
#include "ui/board/floating_piece.h"
#include "ui_fixture.h"

namespace ui {

using namespace Qt::StringLiterals;
using platform::Process;
using rules::FromNumber;

class BoardWindowTest : public testing::Test {
 protected:
  BoardWindowTest() {
    platform::Settings().SimpleUI = true;
    Process().Offline = false;
    platform::Settings().Verbose = true;
    platform::Settings().NotificationTimeout = 0;
  }
  void TearDown() override { delete window_; }

  void Open(const std::vector<PlayedEntry>& entries) {
    delete window_;
    desktop_.files.content.clear();
    StoreGame(1, store::MoveWaiting, "Eva <i>Ü</i>", entries);
    Process().CurrentGameID = 1;
    window_ = new BoardWindow(graphics_);
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_));
    Picture()->setFocus();
    desktop_.sounds.played.clear();
    desktop_.boxes.messages.clear();
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

  QPoint Centre(int square) {
    return square == 0 ? QPoint(2, 2) : Picture()->RectOf(FromNumber(square)).center().toPoint();
  }

  /// Does what is told in pairs of a gesture and the square, or the times a key is pressed.
  void Do(const std::string& gestures) {
    std::istringstream words(gestures);
    for (std::string word; words >> word;) {
      int number = 0;
      words >> number;
      const auto key = keys.find(word);
      if (key != keys.end()) {
        while (number-- > 0) QTest::keyClick(Picture(), key->second);
        continue;
      }
      const QPoint place = Centre(number);
      if (word == "move") QTest::mouseMove(Picture(), place);
      if (word == "press" || word == "click") {
        QTest::mousePress(Picture(), Qt::LeftButton, {}, place);
      }
      if (word == "release" || word == "click") {
        QTest::mouseRelease(Picture(), Qt::LeftButton, {}, place);
      }
      if (word == "rightclick") QTest::mouseClick(Picture(), Qt::RightButton, {}, place);
    }
  }

  /// What is really seen in the middle of a square, once pieces have settled.
  QColor SeenOn(int square) {
    const auto* floating = window_->findChild<FloatingPiece*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !floating->IsSettling(); }));
    return window_->grab().toImage().pixelColor(Picture()->mapTo(window_, Centre(square)));
  }

  std::string LastMove() { return window_->Logic().Moves.Last().MoveText; }

  const std::map<std::string, Qt::Key> keys = {
      {"left", Qt::Key_Left},     {"right", Qt::Key_Right}, {"up", Qt::Key_Up},
      {"down", Qt::Key_Down},     {"enter", Qt::Key_Enter}, {"return", Qt::Key_Return},
      {"escape", Qt::Key_Escape}, {"space", Qt::Key_Space}};
  fakes::FakeDesktop desktop_;
  const ChessGraphics graphics_ = ColouredGraphics();
  QPointer<BoardWindow> window_;
};

}  // namespace ui
