// SPDX-License-Identifier: GPL-3.0-or-later
// Setting up a position on the Board window, in both looks: with mouse and keyboard as they reach
// the window.
#include <QAbstractButton>
#include <QMenu>
#include <QPointer>
#include <QWindow>

#include <map>
#include <sstream>

#include "board/controls.h"
#include "rules/position.h"
#include "skin_fixture.h"
#include "ui/board/board_window.h"
#include "ui/board/floating_piece.h"

namespace ui {
namespace {

using rules::ThePosition;

class SetupBoardTest : public SkinTest {
 protected:
  SetupBoardTest() { Process().Offline = false; }
  ~SetupBoardTest() override { delete window_; }

  void Open(bool simple) {
    delete window_;
    platform::Settings().SimpleUI = simple;
    Process().CurrentGameID = -1;
    Process().SetupGame = true;
    window_ = new BoardWindow(graphics_);
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_));
    desktop_.sounds.played.clear();
    desktop_.boxes.messages.clear();
  }

  /// Each test runs in both looks.
  void InBothLooks(const std::function<void()>& work) {
    for (const bool simple : {true, false}) {
      SCOPED_TRACE(simple ? "plain" : "skinned");
      Open(simple);
      work();
    }
  }

  QWidget& Find(const QString& name) const {
    auto* widget = window_->findChild<QWidget*>(name);
    EXPECT_NE(widget, nullptr) << name.toStdString();
    return *widget;
  }
  bool Sees(const QString& name) const { return Find(name).isVisible(); }
  QAbstractButton& Button(int number) const {
    const QString name = platform::Settings().SimpleUI ? u"Toolbar1S_%1"_s : u"Toolbar1_%1"_s;
    return static_cast<QAbstractButton&>(Find(name.arg(number)));
  }

  /// A point of the window: a square by its number, a picture of the palette by its code behind a
  /// "p", the trash, or nowhere.
  QPoint PointOf(const std::string& place) const {
    if (place == "nowhere") return window_->rect().center() * 2 - QPoint(4, 4);
    const bool ofPalette = place[0] == 'p';
    if (ofPalette || place == "trash") {
      const QString name =
          ofPalette ? u"PiecePallete_%1"_s.arg(std::stoi(place.substr(1))) : u"Trash"_s;
      return Find(name).mapTo(window_, Find(name).rect().center());
    }
    const QPoint onPicture =
        window_->Picture().RectOf(rules::FromNumber(std::stoi(place))).center().toPoint();
    return window_->Picture().mapTo(window_, onPicture);
  }

  /// Does what is told in words: keys, and gestures of the mouse with their places.
  void Do(const std::string& gestures) {
    QWindow* screen = window_->windowHandle();
    std::istringstream words(gestures);
    std::string place;
    for (std::string word; words >> word;) {
      if (const auto key = keys.find(word); key != keys.end()) {
        QTest::keyClick(screen, key->second);
        continue;
      }
      words >> place;
      if (word == "press" || word == "click" || word == "drag") {
        QTest::mousePress(screen, Qt::LeftButton, {}, PointOf(place));
      }
      if (word == "drag") words >> place;
      if (word == "move" || word == "drag") QTest::mouseMove(screen, PointOf(place));
      if (word != "press" && word != "move") {
        QTest::mouseRelease(screen, Qt::LeftButton, {}, PointOf(place));
      }
    }
  }

  /// Squares that differ from the usual start, such as "52=0 54=6".
  static std::string Changes() {
    static constexpr rules::PieceCode homeRow[] = {
        rules::WhiteRook, rules::WhiteKnight, rules::WhiteBishop, rules::WhiteQueen,
        rules::WhiteKing, rules::WhiteBishop, rules::WhiteKnight, rules::WhiteRook};
    std::string changes;
    for (int x = 1; x <= 8; ++x) {
      const rules::PieceCode home = homeRow[x - 1];
      const rules::PieceCode column[] = {home, rules::WhitePawn, 0,       0, 0,
                                         0,    rules::BlackPawn, home + 6};
      for (int y = 1; y <= 8; ++y) {
        const rules::PieceCode piece = ThePosition().BoardState.At({x, y});
        if (piece == column[y - 1]) continue;
        if (!changes.empty()) changes += ' ';
        changes += std::to_string(x * 10 + y) + '=' + std::to_string(piece);
      }
    }
    return changes;
  }

