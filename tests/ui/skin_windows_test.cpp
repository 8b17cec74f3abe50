// SPDX-License-Identifier: GPL-3.0-or-later
// The windows in the skinned look, and what they do in both.
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QFontInfo>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTableWidget>

#include <cstdlib>
#include <memory>
#include <set>
#include <utility>

#include "shell/playing.h"
#include "skin/strip_button.h"
#include "skin/system_button.h"
#include "skin/window_region.h"
#include "skin_fixture.h"
#include "ui/board/board_window.h"
#include "ui/board/exchange_pawn.h"
#include "ui/board/move_list_table.h"
#include "ui/board/setup_warning.h"
#include "ui/games/choose_opponent.h"
#include "ui/program/msg_form.h"
#include "ui/program/status_window.h"
#include "ui/program/system_tray.h"
#include "widgets/plain_text_view.h"

namespace ui {
namespace {

class SkinnedWindowsTest : public SkinTest {
 protected:
  SkinnedWindowsTest() {
    Process().Offline = false;
    StoreGame(1, store::MoveWaiting, "Eva", {{"5254", "e4"}, {"5755", "e5"}});
    Process().CurrentGameID = 1;
  }

  using Window = std::unique_ptr<QWidget>;

  std::unique_ptr<MsgForm> NewMsgForm(const char* cancel = "No", const std::string& text = "Text") {
    return std::make_unique<MsgForm>(platform::Message{1, "Title", text, "Yes", cancel, 0});
  }

  /// Windows by their layouts, made anew and shown. There are more warnings than the skinned dialog
  /// has room for.
  std::vector<std::pair<const layouts::Layout*, Window>> AllWindows() {
    std::vector<std::pair<const layouts::Layout*, Window>> windows;
    windows.emplace_back(&layouts::statusWindow, std::make_unique<StatusWindow>());
    windows.emplace_back(&layouts::board, std::make_unique<BoardWindow>(graphics_));
    windows.emplace_back(&layouts::msgForm, NewMsgForm());
    windows.emplace_back(&layouts::exchangePawn,
                         std::make_unique<ui::ExchangePawn>(graphics_, rules::White));
    windows.emplace_back(
        &layouts::setupWarning,
        std::make_unique<SetupWarningForm>(u"Black warnings\n      Some\n"_s.repeated(9)));
    for (const auto& [layout, window] : windows) {
      window->show();
      EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }
    return windows;
  }

  template <typename Control>
  static Control& Find(QWidget& window, const char* name) {
    auto* control = window.findChild<Control*>(QLatin1StringView(name));
    EXPECT_NE(control, nullptr) << name;
    return *control;
  }

