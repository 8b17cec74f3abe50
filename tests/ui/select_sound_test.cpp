// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/select_sound.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QListWidget>

#include "skin_fixture.h"

namespace ui {
namespace {

class SelectSoundTest : public SkinTest {
 protected:
  SelectSoundTest() {
    EXPECT_TRUE(QDir(sounds_.path()).mkpath(u"in ner"_s));
    for (const char* name : {"/bell.wav", "/KNOCK.WAV", "/notes.txt", "/in ner/de\u202Eep.Wav"}) {
      QFile file(sounds_.path() + QString::fromUtf8(name));
      EXPECT_TRUE(file.open(QFile::WriteOnly));
    }
    platform::Settings().SimpleUI = true;
  }

  SelectSound& Open(bool sound) {
    picker_ = std::make_unique<SelectSound>(sound ? SelectSound::Mode::Sound
                                                  : SelectSound::Mode::MoveFile);
    picker_->show();
    return *picker_;
  }
  QListWidget& List(const QString& name) { return *picker_->findChild<QListWidget*>(name); }
  QAbstractButton& Button(const QString& name) {
    return *picker_->findChild<QAbstractButton*>(name);
  }
  QString Shows(const QString& list) {
    QStringList names;
    for (int row = 0; row < List(list).count(); ++row) names << List(list).item(row)->text();
    return names.join(u' ');
  }
  void Pick(const QString& list, const QString& name) {
    List(list).setCurrentItem(List(list).findItems(name, Qt::MatchExactly).value(0));
  }
  std::string Folder() const { return sounds_.path().toStdString() + "/"; }

  QTemporaryDir sounds_;
  std::unique_ptr<SelectSound> picker_;
};

TEST_F(SelectSoundTest, OpensAtTheChosenSoundInAnyCaseOfTheLetters) {
  platform::Settings().NotificationSoundPath = Folder();
  platform::Settings().NotificationSoundWav = "KNOCK.WAV";
  Open(true);
  EXPECT_EQ(Shows(u"FileList"_s), u"bell.wav KNOCK.WAV"_s);
  EXPECT_EQ(List(u"FileList"_s).currentItem()->text(), u"KNOCK.WAV"_s);
  EXPECT_TRUE(Shows(u"DirList"_s).endsWith(QDir(sounds_.path()).dirName() + u" in ner"_s));
  Pick(u"DirList"_s, u"in ner"_s);
  List(u"DirList"_s).setFocus();
  QTest::keyClick(&List(u"DirList"_s), Qt::Key_Return);
  EXPECT_EQ(Shows(u"FileList"_s), u"de�ep.Wav"_s);
  Pick(u"FileList"_s, u"de�ep.Wav"_s);
  Button(u"PlayS"_s).click();
  EXPECT_EQ(desktop_.sounds.played, std::vector{Folder() + "in ner/de\u202Eep.Wav"});
  QTest::keyClick(picker_.get(), Qt::Key_Return);
  EXPECT_FALSE(picker_->isVisible());
  EXPECT_EQ(platform::Settings().NotificationSoundPath, Folder() + "in ner/");
  EXPECT_EQ(platform::Settings().NotificationSoundWav, "de\u202Eep.Wav");
}

TEST_F(SelectSoundTest, WithoutAFileItStaysAndHasForgottenTheOldOne) {
  platform::Settings().NotificationSoundPath = Folder();
  platform::Settings().NotificationSoundWav = "gone.wav";
  for (const bool sound : {true, false}) {
    Open(sound);
    Button(sound ? u"OkSelectS"_s : u"ImportOKS"_s).click();
    EXPECT_EQ(desktop_.LastMessage(),
              (std::pair<std::string, std::string>{
                  "File selection error...",
                  sound ? "You must either select a .WAV file or cancel this dialog."
                        : "You must either select a file to import or cancel this dialog."}));
    EXPECT_TRUE(picker_->isVisible());
  }
  EXPECT_EQ(platform::Settings().NotificationSoundWav, "");
  EXPECT_EQ(platform::Settings().NotificationSoundPath, Folder()) << "not the import's folder";
}

TEST_F(SelectSoundTest, AFolderThatIsGoneGivesTheHomeFolderAndNoneTheRoot) {
  for (const auto& [path, shown] : {std::pair{Folder() + "gone/", QDir::homePath()},
                                    std::pair{std::string(), QDir::rootPath()}}) {
    platform::Settings().NotificationSoundPath = path;
    Open(true).SetSoundFile();
    const std::string folder = shown.toStdString();
    EXPECT_EQ(platform::Settings().NotificationSoundPath,
              folder.ends_with('/') ? folder : folder + "/");
    EXPECT_EQ(picker_->findChild<QComboBox*>(u"DriveList"_s)->currentText(), shown);
  }
}

TEST_F(SelectSoundTest, ImportingTakesAnyFileAndACancelForgetsIt) {
  for (const bool simple : {true, false}) {
    platform::Settings().SimpleUI = simple;
    OnNextDialog([&](QWidget& dialog) {
      auto* files = dialog.findChild<QListWidget*>(u"FileList"_s);
      (new QListWidgetItem(u"one"_s, files))->setData(Qt::UserRole, u"move one.txt"_s);
      files->setCurrentRow(files->count() - 1);
      EXPECT_FALSE(
          dialog.findChild<QAbstractButton*>(simple ? u"PlayS"_s : u"Play"_s)->isVisible());
      dialog.findChild<QAbstractButton*>(simple ? u"ImportOKS"_s : u"ImportOK"_s)->click();
    });
    EXPECT_EQ(PickMoveFile(), "/move one.txt");
    OnNextDialog([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(PickMoveFile(), std::nullopt);
  }
}

TEST_F(SelectSoundTest, EachModeHasItsHelp) {
  platform::Settings().SimpleUI = false;
  for (const bool sound : {true, false}) {
    Open(sound);
    desktop_.log.clear();
    QTest::keyClick(picker_.get(), Qt::Key_F1);
    Button(u"HelpButton"_s).click();
    picker_->reject();
    const std::string help = sound ? "help 17" : "help 16";
    EXPECT_EQ(desktop_.log, (std::vector<std::string>{help, help, "close help"}));
  }
}

}  // namespace
}  // namespace ui
