// SPDX-License-Identifier: GPL-3.0-or-later
// The skin engine: files, charts, shapes and what happens where a skin fails.
#include <functional>
#include <utility>

#include "skin/button_parts.h"
#include "skin/colour_chart.h"
#include "skin/layouts/outlines.h"
#include "skin/system_button.h"
#include "skin/window_region.h"
#include "skin_fixture.h"

namespace ui {
namespace {

TEST(OutlineTest, EveryShapedWindowHasItsPointsInItsRange) {
  const struct {
    const char* window;
    std::size_t points;
    int left, right, top, bottom;
  } rows[] = {
      {"StatusWindow", 38, 7, 322, 6, 70},   {"NotifyForm", 40, 4, 456, 4, 181},
      {"SelectSound", 41, 5, 304, 5, 228},   {"ChooseOpponent", 47, 5, 324, 6, 135},
      {"ExchangePawn", 52, 5, 256, 6, 139},  {"Credits", 58, 5, 494, 5, 279},
      {"NewGameInfo", 69, 5, 346, 5, 227},   {"OptionsPage", 77, 6, 522, 5, 354},
      {"Board", 81, 8, 725, 9, 557},         {"SetupWarningForm", 86, 3, 451, 3, 256},
      {"SelectPrinter", 87, 6, 345, 5, 186}, {"AboutBox", 101, 5, 456, 5, 293},
      {"MsgForm", 102, 7, 455, 6, 226},      {"GameInterface", 130, 5, 714, 5, 336},
      {"HeldMailForm", 77, 5, 595, 5, 560},  {"HeldMailNote", 77, 5, 595, 5, 344},
  };
  EXPECT_EQ(std::size(rows), std::size(layouts::allWindows));
  for (const auto& row : rows) {
    SCOPED_TRACE(row.window);
    EXPECT_EQ(layouts::OutlineOf(row.window).size(), row.points);
    EXPECT_EQ(OutlinePolygon(row.window).boundingRect(),
              QRectF(QPointF(row.left, row.top), QPointF(row.right, row.bottom)));
    EXPECT_EQ(MakeWindowRegion(row.window, 1, 1, 0, 0).boundingRect(),
              QRect(row.left, row.top, row.right - row.left, row.bottom - row.top));
  }
}

TEST(OutlineTest, EveryControlLiesWithinItsWindowsShape) {
  for (const layouts::Layout& window : layouts::allWindows) {
    const QRegion shape = MakeWindowRegion(window.window, 1, 1, 0, 0);
    EXPECT_TRUE(QRect(0, 0, window.size.width, window.size.height).contains(shape.boundingRect()));
    for (const layouts::Control& control : window.controls) {
      const QRect rect(control.rect.x, control.rect.y, control.rect.width, control.rect.height);
      EXPECT_TRUE(QRegion(rect).subtracted(shape).isEmpty()) << control.name;
    }
  }
}

TEST(OutlineTest, ARegionIsScaledMovedAndRounded) {
  const struct {
    const char* name;
    double scaleX, scaleY;
    int offsetX, offsetY;
    double screenTwips;
    QRect bounds;
  } rows[] = {
      {"with the room of a frame", 1, 1, 2, 21, 15, {9, 27, 315, 64}},
      {"wider", 1.5, 1, 0, 0, 15, {11, 6, 472, 64}},
      {"a screen of twice the pixels", 1, 1, 2, 21, 7.5, {16, 33, 630, 128}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const QRegion region = MakeWindowRegion("StatusWindow", row.scaleX, row.scaleY, row.offsetX,
                                            row.offsetY, row.screenTwips);
    EXPECT_EQ(region.boundingRect(), row.bounds);
    EXPECT_TRUE(region.contains(row.bounds.center()));
    EXPECT_FALSE(region.contains(row.bounds.topLeft()));
  }
}

TEST(ColourChartTest, ACellIsOnePixelAndAChartEndsWhereItEnds) {
  const struct {
    const char* name;
    int column, row;
    QPoint pixel;
  } rows[] = {{"the first cell", 1, 1, {107, 7}},
              {"the last column", 6, 1, {182, 7}},
              {"further down", 2, 22, {122, 322}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    QImage chart(row.pixel.x() + 1, row.pixel.y() + 1, QImage::Format_RGB32);
    chart.fill(Qt::black);
    chart.setPixelColor(row.pixel, QColor(1, 2, 3));
    EXPECT_EQ(SkinColour(chart, row.column, row.row), QColor(1, 2, 3));
    EXPECT_THROW(SkinColour(chart, row.column + 1, row.row), std::out_of_range);
    EXPECT_THROW(SkinColour(chart, row.column, row.row + 1), std::out_of_range);
  }
}

TEST(ButtonPartsTest, APressedCaptionMovesAndItsShadowWithIt) {
  const TwipRect frame{300, 600, 1440, 420};
  const struct {
    const char* name;
    int labelHeight;
    bool down;
    TwipRect caption, shadow;
  } rows[] = {
      {"up", 240, false, {300, 690, 1440, 240}, {310, 700, 1440, 240}},
      {"down", 240, true, {330, 720, 1440, 240}, {340, 730, 1440, 240}},
      {"an odd rest", 195, false, {300, 712, 1440, 195}, {310, 722, 1440, 195}},
      {"a caption higher than the button",
       425,
       false,
       {300, 597, 1440, 425},
       {310, 607, 1440, 425}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const ButtonParts parts = PartsOfButton(frame, row.labelHeight, row.down);
    EXPECT_TRUE(parts.frame == frame && parts.Face == frame);
    EXPECT_TRUE(parts.Label_1 == row.caption) << parts.Label_1.top;
    EXPECT_TRUE(parts.Label_2 == row.shadow) << parts.Label_2.top;
  }
}

using SkinFilesTest = SkinTest;

/// Applies the skin to a window that is nothing but its name.
bool Apply(std::string_view name) {
  QWidget window;
  window.setObjectName(QString::fromUtf8(name.data(), qsizetype(name.size())));
  return ApplySkin(window);
}

TEST_F(SkinFilesTest, ASkinIsTheseFiles) {
  const std::pair<const char*, std::vector<std::string>> rows[] = {
      {"AboutBox", {"About.jpg", "AboutText.bmp"}},
      {"Board",
       {"Board.jpg", "BoardText.bmp", "BoardField.bmp", "BoardGrid.bmp", "BoardButtons.bmp",
        "BoardSetupButtons.bmp"}},
      {"ChooseOpponent",
       {"ChooseOpponent.jpg", "ChooseOpponentText.bmp", "ChooseOpponentField.bmp"}},
      {"Credits", {"Credits.jpg"}},
      {"ExchangePawn", {"ExchangePawn.jpg", "ExchangePawnText.bmp"}},
      {"GameInterface", {"Interface.jpg", "InterfaceGrid.bmp", "InterfaceButtons.bmp"}},
      {"MsgForm", {"MsgForm.jpg", "MsgFormText.bmp"}},
      {"NewGameInfo", {"NewGameInfo.jpg", "NewGameInfoText.bmp", "NewGameInfoField.bmp"}},
      {"NotifyForm", {"NotifyForm.jpg", "NotifyFormText.bmp"}},
      {"OptionsPage",
       {"OptionsPage.jpg", "OptionsPageText.bmp", "OptionsPageField.bmp", "OptionsPageGrid.bmp",
        "OptionsPageTabs.bmp"}},
      {"SelectPrinter", {"SelectPrinter.jpg", "SelectPrinterText.bmp"}},
      {"SelectSound", {"SelectSound.jpg", "SelectSoundField.bmp"}},
      {"SetupWarningForm", {"SetupWarningForm.jpg", "SetupWarningFormText.bmp"}},
      {"StatusWindow", {"StatusWindow.jpg", "StatusWindowText.bmp"}},
      {"SystemTray", {"SystemButtons.bmp"}},
  };
  std::size_t files = 0;
  for (const auto& [window, names] : rows) {
    EXPECT_EQ(FilesOf(window), names);
    files += names.size();
  }
  EXPECT_EQ(files, 38U);
  EXPECT_EQ(FindSkinRow("Board")->stripTargets, "ToolbarPics;SetupToolbarPics");
  EXPECT_EQ(FindSkinRow("OptionsPage")->textControls,
            "Label1;opDisplaySplash_L;opVerbose_L;opShowToolTips_L;opDefaultView_L;Label2;"
            "vsCSearchDepth_L;opNotifySound_L;opNotificationSound;opNotifyDialog_L;Label4;Label8;"
            "Label9;HLabelLow;HLabelDontCare;HLabelHigh;Label13;Label11;SkinsList_L;SkinPreview_L;"
            "opSimpleUI_L;opSystrayStartup_L");
}

TEST_F(SkinFilesTest, AWindowNeedsEachFileOfItsRowAndNoOther) {
  std::vector<std::string_view> windows = {"SystemTray"};
  for (const layouts::Layout& window : layouts::allWindows) windows.push_back(window.window);
  for (const std::string_view name : windows) {
    QDir(PathOf("")).removeRecursively();
    Draw(0, name);
    Process().RefreshButtonsPending = false;
    EXPECT_TRUE(Apply(name)) << name;
    EXPECT_EQ(Process().RefreshButtonsPending, !FindSkinRow(name)->strips.empty()) << name;
    for (const std::string& file : FilesOf(name)) {
      SCOPED_TRACE(file);
      const QString path = PathOf(file), aside = path + u".aside"_s;
      ASSERT_TRUE(QFile::rename(path, aside));
      const SkinRow& row = *FindSkinRow(name);
      const bool mayLack = row.borrows && file == row.background;
      EXPECT_EQ(Apply(name), mayLack);
      EXPECT_EQ(FileTold(), mayLack ? "nothing" : PathOf(row.background).toStdString())
          << "the background is named, whatever failed";
      QFile::rename(aside, path);
    }
    EXPECT_TRUE(Apply(name)) << name;
  }
}

/// A picture of the size in pixels that no compression makes small.
QImage Speckled(int width, int height) {
  QImage picture(width, height, QImage::Format_RGB32);
  for (int x = 0; x < width; ++x) {
    for (int y = 0; y < height; ++y) picture.setPixelColor(x, y, QColor(x % 256, y, x * y % 256));
  }
  return picture;
}

/// A bitmap whose header leaves the file's size out.
QByteArray Untold(QByteArray bitmap) { return bitmap.replace(2, 4, QByteArray(4, '\0')); }

/// With a segment behind the start that holds the end of another picture.
QByteArray WithPreview(QByteArray jpeg) {
  return jpeg.insert(2, QByteArray::fromHex("ffe10006ffd8ffd9"));
}

TEST_F(SkinFilesTest, AFileThatIsNoPictureOfItsKindIsAFailureAndEndsTheProgram) {
  const QByteArray chart = BytesOf(Speckled(120, 60), "BMP");
  QByteArray huge = chart;  // 20,000 pixels each way, and no more bytes than before
  for (const int place : {18, 22}) huge.replace(place, 4, QByteArray::fromHex("204e0000"));
  const QByteArray jpeg = BytesOf(Speckled(256, 256), "JPG");
  const auto bitmap = [](int width, int height) { return BytesOf(Speckled(width, height), "BMP"); };
  const struct {
    const char* name;
    const char* window;
    const char* file;
    QByteArray content;
  } rows[] = {
      {"empty", "MsgForm", "MsgFormText.bmp", {}},
      {"no picture", "MsgForm", "MsgForm.jpg", "hello"},
      {"a chart cut off", "MsgForm", "MsgFormText.bmp", chart.first(chart.size() - 1)},
      {"and untold", "MsgForm", "MsgFormText.bmp", Untold(chart).first(chart.size() - 1)},
      {"a background cut off", "MsgForm", "MsgForm.jpg", jpeg.first(jpeg.size() / 2)},
      {"but for its preview", "MsgForm", "MsgForm.jpg", WithPreview(jpeg).first(jpeg.size() / 2)},
      {"absurdly large", "MsgForm", "MsgFormText.bmp", huge},
      {"a row for one of two texts", "MsgForm", "MsgFormText.bmp", bitmap(108, 22)},
      {"narrower than half the window", "MsgForm", "MsgForm.jpg", bitmap(227, 232)},
      {"lower than half the window", "MsgForm", "MsgForm.jpg", bitmap(462, 112)},
      {"three of four columns", "Board", "BoardSetupButtons.bmp", bitmap(3, 100)},
      {"six of seven rows", "Board", "BoardButtons.bmp", bitmap(100, 6)},
      {"two of three columns", "GameInterface", "InterfaceButtons.bmp", bitmap(2, 100)},
      {"one of two cells", "SystemTray", "SystemButtons.bmp", bitmap(1, 100)},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    Draw(0, row.window);
    Write(row.file, row.content);
    Process().ShuttingDown = false;
    desktop_.hooksCalled.clear();
    desktop_.mail.calls.clear();
    EXPECT_FALSE(Apply(row.window));
    EXPECT_EQ(FileTold(), PathOf(FindSkinRow(row.window)->background).toStdString());
    EXPECT_TRUE(Process().ShuttingDown);
    EXPECT_EQ(desktop_.hooksCalled, (std::vector<std::string>{"removeTrayIcon", "endProcess"}));
    EXPECT_EQ(desktop_.mail.calls, std::vector<std::string>{"SignOff"});
    EXPECT_EQ(desktop_.boxes.statusTexts, std::vector<std::string>{}) << "the logoff is silent";
    Draw(0, row.window);
  }
}

TEST_F(SkinFilesTest, WhatOtherProgramsWriteIsReadToo) {
  const QByteArray jpeg = BytesOf(Speckled(256, 128), "JPG");
  const std::tuple<const char*, const char*, QByteArray> rows[] = {
      {"bytes behind a picture's end", "MsgForm.jpg", jpeg + "and more"},
      {"a preview in the picture", "MsgForm.jpg", WithPreview(jpeg)},
      {"a bitmap that doesn't tell its size", "MsgFormText.bmp",
       Untold(BytesOf(Speckled(108, 23), "BMP"))},
  };
  for (const auto& [name, file, content] : rows) {
    SCOPED_TRACE(name);
    Draw(0, "MsgForm");
    Write(file, content);
    EXPECT_TRUE(Apply("MsgForm"));
  }
}

/// The user, whose reading takes so long that another window comes up.
class SlowReader : public platform::MessageBoxes {
 public:
  explicit SlowReader(std::function<void()> meanwhile) : meanwhile_(std::move(meanwhile)) {}
  bool Ask(const platform::Message&) override { return true; }
  void ShowStatus(const std::string&) override {}
  void HideStatus() override {}
  void PlainBox(platform::PlainIcon, const std::string&, const std::string& text) override {
    told.push_back(text);
    if (told.size() == 1) meanwhile_();
  }

  std::vector<std::string> told;

 private:
  std::function<void()> meanwhile_;
};

TEST_F(SkinFilesTest, TheProgramEndsOnceWhateverFailsMeanwhile) {
  SlowReader reader([] { EXPECT_FALSE(Apply("MsgForm")); });
  platform::TheDesktop().messageBoxes = &reader;
  platform::Settings().Skin = "none such";
  EXPECT_FALSE(Apply("StatusWindow"));
  ASSERT_EQ(reader.told.size(), 1U);
  EXPECT_TRUE(reader.told[0].ends_with("/none such/StatusWindow.jpg"));
  EXPECT_EQ(desktop_.hooksCalled, (std::vector<std::string>{"removeTrayIcon", "endProcess"}));
}

TEST_F(SkinFilesTest, TheHiddenWindowsStripGoesToTheButtonsOfAll) {
  platform::Settings().Skin = NameOf(1);
  EXPECT_TRUE(Apply("SystemTray"));
  EXPECT_EQ(ButtonImages().pixelColor(0, 0), StripColour(1, 0, 0));
}

TEST_F(SkinFilesTest, AWindowOutsideTheTable) {
  QWidget window;
  window.setObjectName(u"SplashScreen"_s);
  platform::Settings().Skin = "none such";
  EXPECT_TRUE(ApplySkin(window));
  window.setObjectName(u"Strange"_s);
  EXPECT_FALSE(ApplySkin(window));
  const platform::Message& message = desktop_.boxes.messages.back();
  EXPECT_EQ(message.icon, 2);
  EXPECT_EQ(message.title, "Invalid window skin");
  EXPECT_EQ(message.text, "No skin file specified for the current window, Strange.");
  EXPECT_EQ(FileTold(), "nothing");
}

}  // namespace
}  // namespace ui