  const ChessGraphics graphics_ = ColouredGraphics();
};

TEST_F(SkinnedWindowsTest, AWindowIsTheShapeOfItsOutlineOnTheSkinsPicture) {
  for (const auto& [layout, window] : AllWindows()) {
    SCOPED_TRACE(layout->window.data());
    EXPECT_EQ(window->size(), QSize(layout->size.width, layout->size.height));
    EXPECT_TRUE(window->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(window->mask(), MakeWindowRegion(layout->window, 1, 1, 0, 0));
    const QPoint bare(layout->size.width / 2, layout->size.height - 12);
    EXPECT_EQ(SeenAt(*window, bare), BackgroundColour(0));
  }
}

TEST_F(SkinnedWindowsTest, AWindowIsDraggedByItsSurfaceButNotByItsControls) {
  const struct {
    const char* name;
    const layouts::Layout& layout;
    QPoint press;
    bool moves;
  } rows[] = {
      {"a bare place", layouts::msgForm, {231, 215}, true},
      {"a text", layouts::msgForm, MiddleOf(layouts::msgForm, "Message"), true},
      {"the icon", layouts::msgForm, MiddleOf(layouts::msgForm, "MessageIcon"), true},
      {"a button", layouts::msgForm, MiddleOf(layouts::msgForm, "OkButton"), false},
      {"the board's edge", layouts::board, {114, 200}, true},
      {"a square of the board", layouts::board, {147, 412}, false},
      {"the promotion dialog", layouts::exchangePawn, {130, 125}, true},
      {"the popup for long work", layouts::statusWindow, {160, 62}, false},
  };
  auto windows = AllWindows();
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    for (const auto& [layout, window] : windows) {
      if (layout != &row.layout) continue;
      window->raise();
      window->move(200, 100);
      QWidget* child = window->childAt(row.press);
      QWidget& target = child ? *child : *window;
      const QPoint place = target.mapFrom(window.get(), row.press);
      QTest::mousePress(&target, Qt::LeftButton, {}, place);
      QTest::mouseMove(&target, place + QPoint(15, 7));
      QTest::mouseRelease(&target, Qt::LeftButton, {}, place + QPoint(15, 7));
      EXPECT_EQ(window->pos() != QPoint(200, 100), row.moves);
    }
  }
}

TEST_F(SkinnedWindowsTest, EveryControlHasItsRectangleAndTheColoursOfItsRow) {
  auto windows = AllWindows();
  QWidget& board = *windows[1].second;
  for (const layouts::Control& control : layouts::board.controls) {
    if (control.surface == layouts::Surface::Occasion || control.name == "Wordmark") continue;
    SCOPED_TRACE(control.name.data());
    auto& widget = Find<QWidget>(board, control.name.data());
    const auto* button = qobject_cast<SkinButton*>(&widget);
    EXPECT_EQ(button ? button->Place() : widget.geometry(),
              QRect(control.rect.x, control.rect.y, control.rect.width, control.rect.height));
    EXPECT_EQ(widget.isVisible(), control.name != "DrawLogo");
  }
  const auto colour = [&](const char* name, QPalette::ColorRole role) {
    return Find<QWidget>(board, name).palette().color(role);
  };
  EXPECT_EQ(colour("PlayersTag", QPalette::Text), ChartColour(0, 1, 1));
  EXPECT_EQ(colour("PlayerComment_L", QPalette::WindowText), ChartColour(0, 1, 2));
  EXPECT_EQ(colour("OpponentComment", QPalette::Text), ChartColour(0, 1, 3));
  EXPECT_EQ(colour("PlayerComment", QPalette::Base), ChartColour(0, 1, 1));
  EXPECT_EQ(colour("PlayerComment", QPalette::Text), ChartColour(0, 2, 1));
  const QPalette::ColorRole grid[] = {QPalette::Base, QPalette::Text, QPalette::Highlight,
                                      QPalette::HighlightedText};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(colour("MoveList", grid[i]), ChartColour(0, i + 3, 1)) << i;
  const QPoint heading = MiddleOf(layouts::board, "MoveList") - QPoint(-60, 134 - 3);
  EXPECT_EQ(SeenAt(board, heading), ChartColour(0, 1, 1));
}

TEST_F(SkinnedWindowsTest, TheSquaresLieWhereTheLayoutSays) {
  const BoardWindow board(graphics_);
  const BoardPicture& picture = board.Picture();
  const auto rect = [&](rules::Square square) {
    return picture.RectOf(square).translated(picture.pos());
  };
  EXPECT_EQ(rect({1, 1}), QRectF(122, 387, 50, 50));
  EXPECT_EQ(rect({8, 8}), QRectF(472, 37, 50, 50));
}

TEST_F(SkinnedWindowsTest, AnotherSkinIsPutOnAllOpenWindows) {
  auto windows = AllWindows();
  windows[3].second->hide();
  ASSERT_TRUE(ChangeSkin(NameOf(1)));
  for (const auto& [layout, window] : windows) {
    SCOPED_TRACE(layout->window.data());
    const QPoint bare(layout->size.width / 2, layout->size.height - 12);
    EXPECT_EQ(SeenAt(*window, bare), BackgroundColour(1));
  }
  QWidget& board = *windows[1].second;
  EXPECT_EQ(SeenAt(board, MiddleOf(layouts::board, "Toolbar1_1") - QPoint(30, 18)),
            StripColour(1, layouts::ToolUp, 0));
  EXPECT_EQ(SeenAt(board, MiddleOf(layouts::board, "Menu2Button") - QPoint(70, 0)),
            StripColour(1, layouts::ButtonUp, 0));
  EXPECT_EQ(Find<QWidget>(board, "MoveList").palette().color(QPalette::Text), ChartColour(1, 4, 1));
  EXPECT_EQ(platform::Settings().Skin, NameOf(1));
}

TEST_F(SkinnedWindowsTest, AChangeStopsAtTheWindowThatLacksAFileAndClosesIt) {
  StatusWindow first;
  ui::ExchangePawn second(graphics_, rules::White);  // refuses to close
  const auto third = NewMsgForm();
  for (QWidget* window : {static_cast<QWidget*>(&first), static_cast<QWidget*>(&second),
                          static_cast<QWidget*>(third.get())}) {
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
  }
  platform::Settings().Skin = NameOf(1);
  QFile::remove(PathOf("ExchangePawnText.bmp"));
  EXPECT_FALSE(ChangeSkin(NameOf(1)));
  EXPECT_EQ(FileTold(), PathOf("ExchangePawn.jpg").toStdString());
  EXPECT_EQ(SeenAt(first, {160, 62}), BackgroundColour(1));
  EXPECT_EQ(SeenAt(second, {130, 130}), BackgroundColour(0)) << "all of a skin or nothing";
  EXPECT_EQ(SeenAt(*third, {231, 215}), BackgroundColour(0)) << "nobody comes after it";
  EXPECT_TRUE(QTest::qWaitFor([&] { return !second.isVisible(); }));
}

TEST_F(SkinnedWindowsTest, TheListHearsOfNewButtonsWhenItComesBackForTheBoard) {
  const struct {
    const char* name;
    bool simple, fromList, shuttingDown, told;
  } rows[] = {{"back to the list", false, true, false, true},
              {"back to the tray", false, false, false, false},
              {"the program ends", false, true, true, false},
              {"no new buttons", true, true, false, false}};
  SaveChessSet(folder_.path() + u"/Graphics/Classic Wood"_s);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    platform::Settings().SimpleUI = row.simple;
    SystemTray tray([] {}, [] {}, [] { return true; });
    ProgramWindows& windows = tray.Windows();
    shell::PlayGame(1);
    ASSERT_NE(windows.OpenedBoard(), nullptr);
    Process().RefreshButtonsPending = !row.simple;
    windows.OpenedBoard()->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(windows.OpenedBoard()));
    EXPECT_FALSE(Process().RefreshButtonsPending) << "the board has its own";
    Process().BoardFromGameList = row.fromList;
    Process().ShuttingDown = row.shuttingDown;
    windows.OpenedBoard()->close();
    EXPECT_EQ(Process().RefreshButtonsPending, row.told);
    EXPECT_EQ(windows.GameList() != nullptr, row.fromList && !row.shuttingDown);
    Process().RefreshButtonsPending = Process().ShuttingDown = Process().BoardOpen = false;
  }
}

