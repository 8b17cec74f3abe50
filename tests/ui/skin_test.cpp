// SPDX-License-Identifier: GPL-3.0-or-later
// The skin engine: files, charts, shapes and what happens where a skin fails.
#include <QBuffer>

#include "skin_fixture.h"
#include "ui/button_parts.h"
#include "ui/colour_chart.h"
#include "ui/layouts/outlines.h"
#include "ui/window_region.h"

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

TEST_F(SkinFilesTest, AWindowNeedsEachFileOfItsRowAndNoOther) {
  std::vector<std::string_view> windows = {"SystemTray"};
  for (const layouts::Layout& window : layouts::allWindows) windows.push_back(window.window);
  for (const std::string_view name : windows) {
    QDir(PathOf("")).removeRecursively();
    Draw(0, name);
    QWidget window;
    window.setObjectName(QString::fromStdString(std::string(name)));
    const auto apply = [&] {
      return name == "SystemTray" ? ApplySkinToSystemTray() : ApplySkin(window);
    };
    Process().RefreshButtonsPending = false;
    EXPECT_TRUE(apply()) << name;
    EXPECT_EQ(Process().RefreshButtonsPending, !FindSkinRow(name)->strips.empty()) << name;
    for (const std::string& file : FilesOf(name)) {
      SCOPED_TRACE(file);
      const QString path = PathOf(file), aside = path + u".aside"_s;
      ASSERT_TRUE(QFile::rename(path, aside));
      EXPECT_FALSE(apply());
      EXPECT_EQ(FileTold(), PathOf(FindSkinRow(name)->background).toStdString())
          << "the background is named, whatever failed";
      QFile::rename(aside, path);
    }
    EXPECT_TRUE(apply()) << name;
  }
}

TEST_F(SkinFilesTest, AFileThatIsNoWholePictureIsAFailureAndEndsTheProgramOnce) {
  QFile whole(PathOf("MsgFormText.bmp"));
  ASSERT_TRUE(whole.open(QFile::ReadOnly));
  const QByteArray chart = whole.readAll();
  QByteArray huge = chart;  // 20,000 pixels each way, and no more bytes than before
  for (const int place : {18, 22}) huge.replace(place, 4, QByteArray::fromHex("204e0000"));
  QByteArray jpeg;
  QBuffer buffer(&jpeg);
  QImage stripes(256, 256, QImage::Format_RGB32);
  for (int x = 0; x < 256; ++x) {
    for (int y = 0; y < 256; ++y) stripes.setPixelColor(x, y, QColor(x, y, x * y % 256));
  }
  stripes.save(&buffer, "JPG");
  const std::tuple<const char*, const char*, QByteArray> rows[] = {
      {"empty", "MsgFormText.bmp", {}},
      {"no picture", "MsgForm.jpg", "hello"},
      {"a chart cut off", "MsgFormText.bmp", chart.first(chart.size() / 2)},
      {"a background cut off", "MsgForm.jpg", jpeg.first(jpeg.size() / 2)},
      {"absurdly large", "MsgFormText.bmp", huge},
  };
  QWidget window;
  window.setObjectName(u"MsgForm"_s);
  for (const auto& [name, file, content] : rows) {
    SCOPED_TRACE(name);
    Draw(0, "MsgForm");
    Write(file, content);
    Process().ShuttingDown = false;
    desktop_.hooksCalled.clear();
    desktop_.mail.calls.clear();
    EXPECT_FALSE(ApplySkin(window));
    EXPECT_EQ(FileTold(), PathOf("MsgForm.jpg").toStdString());
    EXPECT_TRUE(Process().ShuttingDown);
    EXPECT_EQ(desktop_.hooksCalled, (std::vector<std::string>{"removeTrayIcon", "endProcess"}));
    EXPECT_EQ(desktop_.boxes.statusTexts, std::vector<std::string>{}) << "the logoff is silent";
  }
  Draw(0, "MsgForm");
  DrawChart(0, "MsgFormText.bmp", 1, 1);
  EXPECT_FALSE(ApplySkin(window)) << "a chart with a row for one of the two texts";
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
