// SPDX-License-Identifier: GPL-3.0-or-later
// Setting up a position on the Board window, with mouse and keyboard as they reach the window.
#include <QClipboard>
#include <QMenu>
#include <QTextEdit>

#include "rules/position.h"
#include "ui/board/board_window_fixture.h"

namespace ui {
namespace {

using rules::ThePosition;

class SetupBoardTest : public BoardWindowTest {
 protected:
  void OpenAtTheStart(Look look = Look::Plain) {
    OpenSetup(look);
    start_ = ThePosition().BoardState;
  }

  /// Squares that differ from the usual start, such as "52=0 54=6".
  std::string Changes() const {
    std::string changes;
    for (int number = 11; number <= 88; ++number) {
      const rules::Square square = rules::FromNumber(number);
      if (!rules::IsOnBoard(square)) continue;
      const rules::PieceCode piece = ThePosition().BoardState.At(square);
      if (piece == start_.At(square)) continue;
      if (!changes.empty()) changes += ' ';
      changes += std::to_string(number) + '=' + std::to_string(piece);
    }
    return changes;
  }

  void ExpectThatThePictureShowsThePosition() {
    const auto* floating = window_->findChild<FloatingPiece*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !floating->isVisible(); })) << "something is held";
    const QImage seen = Seen();
    for (int i = 0; i < 64; ++i) {
      const rules::Square square = rules::SquareAt(i);
      EXPECT_EQ(seen.pixelColor(PointOf(std::to_string(NumberOf(square)))),
                ColourOfCell(board::SquareCell(Game(), square)))
          << NumberOf(square);
    }
  }

  /// Asks for the menu of a picture and takes its entry; false where no menu came up.
  bool RemoveAll(const char* picture) {
    bool came = false;
    QTimer::singleShot(0, window_, [&came] {
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      if (!menu) return;
      came = true;
      QTest::keyClick(menu, Qt::Key_Down);
      QTest::keyClick(menu, Qt::Key_Return);
    });
    QWidget& asked = Find(picture);
    const QPoint middle = asked.rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, middle, asked.mapToGlobal(middle));
    QApplication::sendEvent(&asked, &event);
    QCoreApplication::processEvents();
    return came;
  }

  rules::BoardSquares start_;
};