TEST_F(SkinnedWindowsTest, AnEdgeIsSmoothOnACompositedScreenAndCutElsewhere) {
  for (const bool composited : {false, true}) {
    SCOPED_TRACE(composited);
    QWidget window;
    window.setObjectName(u"MsgForm"_s);
    const WindowSkin skin(window, layouts::msgForm, composited);
    ASSERT_TRUE(ApplySkin(window));
    EXPECT_EQ(window.testAttribute(Qt::WA_TranslucentBackground), composited);
    EXPECT_EQ(window.mask(), composited ? QRegion() : MakeWindowRegion("MsgForm", 1, 1, 0, 0));
    const QImage picture = window.grab().toImage();
    std::set<int> alphas;
    for (int x = 0; x < 40; ++x) alphas.insert(picture.pixelColor(x, x).alpha());
    EXPECT_EQ(alphas.contains(0), composited) << "outside";
    EXPECT_TRUE(alphas.contains(255)) << "inside";
    EXPECT_EQ(alphas.size() > 2, composited) << "between the two";
  }
}

TEST_F(SkinnedWindowsTest, TheFocusIsSeenOnEverySurfaceAndWithoutATextChart) {
  static constexpr layouts::Control controls[] = {
      {"GameList", layouts::Surface::Grid, {60, 60, 100, 40}},
      {"Button", layouts::Surface::Button, {200, 60, 96, 28}}};
  static constexpr layouts::Layout layout{"GameInterface", {719, 341}, controls};
  QWidget window;
  window.setObjectName(u"GameInterface"_s);
  auto* list = new QTableWidget(&window);
  list->setObjectName(u"GameList"_s);
  auto* button = new SystemButton(u"Button"_s, &window);
  const WindowSkin skin(window, layout);
  ASSERT_TRUE(ApplySkin(window));
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  EXPECT_GE(std::abs(qGray(window.palette().color(QPalette::WindowText).rgb()) -
                     qGray(BackgroundColour(0).rgb())),
            100);
  for (const QColor text : {QColor(Qt::black), QColor(Qt::white), QColor(Qt::gray)}) {
    QPalette palette = window.palette();
    palette.setColor(QPalette::WindowText, text);
    window.setPalette(palette);
    for (const auto& [control, middle] :
         {std::pair<QWidget*, int>{list, 110}, std::pair<QWidget*, int>{button, 248}}) {
      control->setFocus();
      const auto greyAt = [&window, x = middle](int y) {
        return qGray(SeenAt(window, {x, y}).rgb());
      };
      EXPECT_EQ(greyAt(60 - 3), qGray(text.rgb()));
      EXPECT_GE(std::abs(greyAt(60 - 1) - greyAt(60 - 3)), 100) << "two lines";
    }
  }
}

