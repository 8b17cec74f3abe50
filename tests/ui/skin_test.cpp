// SPDX-License-Identifier: GPL-3.0-or-later
// The skins: what a window needs of one, and what happens where that fails.
#include "skin/window_region.h"
#include "skin/window_scale.h"
#include "ui/skin_fixture.h"

namespace ui {
namespace {

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

TEST(WindowScaleTest, TheBoardTakesItsShareAndAlwaysFits) {
  const struct {
    const char* size;
    ScreenRoom screen;
    double factor;
  } rows[] = {
      {"Auto", {1080, {1920, 1040}, 1}, 1.5},
      {"Auto", {2160, {3840, 2160}, 1}, 3},
      {"Auto", {4320, {7680, 4320}, 1}, 3},
      {"Auto", {600, {1024, 600}, 1}, 1},
      {"Auto", {2560, {1440, 2560}, 1}, 1440 / 879.0},
      {"150", {2160, {3840, 2160}, 1}, 1.5},
      {"200", {1080, {1920, 1080}, 1}, 1080 / 566.0},
      {"100", {500, {800, 500}, 2}, 500 / 566.0},
      {"100", {480, {800, 480}, 1}, 1},
      {"huge", {2160, {3840, 2160}, 1}, 1},
  };
  for (const auto& [size, screen, factor] : rows) {
    EXPECT_DOUBLE_EQ(WindowScaleFor(size, screen), factor) << size << " " << screen.height;
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
  std::string files;
  for (const layouts::Layout& window : layouts::allWindows) {
    for (const std::string& file : FilesOf(window.window)) files += file + " ";
  }
  for (const std::string& file : FilesOf("SystemTray")) files += file;
  EXPECT_EQ(files,
            "StatusWindow.jpg StatusWindowText.bmp NotifyForm.jpg NotifyFormText.bmp "
            "SelectSound.jpg SelectSoundField.bmp ChooseOpponent.jpg ChooseOpponentText.bmp "
            "ChooseOpponentField.bmp ExchangePawn.jpg ExchangePawnText.bmp Credits.jpg "
            "NewGameInfo.jpg NewGameInfoText.bmp NewGameInfoField.bmp OptionsPage.jpg "
            "OptionsPageText.bmp OptionsPageField.bmp OptionsPageGrid.bmp OptionsPageTabs.bmp "
            "Board.jpg BoardText.bmp BoardField.bmp BoardGrid.bmp BoardButtons.bmp "
            "BoardSetupButtons.bmp SetupWarningForm.jpg SetupWarningFormText.bmp SelectPrinter.jpg "
            "SelectPrinterText.bmp About.jpg AboutText.bmp MsgForm.jpg MsgFormText.bmp "
            "Interface.jpg InterfaceGrid.bmp InterfaceButtons.bmp HeldMailForm.jpg "
            "NotifyFormText.bmp InterfaceGrid.bmp HeldMailNote.jpg NotifyFormText.bmp "
            "InterfaceGrid.bmp Dialog.jpg DialogText.bmp DialogField.bmp DialogGrid.bmp "
            "SystemButtons.bmp");
}

TEST_F(SkinFilesTest, AWindowNeedsEachFileOfItsRowAndNoOther) {
  std::vector<std::string_view> windows = {"SystemTray"};
  for (const layouts::Layout& window : layouts::allWindows) windows.push_back(window.window);
  for (const std::string_view name : windows) {
    QDir(PathOf("")).removeRecursively();
    if (FindSkinRow(name)->isExtra) Draw(0, "GameInterface");  // whose colours do instead
    Draw(0, name);
    EXPECT_TRUE(Apply(name)) << name;
    for (const std::string& file : FilesOf(name)) {
      SCOPED_TRACE(file);
      const QString path = PathOf(file), aside = path + u".aside"_s;
      ASSERT_TRUE(QFile::rename(path, aside));
      const SkinRow& row = *FindSkinRow(name);
      const bool mayLack = (row.borrows || row.isExtra) && file == row.background;
      EXPECT_EQ(Apply(name), mayLack);
      EXPECT_EQ(FileTold(), mayLack ? "nothing" : PathOf(row.background).toStdString())
          << "the background is named, whatever failed";
      QFile::rename(aside, path);
    }
    EXPECT_TRUE(Apply(name)) << name;
  }
}

TEST_F(SkinFilesTest, AFileThatIsNoPictureOfItsKindIsAFailureAndEndsTheProgram) {
  const auto bitmap = [](int width, int height) {
    QImage picture(width, height, QImage::Format_RGB32);
    picture.fill(Qt::red);
    return BytesOf(picture, "BMP");
  };
  QByteArray huge = bitmap(120, 60);  // 20,000 pixels each way, and no more bytes than before
  for (const int place : {18, 22}) huge.replace(place, 4, QByteArray::fromHex("204e0000"));
  const struct {
    const char* name;
    const char* window;
    const char* file;
    QByteArray content;
  } rows[] = {
      {"empty", "MsgForm", "MsgFormText.bmp", {}},
      {"no picture", "MsgForm", "MsgForm.jpg", "hello"},
      {"absurdly large", "MsgForm", "MsgFormText.bmp", huge},
      {"a row for one of two texts", "MsgForm", "MsgFormText.bmp", bitmap(108, 22)},
      {"narrower than half the window", "MsgForm", "MsgForm.jpg", bitmap(227, 232)},
      {"lower than half the window", "MsgForm", "MsgForm.jpg", bitmap(462, 112)},
      {"three of four columns", "Board", "BoardSetupButtons.bmp", bitmap(3, 100)},
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

TEST_F(SkinFilesTest, TheProgramEndsOnceWhateverFailsMeanwhile) {
  std::vector<std::string> missing;
  platform::TheSeams().hooks.skinMissing = [&](const std::string& file) {
    missing.push_back(file);
    EXPECT_FALSE(Apply("MsgForm")) << "while the user reads of the first";
  };
  platform::Settings().Skin = "none such";
  EXPECT_FALSE(Apply("StatusWindow"));
  EXPECT_EQ(missing, std::vector{PathOf("StatusWindow.jpg").toStdString()});
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
