// SPDX-License-Identifier: GPL-3.0-or-later
// An open Board window in either look, and the user's hand on its mouse and keyboard.
#pragma once

#include <QPlainTextEdit>
#include <QPointer>
#include <QTableWidget>
#include <QWindow>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "board/controls.h"
#include "ui/board/board_window.h"
#include "ui/board/floating_piece.h"
#include "ui/skin_fixture.h"

namespace ui {

enum class Look { Skinned, Plain };

class BoardWindowTest : public SkinTest {
 protected:
  BoardWindowTest() {
    Process().Offline = false;
    platform::Settings().Verbose = true;
  }
  ~BoardWindowTest() override { delete window_; }

  /// The user is White in a game of these entries.
  void Open(const std::vector<PlayedEntry>& entries, Look look = Look::Plain) {
    delete window_;
    desktop_.files.content.clear();
    desktop_.mail.sent.clear();
    StoreGame(1, store::MoveWaiting, "Eva <i>Ü</i>", entries);
    OpenGame(1, look);
  }
  void OpenSetup(Look look = Look::Plain) {
    Process().SetupGame = true;
    OpenGame(-1, look);
  }
  void OpenAgainstComputer(int depth) {
    delete window_;
    desktop_.files.content.clear();
    platform::Settings().SearchDepth = static_cast<std::int16_t>(depth);
    Process().ComputerGame = true;
    Process().NewGame = {"Evening", "The Computer", "n/a"};
    OpenGame(-1, Look::Plain);
  }

  template <typename Control = QWidget>
  Control& Find(const char* name) const {
    return ui::Find<Control>(*window_, name);
  }
  bool Shows(const char* name) const { return ui::Shows(*window_, name); }
  QAbstractButton& Button(int number) const {
    return Find<QAbstractButton>(("Toolbar1_" + std::to_string(number)).c_str());
  }
  void Click(int button) const { QTest::mouseClick(&Button(button), Qt::LeftButton); }
  void Click(const char* button) const { QTest::mouseClick(&Find(button), Qt::LeftButton); }
  QPlainTextEdit& Comment() const { return Find<QPlainTextEdit>("PlayerComment"); }
  const board::Game& Game() const { return window_->Logic(); }
  std::string LastMove() const { return Game().Moves.Last().MoveText; }

  /// Chooses an entry of the list of moves, the first being 0.
  void ChooseEntry(int row) const {
    auto& list = Find<QTableWidget>("MoveList");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(row, 2)).center());
  }

  /// A point of the window: a square by its number, a picture of the palette by its code behind a
  /// "p", the trash, the frame of the board's picture, or nowhere.
  QPoint PointOf(const std::string& place) const {
    const auto middle = [this](const std::string& name) {
      const QWidget& widget = Find(name.c_str());
      return widget.mapTo(window_, widget.rect().center());
    };
    if (place == "nowhere") return window_->rect().bottomRight() - QPoint(4, 4);
    if (place == "frame") return window_->Picture().mapTo(window_, QPoint(2, 2));
    if (place == "trash") return middle("Trash");
    if (place[0] == 'p') return middle("PiecePallete_" + place.substr(1));
    const rules::Square square = rules::FromNumber(std::stoi(place));
    return window_->Picture().mapTo(window_, window_->Picture().RectOf(square).center().toPoint());
  }

  /// Does what is told in words: keys, and gestures of the mouse with their places.
  void Do(const std::string& gestures) const {
    static const std::map<std::string, Qt::Key> keys = {
        {"left", Qt::Key_Left},     {"right", Qt::Key_Right}, {"up", Qt::Key_Up},
        {"down", Qt::Key_Down},     {"enter", Qt::Key_Enter}, {"return", Qt::Key_Return},
        {"escape", Qt::Key_Escape}, {"space", Qt::Key_Space}, {"delete", Qt::Key_Delete},
        {"tab", Qt::Key_Tab}};
    QWindow* screen = window_->windowHandle();
    std::istringstream words(gestures);
    std::string place;
    for (std::string word; words >> word;) {
      if (const auto key = keys.find(word); key != keys.end()) {
        QTest::keyClick(screen, key->second);
        continue;
      }
      words >> place;
      const auto button = word == "rightclick" ? Qt::RightButton : Qt::LeftButton;
      if (word == "press" || word == "drag" || word.ends_with("click")) {
        QTest::mousePress(screen, button, {}, PointOf(place));
      }
      if (word == "drag") words >> place;
      if (word == "move" || word == "drag") QTest::mouseMove(screen, PointOf(place));
      if (word != "press" && word != "move") {
        QTest::mouseRelease(screen, button, {}, PointOf(place));
      }
    }
  }

  /// What is really seen in the window, once pieces have settled.
  QImage Seen() const {
    const auto* floating = window_->findChild<FloatingPiece*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !floating->IsSettling(); }));
    return window_->grab().toImage();
  }
  QColor SeenOn(int square) const { return Seen().pixelColor(PointOf(std::to_string(square))); }

  /// The numbers of the sounds that were heard.
  std::string Heard() const {
    std::string numbers;
    for (const std::string& path : desktop_.sounds.played) numbers += path.at(path.size() - 5);
    return numbers;
  }

  const boards::ChessGraphics graphics_ = ColouredGraphics();
  BoardStudy* study_ = nullptr;
  QPointer<BoardWindow> window_;

  void OpenGame(std::int32_t id, Look look) {
    delete window_;
    platform::Settings().SimpleUI = look == Look::Plain;
    Process().CurrentGameID = id;
    window_ = new BoardWindow(graphics_, {}, study_);
    BringUp(*window_);
    desktop_.sounds.played.clear();
    desktop_.boxes.messages.clear();
  }
};

}  // namespace ui