TEST_F(SkinnedWindowsTest, TextHasTheDesktopsSizeAsFarAsThereIsRoom) {
  for (const auto& [desktops, shown] : {std::pair{8, 12}, std::pair{12, 12}, std::pair{30, 13}}) {
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPixelSize(desktops);
    QApplication::setFont(font);
    const auto form = NewMsgForm();
    EXPECT_EQ(QFontInfo(Find<QWidget>(*form, "Message").font()).pixelSize(), shown);
    QApplication::setFont(before);
  }
}

TEST_F(SkinnedWindowsTest, AWindowWithoutItsSkinIsNeverSeenAndNoGameOpensInIt) {
  QFile::remove(PathOf("BoardGrid.bmp"));
  QFile::remove(PathOf("MsgForm.jpg"));
  SaveChessSet(folder_.path() + u"/Graphics/Classic Wood"_s);
  SystemTray tray([] {}, [] {}, [] { return true; });
  shell::PlayGame(1);
  EXPECT_EQ(FileTold(), PathOf("Board.jpg").toStdString());
  EXPECT_EQ(tray.Windows().OpenedBoard(), nullptr);
  EXPECT_FALSE(Process().CheckTimerHeld || Process().BoardOpen);
  NewMsgForm()->exec();  // comes back by itself
  EXPECT_EQ(FileTold(), PathOf("MsgForm.jpg").toStdString());
}

TEST_F(SkinnedWindowsTest, InThePlainLookNoPictureOfASkinIsRead) {
  platform::Settings().SimpleUI = true;
  platform::Settings().Skin = "none such";
  for (const auto& [layout, window] : AllWindows()) {
    EXPECT_TRUE(window->isVisible() && window->mask().isEmpty());
    EXPECT_FALSE(window->windowFlags().testFlag(Qt::FramelessWindowHint));
  }
  EXPECT_EQ(FileTold(), "nothing");
  EXPECT_FALSE(ApplySkinToSystemTray()) << "but for the strip of the hidden window";
}