  /// The numbers of the sounds that were heard.
  std::string Heard() const {
    std::string numbers;
    for (const std::string& path : desktop_.sounds.played) numbers += path.at(path.size() - 5);
    return numbers;
  }

  void ExpectThatThePictureShowsThePosition() {
    const auto* floating = window_->findChild<FloatingPiece*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !floating->isVisible(); })) << "something is held";
    const QImage seen = window_->grab().toImage();
    for (int i = 0; i < 64; ++i) {
      const rules::Square square = rules::SquareAt(i);
      EXPECT_EQ(seen.pixelColor(PointOf(std::to_string(NumberOf(square)))),
                ColourOfCell(board::SquareCell(window_->Logic(), square)))
          << NumberOf(square);
    }
  }

  /// Asks for the menu of a picture and takes its entry; false where no menu came up.
  bool RemoveAll(const QString& picture, bool byKey) {
    bool came = false;
    QTimer::singleShot(0, window_, [&came] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (!menu) return;
      came = menu->objectName() == u"mnuPiecePalleteMenu"_s;
      QTest::keyClick(menu, Qt::Key_Down);
      QTest::keyClick(menu, Qt::Key_Return);
    });
    QWidget& asked = byKey ? *window_->focusWidget() : Find(picture);
    EXPECT_EQ(asked.objectName(), picture);
    const QPoint middle = asked.rect().center();
    QContextMenuEvent event(byKey ? QContextMenuEvent::Keyboard : QContextMenuEvent::Mouse, middle,
                            asked.mapToGlobal(middle));
    QApplication::sendEvent(&asked, &event);
    QCoreApplication::processEvents();
    return came;
  }

  const std::map<std::string, Qt::Key> keys = {
      {"left", Qt::Key_Left}, {"right", Qt::Key_Right},   {"up", Qt::Key_Up},
      {"down", Qt::Key_Down}, {"enter", Qt::Key_Return},  {"space", Qt::Key_Space},
      {"tab", Qt::Key_Tab},   {"escape", Qt::Key_Escape}, {"delete", Qt::Key_Delete}};
  const ChessGraphics graphics_ = ColouredGraphics();
  QPointer<BoardWindow> window_;
};

TEST_F(SetupBoardTest, EveryWayOfCarryingAPieceDoesWhatItsEndsSay) {
  const struct {
    const char* name;
    const char* gestures;
    const char* changes;
    const char* heard;  ///< 3 is a piece lifted from the palette, 4 a drop
  } rows[] = {
      {"palette to square", "drag p6 54", "54=6", "34"},
      {"palette onto a piece", "drag p2 52", "52=2", "34"},
      {"board to board", "drag 52 54", "52=0 54=6", "4"},
      {"onto any piece", "drag 52 57", "52=0 57=6", "4"},
      {"there and back", "press 52 move 54 release 52", "", "4"},
      {"board to palette", "drag 52 p1", "52=0", "4"},
      {"board to trash", "drag 52 trash", "52=0", "4"},
      {"palette to trash", "drag p6 trash", "", "34"},
      {"palette to palette", "drag p6 p2", "", "3"},
      {"board to nowhere", "drag 52 nowhere", "", ""},
      {"palette to nowhere", "drag p6 nowhere", "", "3"},
      {"from an empty square", "drag 54 55", "", ""},
      {"a king that is on the board", "drag p5 54", "", ""},
      {"Escape in the middle", "press 52 move 54 escape release 54", "", ""},
      {"clicks on the board", "click 52 click 54", "52=0 54=6", "4"},
      {"clicks from the palette", "click p6 click 54 click 55", "54=6", "34"},
      {"a click on the trash", "click 52 click trash", "52=0", "4"},
      {"put down again", "click 52 click 52 click 54", "", ""},
      {"the selection is forgotten for a drag", "click 42 drag 52 54", "52=0 54=6", "4"},
      {"the selection is forgotten for the palette", "click 52 click p2 click 54", "54=2", "34"},
      {"keys on the board", "enter up up space", "52=0 54=6", "4"},
      {"keys from the palette", "tab right right down right enter up up enter", "54=6", "34"},
      {"the keyboard begins where the mouse was", "click p8 enter", "52=8", "34"},
      {"Delete", "delete up delete", "52=0", "4"},
      {"Escape lets go", "enter escape up enter", "", ""},
  };
  for (const bool simple : {true, false}) {
    for (const auto& row : rows) {
      SCOPED_TRACE(std::string(row.name) + (simple ? ", plain" : ", skinned"));
      Open(simple);
      Do(row.gestures);
      EXPECT_EQ(Changes(), row.changes);
      EXPECT_EQ(Heard(), row.heard);
      ExpectThatThePictureShowsThePosition();
      EXPECT_TRUE(desktop_.boxes.messages.empty());
      EXPECT_FALSE(window_->isMinimized());
    }
  }
}

