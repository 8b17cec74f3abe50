// SPDX-License-Identifier: GPL-3.0-or-later
// The windows in the skinned look, and what they do in both.
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QFontInfo>
#include <QTableWidget>

#include <cstdlib>
#include <memory>
#include <set>
#include <utility>

#include "shell/playing.h"
#include "skin/placed_skin.h"
#include "skin/strip_button.h"
#include "skin/system_button.h"
#include "ui/board/board_window.h"
#include "ui/board/exchange_pawn.h"
#include "ui/board/setup_warning.h"
#include "ui/games/choose_opponent.h"
#include "ui/program/msg_form.h"
#include "ui/program/status_window.h"
#include "ui/program/system_tray.h"
#include "ui/skin_fixture.h"

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

  static std::unique_ptr<MsgForm> NewMsgForm() {
    return std::make_unique<MsgForm>(platform::Message{1, "Title", "Text", "Yes", "No", 0});
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

  const boards::ChessGraphics graphics_ = ColouredGraphics();
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
  const auto form = NewMsgForm();
  form->show();
  const std::tuple<const char*, QPoint, bool> rows[] = {
      {"a bare place", {231, 215}, true},
      {"a text", MiddleOf(layouts::msgForm, "Message"), true},
      {"a button", MiddleOf(layouts::msgForm, "OkButton"), false},
  };
  for (const auto& [name, press, moves] : rows) {
    form->move(200, 100);
    QWidget* child = form->childAt(press);
    QWidget& target = child ? *child : *form;
    const QPoint place = target.mapFrom(form.get(), press);
    QTest::mousePress(&target, Qt::LeftButton, {}, place);
    QTest::mouseMove(&target, place + QPoint(15, 7));
    QTest::mouseRelease(&target, Qt::LeftButton, {}, place + QPoint(15, 7));
    EXPECT_EQ(form->pos() != QPoint(200, 100), moves) << name;
  }
}

TEST_F(SkinnedWindowsTest, EveryControlHasItsRectangleAndTheColoursOfItsRow) {
  BoardWindow board(graphics_);
  board.show();
  for (const layouts::Control& control : layouts::board.controls) {
    if (control.surface == layouts::Surface::Occasion || control.name == "Wordmark") continue;
    SCOPED_TRACE(control.name.data());
    const auto& widget = Find(board, control.name.data());
    const auto* button = qobject_cast<const SkinButton*>(&widget);
    EXPECT_EQ(button ? button->Place() : widget.geometry(),
              QRect(control.rect.x, control.rect.y, control.rect.width, control.rect.height));
  }
  const std::tuple<const char*, QPalette::ColorRole, QColor> rows[] = {
      {"PlayersTag", QPalette::Text, ChartColour(0, 1, 1)},
      {"OpponentComment", QPalette::Text, ChartColour(0, 1, 3)},
      {"PlayerComment", QPalette::Base, ChartColour(0, 1, 1)},
      {"PlayerComment", QPalette::Text, ChartColour(0, 2, 1)},
      {"MoveList", QPalette::Base, ChartColour(0, 3, 1)},
      {"MoveList", QPalette::HighlightedText, ChartColour(0, 6, 1)}};
  for (const auto& [name, role, colour] : rows) {
    EXPECT_EQ(Find(board, name).palette().color(role), colour) << name << role;
  }
  const ChooseOpponent window({u"Eva"_s, u"Max"_s});
  const auto& box = Find<QComboBox>(window, "OppList");
  for (const QPalette& palette : {box.palette(), box.view()->palette()}) {
    EXPECT_EQ(palette.color(QPalette::Base), ChartColour(0, 1, 1));
    EXPECT_EQ(palette.color(QPalette::Text), ChartColour(0, 2, 1));
  }
}

TEST_F(SkinnedWindowsTest, EveryBoxToTickHasTheColoursOfAField) {
  const SkinRow& row = *FindSkinRow("OptionsPage");
  for (const layouts::Control& control : layouts::optionsPage.controls) {
    const std::string name(control.name);
    if (!name.ends_with("_L") || !name.starts_with("op") || name == "opWindowSize_L") continue;
    EXPECT_NE(row.fieldControls.find(name.substr(0, name.size() - 2)), std::string::npos) << name;
    EXPECT_NE(row.textControls.find(name), std::string::npos) << name;
  }
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
  DrawSkin(1);
  QFile::remove(PathOf("ExchangePawnText.bmp"));
  EXPECT_FALSE(ChangeSkin(NameOf(1)));
  EXPECT_EQ(FileTold(), PathOf("ExchangePawn.jpg").toStdString());
  EXPECT_EQ(SeenAt(first, {160, 62}), BackgroundColour(1));
  EXPECT_EQ(SeenAt(second, {130, 130}), BackgroundColour(0)) << "all of a skin or nothing";
  EXPECT_EQ(SeenAt(*third, {231, 215}), BackgroundColour(0)) << "nobody comes after it";
  EXPECT_TRUE(QTest::qWaitFor([&] { return !second.isVisible(); }));
}