TEST_F(SkinnedWindowsTest, ASystemButtonShowsItsStateAndAnswersMouseAndKeyboard) {
  const auto form = NewMsgForm();
  form->show();
  form->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
  auto& button = Find<SystemButton>(*form, "CancelButton");
  const QPoint face = button.Place().topLeft() + QPoint(8, 14);
  const QColor up = StripColour(0, layouts::ButtonUp, 0),
               down = StripColour(0, layouts::ButtonDown, 0);
  int clicks = 0;
  QObject::disconnect(&button, nullptr, form.get(), nullptr);
  QObject::connect(&button, &QAbstractButton::clicked, [&] { ++clicks; });
  const QPoint place = face - button.pos();

  EXPECT_EQ(SeenAt(*form, face), up);
  QTest::mousePress(&button, Qt::LeftButton, {}, place);
  EXPECT_EQ(SeenAt(*form, face), down);
  QTest::mouseRelease(&button, Qt::LeftButton, {}, place);
  QTest::mouseClick(&button, Qt::RightButton, {}, place);
  QTest::mouseClick(&button, Qt::LeftButton, {}, {1, 1});  // in the room of the ring
  EXPECT_EQ(clicks, 1);
  button.setFocus();
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
    QTest::keyClick(&button, key);
  EXPECT_EQ(clicks, 4);
  const QPoint ring(button.Place().center().x(), button.Place().top() - 3);
  EXPECT_EQ(SeenAt(*form, ring), ChartColour(0, 1, 1)) << "where the keyboard is";
  Find<QAbstractButton>(*form, "OkButton").setFocus();
  EXPECT_EQ(SeenAt(*form, ring), BackgroundColour(0));

  SetButtonEnabled(*form, u"CancelButton"_s, false);
  QTest::mouseClick(&button, Qt::LeftButton, {}, place);
  EXPECT_EQ(clicks, 4);
  EXPECT_GT(SeenAt(*form, face).lightness(), up.lightness()) << "paler, on the darkest skin too";
}

TEST_F(SkinnedWindowsTest, TheToolbarShowsTheCellsOfItsStates) {
  BoardWindow board(graphics_);
  board.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&board));
  const auto seen = [&](const char* name) {
    return SeenAt(board, MiddleOf(layouts::board, name) - QPoint(30, 18));
  };
  EXPECT_EQ(seen("Toolbar1_2"), StripColour(0, layouts::ToolUp, layouts::CoordsRow));
  EXPECT_EQ(seen("Toolbar1_3"), StripColour(0, layouts::ToolDisabled, layouts::UndoRow));
  auto& coordinates = Find<StripButton>(board, "Toolbar1_2");
  QTest::mousePress(&coordinates, Qt::LeftButton);
  EXPECT_EQ(seen("Toolbar1_2"), StripColour(0, layouts::ToolDown, layouts::CoordsRow));
  QTest::mouseRelease(&coordinates, Qt::LeftButton);
  EXPECT_TRUE(board.Logic().CoordsVisible);
  EXPECT_EQ(coordinates.accessibleName(), u"Hide coordinates"_s);
}

TEST_F(SkinnedWindowsTest, TheMenuButtonsOpenTheirMenusBelowThemselves) {
  BoardWindow board(graphics_);
  board.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&board));
  for (const auto& [name, menu] :
       {std::pair{"Menu1Button", "mnuActionsMenu"}, std::pair{"Menu2Button", "mnuHistoryMenu"}}) {
    auto& button = Find<SystemButton>(board, name);
    for (const bool byKey : {false, true}) {
      QPoint corner;
      QTimer::singleShot(0, &board, [&, menuName = menu] {
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_NE(popup, nullptr);
        EXPECT_EQ(popup->objectName(), QLatin1StringView(menuName));
        corner = popup->pos();
        popup->close();
      });
      if (byKey) {
        QTest::keyClick(&button, Qt::Key_Return);
      } else {
        QTest::mousePress(&button, Qt::LeftButton);
      }
      const QRect place = button.Place();
      EXPECT_EQ(corner, board.mapToGlobal(QPoint(place.left(), place.bottom() + 1)));
      EXPECT_FALSE(button.isDown());
    }
  }
}