TEST_F(SetupBoardTest, ARefusedPieceGoesBackAndTheUserIsToldWhy) {
  InBothLooks([this] {
    for (const char* gestures : {"drag p4 67", "drag 41 67", "click 41 click 67"}) {
      SCOPED_TRACE(gestures);
      Button(board::ResetSetupButton).click();
      Do("drag p3 34");
      ASSERT_EQ(Changes(), "34=3");
      desktop_.boxes.messages.clear();
      Do(gestures);
      EXPECT_EQ(desktop_.LastMessage().first, "Invalid setup");
      EXPECT_EQ(desktop_.LastMessage().second.substr(0, 10), "Checkmate.");
      EXPECT_EQ(Changes(), "34=3");
      ExpectThatThePictureShowsThePosition();
    }
  });
}

TEST_F(SetupBoardTest, FromAnEmptyBoardToTheFirstMove) {
  for (const bool againstComputer : {false, true}) {
    Process().ComputerGame = againstComputer;
    InBothLooks([&] {
      const auto inSetup = [&](bool expected) {
        EXPECT_EQ(Sees(u"PiecePallete"_s), expected);
        EXPECT_EQ(Sees(u"Trash"_s), expected);
        EXPECT_EQ(Sees(u"MoveList"_s), !expected);
        EXPECT_EQ(Sees(u"PlayerComment"_s), !expected && !againstComputer);
        if (platform::Settings().SimpleUI) return;
        EXPECT_EQ(Sees(u"PlayerComment_L"_s), !expected && !againstComputer);
        EXPECT_EQ(Sees(u"Menu2Button"_s), !expected);
      };
      const auto marked = [this] {
        return std::pair(Sees(u"MovePointer_1"_s), Sees(u"MovePointer_2"_s));
      };
      inSetup(true);
      EXPECT_TRUE(Button(board::ResetSetupButton).toolTip().startsWith(u"RESET"_s));
      EXPECT_EQ(marked(), std::pair(true, true));
      Button(board::ClearSetupButton).click();
      EXPECT_EQ(marked(), std::pair(false, false));
      Do("drag p5 51");
      EXPECT_EQ(marked(), std::pair(true, false));
      Do("drag p11 58");
      EXPECT_EQ(marked(), std::pair(true, true));
      EXPECT_FALSE(Button(board::PlaySetupButton).isEnabled()) << "two kings alone";
      Do("drag p6 51");
      EXPECT_EQ(marked(), std::pair(false, true)) << "the pawn took the king's place";
      Do("drag p5 41 drag 51 52");
      EXPECT_TRUE(Button(board::PlaySetupButton).isEnabled());

      Button(board::PlaySetupButton).click();
      EXPECT_FALSE(Process().BoardSetupMode);
      inSetup(false);
      EXPECT_TRUE(Button(board::SendButton).toolTip().startsWith(u"SEND"_s));
      Do("up enter up up enter");
      EXPECT_EQ(window_->Logic().Moves.Last().MoveText, "e4");
      EXPECT_TRUE(desktop_.boxes.messages.empty());
    });
  }
}

TEST_F(SetupBoardTest, RemovingEveryPieceIsOfferedForAllButTheKings) {
  InBothLooks([this] {
    EXPECT_FALSE(RemoveAll(u"PiecePallete_5"_s, false) || RemoveAll(u"PiecePallete_11"_s, false));
    EXPECT_TRUE(RemoveAll(u"PiecePallete_2"_s, false));
    EXPECT_EQ(Changes(), "21=0 71=0");
    Do("tab right right down");
    EXPECT_TRUE(RemoveAll(u"PiecePallete_6"_s, true));
    EXPECT_EQ(Changes(), "12=0 21=0 22=0 32=0 42=0 52=0 62=0 71=0 72=0 82=0");
    EXPECT_TRUE(desktop_.boxes.messages.empty());
  });
}

}  // namespace
}  // namespace ui