TEST_F(SkinnedWindowsTest, AnEdgeIsSmoothOnACompositedScreenAndCutElsewhere) {
  for (const bool composited : {false, true}) {
    SCOPED_TRACE(composited);
    QWidget window;
    window.setObjectName(u"MsgForm"_s);
    const PlacedSkin skin(window, layouts::msgForm, composited);
    ASSERT_TRUE(ApplySkin(window));
    EXPECT_EQ(window.mask().isEmpty(), composited);
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
  const PlacedSkin skin(window, layout);
  ASSERT_TRUE(ApplySkin(window));
  BringUp(window);
  EXPECT_GE(std::abs(qGray(window.palette().color(QPalette::WindowText).rgb()) -
                     qGray(BackgroundColour(0).rgb())),
            100);
  for (const QColor text : {QColor(Qt::black), QColor(Qt::white), QColor(Qt::gray)}) {
    QPalette palette = window.palette();
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Highlight, text == Qt::black ? Qt::white : Qt::black);
    window.setPalette(palette);
    const auto greyAt = [&window](int x, int y) { return qGray(SeenAt(window, {x, y}).rgb()); };
    list->setFocus();
    EXPECT_EQ(greyAt(110, 60 - 2), qGray(text.rgb())) << "the accent may be the ground's colour";
    button->setFocus();
    EXPECT_EQ(greyAt(248, 60 - 3), qGray(text.rgb()));
    EXPECT_GE(std::abs(greyAt(248, 60 - 1) - greyAt(248, 60 - 3)), 100) << "two lines";
  }
}

TEST_F(SkinnedWindowsTest, TextHasTheDesktopsSizeAsFarAsThereIsRoom) {
  for (const auto& [desktops, shown] : {std::pair{8, 12}, std::pair{12, 12}, std::pair{30, 13}}) {
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPixelSize(desktops);
    QApplication::setFont(font);
    EXPECT_EQ(QFontInfo(Find(*NewMsgForm(), "Message").font()).pixelSize(), shown);
    QApplication::setFont(before);
  }
}

TEST_F(SkinnedWindowsTest, AWindowWithoutItsSkinIsNeverSeenAndNoGameOpensInIt) {
  QFile::remove(PathOf("BoardGrid.bmp"));
  QFile::remove(PathOf("MsgForm.jpg"));
  SaveChessSet(folder_.path() + u"/Graphics/Classic Wood"_s);
  SystemTray tray([](const char*) {}, [] {}, [] { return true; });
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
}

TEST_F(SkinnedWindowsTest, ASystemButtonShowsItsStateAndAnswersMouseAndKeyboard) {
  const auto form = NewMsgForm();
  BringUp(*form);
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
  QTest::mouseClick(&button, Qt::LeftButton, {}, {1, 1});  // in the room of the ring
  EXPECT_EQ(clicks, 1);
  button.setFocus();
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) QTest::keyClick(&button, key);
  EXPECT_EQ(clicks, 3);
  SetButtonEnabled(*form, u"CancelButton"_s, false);
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
  QTest::mousePress(&Find(board, "Toolbar1_2"), Qt::LeftButton);
  EXPECT_EQ(seen("Toolbar1_2"), StripColour(0, layouts::ToolDown, layouts::CoordsRow));
}

TEST_F(SkinnedWindowsTest, TheKeyboardReachesEveryControlAndEachHasAName) {
  const std::set<QString> reached[] = {
      {},
      {u"CBoard"_s, u"MoveList"_s, u"PlayerComment"_s, u"Menu1Button"_s, u"Menu2Button"_s,
       u"MinimiseButton"_s, u"Toolbar1_1"_s, u"Toolbar1_2"_s, u"Toolbar1_6"_s, u"Toolbar1_7"_s},
      {u"OkButton"_s, u"CancelButton"_s},
      {u"PieceButton0"_s, u"PieceButton1"_s, u"PieceButton2"_s, u"PieceButton3"_s},
      {u"OkButton"_s, u"CancelButton"_s, u"WarningMessage"_s}};
  const auto windows = AllWindows();
  for (std::size_t i = 0; i < windows.size(); ++i) {
    QWidget& window = *windows[i].second;
    SCOPED_TRACE(windows[i].first->window.data());
    window.activateWindow();
    std::set<QString> found;
    for (int tabs = 0; tabs < 30; ++tabs) {
      Key(Qt::Key_Tab)(window);
      QWidget* focused = window.focusWidget();
      if (!focused || focused == &window) continue;
      found.insert(focused->objectName());
      QAccessibleInterface* access = QAccessible::queryAccessibleInterface(focused);
      EXPECT_FALSE(access->text(QAccessible::Name).isEmpty())
          << focused->objectName().toStdString();
    }
    EXPECT_EQ(found, reached[i]);
  }
}

}  // namespace
}  // namespace ui