TEST_F(SkinnedWindowsTest, AMessagesOnlyButtonStandsInTheMiddleAndALongTextScrolls) {
  const auto form = NewMsgForm("", std::string(3000, 'x'));
  form->show();
  const auto& ok = Find<SystemButton>(*form, "OkButton");
  EXPECT_EQ(ok.Place(), QRect(183, 182, 96, 28));
  EXPECT_EQ(form->findChild<QWidget*>(u"CancelButton"_s), nullptr);
  auto& text = Find<PlainTextView>(*form, "Message");
  text.setFocus();
  QTest::keyClick(&text, Qt::Key_PageDown);
  EXPECT_GT(text.verticalScrollBar()->value(), 0) << "by keyboard, too";
}

TEST_F(SkinnedWindowsTest, ACaptionOfTwoLinesHasRoomForBoth) {
  MsgForm form(
      {1, "A caption that is too long for the one line that most captions need", "", "OK", "", 0});
  form.show();
  const auto& caption = Find<PlainTextView>(form, "FormCaption");
  EXPECT_EQ(caption.verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(caption.geometry().bottom() + 1,
            layouts::RectOf(layouts::msgForm, "FormCaption").Bottom());
}

TEST_F(SkinnedWindowsTest, AComboBoxAndItsListHaveTheColoursOfAField) {
  const ChooseOpponent window({u"Eva"_s, u"Max"_s});
  const auto* box = window.findChild<QComboBox*>(u"OppList"_s);
  for (const QPalette& palette : {box->palette(), box->view()->palette()}) {
    EXPECT_EQ(palette.color(QPalette::Base), ChartColour(0, 1, 1));
    EXPECT_EQ(palette.color(QPalette::Text), ChartColour(0, 2, 1));
  }
}

TEST_F(SkinnedWindowsTest, AWindowComesUpInTheMiddleOfItsOwner) {
  QWidget owner;
  owner.setGeometry(50, 40, 600, 400);
  owner.show();
  ChooseOpponent window({u"Eva"_s}, &owner);
  window.show();
  EXPECT_EQ(window.geometry().center(), owner.frameGeometry().center());
}

TEST_F(SkinnedWindowsTest, TheKeyboardReachesEveryControlAndEachHasAName) {
  const std::set<QString> reached[] = {
      {},
      {u"CBoard"_s, u"MoveList"_s, u"PlayerComment"_s, u"Menu1Button"_s, u"Menu2Button"_s,
       u"MinimiseButton"_s, u"Toolbar1_1"_s, u"Toolbar1_2"_s, u"Toolbar1_6"_s, u"Toolbar1_7"_s},
      {u"OkButton"_s, u"CancelButton"_s},
      {u"PieceButton0"_s, u"PieceButton1"_s, u"PieceButton2"_s, u"PieceButton3"_s},
      {u"OkButton"_s, u"CancelButton"_s, u"WarningMessage"_s}};
  const std::set<QString> reachedSimply[] = {{},
                                             {u"CBoard"_s, u"MoveList"_s, u"PlayerComment"_s,
                                              u"Toolbar1S_1"_s, u"Toolbar1S_2"_s, u"Toolbar1S_7"_s},
                                             {u"OKButtonS"_s, u"CancelButtonS"_s},
                                             reached[3],
                                             {u"OKButtonS"_s, u"CancelButtonS"_s}};
  for (const bool simple : {false, true}) {
    platform::Settings().SimpleUI = simple;
    auto windows = AllWindows();
    for (std::size_t i = 0; i < windows.size(); ++i) {
      QWidget& window = *windows[i].second;
      SCOPED_TRACE(window.objectName().toStdString());
      window.activateWindow();
      std::set<QString> found;
      for (int tabs = 0; tabs < 30; ++tabs) {
        QWidget* focused = window.focusWidget();
        QTest::keyClick(focused ? focused : &window, Qt::Key_Tab);
        focused = window.focusWidget();
        if (!focused || focused == &window) continue;
        found.insert(focused->objectName());
        QAccessibleInterface* access = QAccessible::queryAccessibleInterface(focused);
        EXPECT_FALSE(access->text(QAccessible::Name).isEmpty())
            << focused->objectName().toStdString();
      }
      EXPECT_EQ(found, simple ? reachedSimply[i] : reached[i]);
    }
  }
}

}  // namespace
}  // namespace ui
