// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QListWidget>
#include <QTableWidget>

#include <memory>

#include "ai/heuristics.h"
#include "ui/options/look_menu.h"
#include "ui/options/options_page.h"
#include "ui/options/set_preview.h"
#include "ui/skin_fixture.h"

namespace ui {
namespace {

class OptionsTest : public SkinTest {
 protected:
  OptionsTest() {
    ai::LoadDefaultHeuristics();
    QDir().mkpath(QString::fromStdString(Process().AIFilesPath));
    for (const char* file : {"Flat/Moss", "Flat/Plain", "Wood/Oak", "Wood/Plain", "Bare/None"}) {
      const QString path = Graphics() + QLatin1StringView(file);
      QDir().mkpath(path.section(u'/', 0, -2));
      ColouredGraphics().ChessSet.save(path + u".jpg"_s, "PNG");
    }
    QFile::remove(Graphics() + u"Bare/None.jpg"_s);
    QDir().mkpath(folder_.path() + u"/Pictures/tray"_s);
    for (const char* picture :
         {"1-normal", "1-new-move", "1-no-network", "2-normal", "2-new-move", "2-no-network"}) {
      QFile file(folder_.path() + u"/Pictures/tray/set-%1.ico"_s.arg(QLatin1StringView(picture)));
      EXPECT_TRUE(file.open(QFile::WriteOnly));
    }
    DrawSkin(1);
    // One set and one skin are the user's own.
    Process().UserFolder = folder_.path().toStdString() + "/own/";
    for (const QString& kind : {u"/Graphics/"_s, u"/UI Graphics/"_s}) {
      QDir().mkpath(folder_.path() + u"/own"_s + kind);
      for (const QString& name : {u"Wood"_s, QString::fromStdString(NameOf(1))}) {
        QDir().rename(folder_.path() + kind + name, folder_.path() + u"/own"_s + kind + name);
      }
    }
    platform::SettingVariables& settings = platform::Settings();
    settings.Skin = NameOf(0);
    settings.ChessSet = "Wood";
    settings.ChessBoard = "Oak";
  }

  void Open(bool simple) {
    platform::Settings().SimpleUI = platform::Settings().SimpleUISaved = simple;
    window_ = std::make_unique<OptionsPage>(
        [] { platform::Settings().NotificationSoundWav = "Bell.wav"; });
    window_->show();
  }

  QString Graphics() const { return folder_.path() + u"/Graphics/"_s; }
  template <typename Control>
  Control& The(const char* name) {
    return Find<Control>(*window_, name);
  }
  QAbstractButton& Apply() {
    return The<QAbstractButton>(platform::Settings().SimpleUI ? "ApplyButtonS" : "ApplyButton");
  }
  void Choose(const char* list, const QString& name) {
    const auto rows = The<QListWidget>(list).findItems(name, Qt::MatchExactly);
    The<QListWidget>(list).setCurrentItem(rows.isEmpty() ? nullptr : rows.front());
  }
  void Pick(const char* combo, int index) {
    The<QComboBox>(combo).setCurrentIndex(index);
    Q_EMIT The<QComboBox>(combo).activated(index);
  }
  QString Chosen(const char* list) {
    const auto rows = The<QListWidget>(list).selectedItems();
    return rows.isEmpty() ? u"-"_s : rows.front()->text();
  }
  std::string Told() {
    std::string titles;
    for (const auto& message : std::exchange(desktop_.boxes.messages, {}))
      titles += message.title + ";";
    return titles;
  }