TEST_F(SetupBoardTest, EveryWayOfCarryingAPieceDoesWhatItsEndsSay) {
  const struct {
    const char* name;
    const char* gestures;
    const char* changes;
    const char* heard;  ///< 3 is a piece lifted from the palette, 4 a drop
  } rows[] = {
      {"palette onto a piece", "drag p2 52", "52=2", "34"},
      {"board to board", "drag 52 54", "52=0 54=6", "4"},
      {"there and back", "press 52 move 54 release 52", "", "4"},
      {"board to palette", "drag 52 p1", "52=0", "4"},
      {"board to trash", "drag 52 trash", "52=0", "4"},
      {"palette to palette", "drag p6 p2", "", "3"},
      {"board to nowhere", "drag 52 nowhere", "", ""},
      {"from an empty square", "drag 54 55", "", ""},
      {"a king that is on the board", "drag p5 54", "", ""},
      {"Escape in the middle", "press 52 move 54 escape release 54", "", ""},
      {"clicks on the board", "click 52 click 54", "52=0 54=6", "4"},
      {"clicks from the palette", "click p6 click 54 click 55", "54=6", "34"},
      {"put down again", "click 52 click 52 click 54", "", ""},
      {"the selection is forgotten for a drag", "click 42 drag 52 54", "52=0 54=6", "4"},
      {"the selection is forgotten for the palette", "click 52 click p2 click 54", "54=2", "34"},
      {"keys on the board", "enter up up space", "52=0 54=6", "4"},
      {"keys from the palette", "tab right right down right enter up up enter", "54=6", "34"},
      {"Delete", "delete up delete", "52=0", "4"},
      {"Escape lets go", "enter escape up enter", "", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    OpenAtTheStart();
    Do(row.gestures);
    EXPECT_EQ(Changes(), row.changes);
    EXPECT_EQ(Heard(), row.heard);
    ExpectThatThePictureShowsThePosition();
    EXPECT_TRUE(desktop_.boxes.messages.empty());
    EXPECT_FALSE(window_->isMinimized());
  }
}

TEST_F(SetupBoardTest, ARefusedPieceGoesBackAndTheUserIsToldWhy) {
  OpenAtTheStart();
  Do("drag p3 34");
  for (const char* gestures : {"drag p4 67", "click 41 click 67"}) {
    SCOPED_TRACE(gestures);
    Do(gestures);
    EXPECT_EQ(desktop_.LastMessage().first, "Invalid setup");
    EXPECT_EQ(desktop_.LastMessage().second.substr(0, 10), "Checkmate.");
    EXPECT_EQ(Changes(), "34=3");
    ExpectThatThePictureShowsThePosition();
  }
}

TEST_F(SetupBoardTest, APastedPositionStandsWholeOrTheUserIsToldWhy) {
  const struct {
    const char* pasted;
    const char* told;  ///< a part of it; blank where the position stands
  } rows[] = {
      {"r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1", ""},
      {" 4k3/8/8/8/8/8/4P3/4K3 w - - 7 31\n", ""},
      {"", "it is empty"},
      {"4k3/8/8/8/8/8/8/4K3 b - - 0 1", "White's move"},
      {"r3k2r/8/8/8/8/8/8/R3K2R w Qkq - 0 1", "castle"},
      {"4k3/8/8/8/8/8/r7/1r2K3 w - - 0 1", "checkmate"},
      {"k7/8/1Q6/8/8/8/8/7K w - - 0 1", "no move"},
  };
  OpenAtTheStart();
  std::string shown = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR";
  for (const auto& row : rows) {
    SCOPED_TRACE(row.pasted);
    desktop_.boxes.messages.clear();
    QGuiApplication::clipboard()->setText(QLatin1StringView(row.pasted));
    QTest::keyClick(window_->windowHandle(), Qt::Key_V, Qt::ControlModifier);
    const std::string told = desktop_.LastMessage().second;
    EXPECT_EQ(told.empty(), *row.told == '\0') << told;
    EXPECT_NE(told.find(row.told), std::string::npos) << told;
    if (told.empty())
      shown = QString(QLatin1StringView(row.pasted)).trimmed().section(u' ', 0, 0).toStdString();
    QTest::keyClick(window_->windowHandle(), Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(QString::fromStdString(shown)));
    ExpectThatThePictureShowsThePosition();
  }
}

TEST_F(SetupBoardTest, FromAnEmptyBoardToTheFirstMove) {
  for (const Look look : {Look::Plain, Look::Skinned}) {
    SCOPED_TRACE(look == Look::Plain);
    Process().ComputerGame = look == Look::Skinned;
    const auto expectSetup = [&](bool inSetup) {
      EXPECT_EQ(Shows("PiecePallete"), inSetup);
      EXPECT_EQ(Shows("Trash"), inSetup);
      EXPECT_EQ(Shows("MoveList"), !inSetup);
      EXPECT_EQ(Shows("PlayerComment"), !inSetup && !Process().ComputerGame);
    };
    OpenAtTheStart(look);
    expectSetup(true);
    Click(board::ClearSetupButton);
    EXPECT_FALSE(Shows("MovePointer_1") || Shows("MovePointer_2"));
    Do("drag p5 51 drag p11 58");
    EXPECT_TRUE(Shows("MovePointer_1") && Shows("MovePointer_2"));
    EXPECT_FALSE(Button(board::PlaySetupButton).isEnabled()) << "two kings alone";
    Do("drag p6 52");
    const auto places = [this] { return std::pair{window_->size(), PointOf("11")}; };
    const auto before = places();
    Click(board::PlaySetupButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(places(), before) << "nothing slides under the pointer";
    EXPECT_FALSE(Process().BoardSetupMode);
    expectSetup(false);
    Do("drag 52 54");
    EXPECT_EQ(LastMove(), "e4");
    EXPECT_TRUE(desktop_.boxes.messages.empty());
  }
}

TEST_F(SetupBoardTest, RemovingEveryPieceIsOfferedForAllButTheKings) {
  OpenAtTheStart();
  EXPECT_FALSE(RemoveAll("PiecePallete_5") || RemoveAll("PiecePallete_11"));
  EXPECT_TRUE(RemoveAll("PiecePallete_2"));
  EXPECT_EQ(Changes(), "21=0 71=0");
}

TEST_F(SetupBoardTest, AnOddPositionIsPlayedOnlyWhereTheUserAgrees) {
  const std::tuple<const char*, Action, bool> rows[] = {
      {"OK", ui::Click("OkButton"), true},
      {"Return is OK", Key(Qt::Key_Return), true},
      {"Cancel", ui::Click("CancelButton"), false},
      {"Escape is Cancel", Key(Qt::Key_Escape), false},
      {"so is the window's close", CloseWindow, false},
  };
  for (const auto& [name, answer, played] : rows) {
    SCOPED_TRACE(name);
    OpenSetup(Look::Skinned);
    ThePosition().BoardState.Put({5, 3}, rules::WhitePawn);
    OnNextDialog([&act = answer](QWidget& dialog) {
      EXPECT_EQ(ui::Find<QTextEdit>(dialog, "WarningMessage").toPlainText(),
                u"White warnings\n      To many pawns"_s);
      act(dialog);
      EXPECT_FALSE(dialog.isVisible());
      dialog.close();
    });
    Click(board::PlaySetupButton);
    EXPECT_EQ(Process().BoardSetupMode, !played);
  }
}

}  // namespace
}  // namespace ui