  std::unique_ptr<OptionsPage> window_;
};

TEST_F(OptionsTest, NothingCountsBeforeApplyButThreeThings) {
  for (const bool simple : {true, false}) {
    SCOPED_TRACE(simple);
    platform::Settings().NotificationMethod = 2;
    platform::Settings().SystrayStartup = platform::Settings().SystrayStartupSaved = true;
    Open(simple);
    ASSERT_TRUE(window_->IsOpen());
    EXPECT_FALSE(Apply().isEnabled());
    EXPECT_TRUE(Shows(*window_, "Page_1"));
    Pick("opSysTrayTimerCombo", 30);
    Pick("vsCSearchDepth", 4);
    Pick("opTimeoutCombo", 19);
    The<QTableWidget>("opIconList").selectRow(1);
    for (const char* box : {"opDisplaySplash", "opVerbose", "opShowToolTips", "opDefaultView"}) {
      The<QAbstractButton>(box).click();
    }
    The<QAbstractButton>("opNotifySound").click();
    The<QAbstractButton>("opBrowseSound").click();
    Choose("opChessBoard", u"Plain"_s);
    const platform::SettingVariables before = platform::Settings();
    EXPECT_EQ(before.NotificationMethod, 3);
    EXPECT_EQ(before.NotificationSoundWav, "Bell.wav");
    EXPECT_EQ(before.SearchDepth, 1);
    EXPECT_EQ(before.ChessBoard, "Oak");
    ASSERT_TRUE(Apply().isEnabled());
    Apply().click();
    const platform::SettingVariables& after = platform::Settings();
    EXPECT_EQ(Process().CheckTimer.Interval, 30000);
    EXPECT_EQ(after.SearchDepth, 4);
    EXPECT_EQ(after.NotificationTimeout, 19);
    EXPECT_EQ(after.SysTrayIcons, 2);
    EXPECT_EQ(after.ChessBoard, "Plain");
    EXPECT_NE(after.DisplaySplash, before.DisplaySplash);
    EXPECT_NE(after.Verbose, before.Verbose);
    EXPECT_NE(after.DefaultView, before.DefaultView);
    EXPECT_NE(The<QWidget>("opChessSet").toolTip().isEmpty(), after.ShowToolTips);
    EXPECT_FALSE(Apply().isEnabled());
    EXPECT_EQ(Told(), "");
    platform::Settings() = {};
    platform::Settings().ChessSet = "Wood";
    platform::Settings().ChessBoard = "Oak";
    platform::Settings().Skin = NameOf(0);
  }
}

TEST_F(OptionsTest, KeysTurnThePagesAskForHelpAndClose) {
  for (const bool simple : {true, false}) {
    SCOPED_TRACE(simple);
    Open(simple);
    BringUp(*window_);
    The<QListWidget>("opChessSet").setFocus();
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, const char*> rows[] = {
        {Qt::Key_PageDown, Qt::ControlModifier, "Page_2"},
        {Qt::Key_Tab, Qt::ControlModifier, "Page_3"},
        {Qt::Key_PageUp, Qt::ControlModifier, "Page_2"}};
    for (const auto& [key, modifiers, page] : rows) {
      QTest::keyClick(window_.get(), key, modifiers);
      EXPECT_TRUE(Shows(*window_, page)) << page;
    }
    QTest::keyClick(window_.get(), Qt::Key_F1);
    EXPECT_EQ(desktop_.log.back(), "help 8");
    EXPECT_EQ(Chosen("opChessSet"), u"Wood"_s);
    Pick("vsCSearchDepth", 3);
    const auto focused = [&] {
      return window_->focusWidget() ? window_->focusWidget() : window_.get();
    };
    QTest::keyClick(focused(), Qt::Key_Escape);
    EXPECT_FALSE(window_->isVisible());
    EXPECT_EQ(platform::Settings().SearchDepth, 1) << "Cancel stores nothing";
    Open(simple);
    BringUp(*window_);
    Pick("vsCSearchDepth", 3);
    QTest::keyClick(focused(), Qt::Key_Return);
    EXPECT_FALSE(window_->isVisible());
    EXPECT_EQ(platform::Settings().SearchDepth, 3);
    platform::Settings().SearchDepth = 1;
  }
}

TEST_F(OptionsTest, TheBoardFollowsFromSetToSet) {
  Open(true);
  const std::pair<const char*, const char*> rows[] = {
      {"Flat", "-"}, {"Wood", "Oak"}, {"Bare", "-"}, {"Flat", "-"}};
  for (const auto& [set, board] : rows) {
    Choose("opChessSet", QLatin1StringView(set));
    EXPECT_EQ(Chosen("opChessBoard"), QLatin1StringView(board)) << set;
  }
  EXPECT_FALSE(window_->SetOptions());
  EXPECT_EQ(Told(), "Chess board selection;");
  Choose("opChessBoard", u"Plain"_s);
  Choose("opChessSet", u"Wood"_s);
  Choose("opChessBoard", u"Plain"_s);
  Choose("opChessSet", u"Flat"_s);
  EXPECT_EQ(Chosen("opChessBoard"), u"Plain"_s);
  EXPECT_TRUE(window_->SetOptions());
  EXPECT_EQ(platform::Settings().ChessSet, "Flat");
}

TEST_F(OptionsTest, WhatWaitsForTheNextStartIsToldOnce) {
  Open(true);
  platform::Settings().SystrayStartup = true;
  The<QCheckBox>("opSystrayStartup").setChecked(true);
  for (const auto& [box, title] : {std::pair{"opSimpleUI_L", "Skin style;"},
                                   std::pair{"opSystrayStartup_L", "Application startup;"}}) {
    for (const char* told : {title, ""}) {
      QTest::mouseClick(&The<QWidget>(box), Qt::LeftButton);
      EXPECT_EQ(Told(), told) << box;
    }
  }
}

TEST_F(OptionsTest, AnotherSkinIsPutOnAndAMenuDoesItToo) {
  Open(false);
  Choose("opSkinsList", QString::fromStdString(NameOf(1)));
  EXPECT_TRUE(window_->SetOptions());
  EXPECT_EQ(platform::Settings().Skin, NameOf(1));
  EXPECT_EQ(The<QWidget>("Page_1").palette().color(QPalette::Window), ChartColour(1, 1, 1));
  for (const MenuRow& row : LookRows()) {
    EXPECT_EQ(row.checked, row.caption == NameOf(1)) << row.caption;
    row.action();
  }
  EXPECT_EQ(platform::Settings().Skin, NameOf(1));
  EXPECT_TRUE(platform::Settings().SimpleUISaved);
  EXPECT_EQ(Told(), "Skin style;");
  Open(false);
  Choose("opSkinsList", QString::fromStdString(NameOf(0)));
  QDir(folder_.path() + u"/UI Graphics/"_s + Chosen("opSkinsList")).removeRecursively();
  EXPECT_FALSE(window_->SetOptions()) << "what has gone meanwhile is no choice";
  EXPECT_EQ(Told(), "Skin selection;");
}

TEST_F(OptionsTest, FoldersThatHaveGoneAreTold) {
  QDir(Graphics()).removeRecursively();
  Open(true);
  EXPECT_EQ(Told(), "Chess set error;");
  EXPECT_FALSE(window_->SetOptions());
  EXPECT_EQ(Told(), "Chess set selection;");
  QDir(folder_.path() + u"/UI Graphics"_s).removeRecursively();
  Open(true);
  EXPECT_TRUE(window_->IsOpen());
  EXPECT_EQ(Told(), "Chess set error;Skin error;");
}

TEST(SetPreviewTest, ShowsTheStartPosition) {
  const std::tuple<int, int, int> rows[] = {{1, 1, 9},  {8, 1, 1},  {5, 1, 13}, {4, 8, 28},
                                            {5, 7, 30}, {1, 4, 16}, {1, 3, 24}};
  for (const auto& [col, row, cell] : rows) {
    EXPECT_EQ(PreviewClipGraphic(col, row), cell) << col << " " << row;
  }
}

}  // namespace
}  // namespace ui
