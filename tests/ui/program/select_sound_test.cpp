// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/program/select_sound.h"

#include <QListWidget>

#include "ui/skin_fixture.h"

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
    platform::Settings().NotificationSoundPath = Folder();
  }

  void Open(bool sound) {
    picker_ = std::make_unique<SelectSound>(sound ? SelectSound::Mode::Sound
                                                  : SelectSound::Mode::MoveFile);
    picker_->show();
  }
  QListWidget& List(const char* name) { return Find<QListWidget>(*picker_, name); }
  QString Names(const char* list) {
    QStringList names;
    for (int row = 0; row < List(list).count(); ++row) names << List(list).item(row)->text();
    return names.join(u' ');
  }
  void Pick(const char* list, const QString& name) {
    List(list).setCurrentItem(List(list).findItems(name, Qt::MatchExactly).value(0));
  }
  std::string Folder() const { return sounds_.path().toStdString() + "/"; }

  QTemporaryDir sounds_;
  std::unique_ptr<SelectSound> picker_;
};

TEST_F(SelectSoundTest, OpensAtTheChosenSoundInAnyCaseOfTheLetters) {
  platform::Settings().NotificationSoundWav = "KNOCK.WAV";
  Open(true);
  EXPECT_EQ(Names("FileList"), u"bell.wav KNOCK.WAV"_s);
  EXPECT_EQ(List("FileList").currentItem()->text(), u"KNOCK.WAV"_s);
  Pick("DirList", u"in ner"_s);
  List("DirList").setFocus();
  QTest::keyClick(&List("DirList"), Qt::Key_Return);
  EXPECT_EQ(Names("FileList"), u"de�ep.Wav"_s);
  Pick("FileList", u"de�ep.Wav"_s);
  Press(*picker_, "Play");
  EXPECT_EQ(desktop_.sounds.played, std::vector{Folder() + "in ner/de\u202Eep.Wav"});
  QTest::keyClick(picker_.get(), Qt::Key_Return);
  EXPECT_FALSE(picker_->isVisible());
  EXPECT_EQ(platform::Settings().NotificationSoundPath, Folder() + "in ner/");
  EXPECT_EQ(platform::Settings().NotificationSoundWav, "de\u202Eep.Wav");
}

TEST_F(SelectSoundTest, WithoutAFileItStaysAndHasForgottenTheOldOne) {
  platform::Settings().NotificationSoundWav = "gone.wav";
  for (const bool sound : {true, false}) {
    Open(sound);
    Press(*picker_, sound ? "OkSelect" : "ImportOK");
    EXPECT_EQ(desktop_.LastMessage().first, "File selection error...");
    EXPECT_TRUE(picker_->isVisible());
  }
  EXPECT_EQ(platform::Settings().NotificationSoundWav, "");
  EXPECT_EQ(platform::Settings().NotificationSoundPath, Folder()) << "not the import's folder";
}

TEST_F(SelectSoundTest, AFolderThatIsGoneGivesTheHomeFolder) {
  platform::Settings().NotificationSoundPath = Folder() + "gone/";
  Open(true);
  picker_->SetSoundFile();
  EXPECT_EQ(platform::Settings().NotificationSoundPath, QDir::homePath().toStdString() + "/");
}

TEST_F(SelectSoundTest, ImportingTakesAnyFileAndACancelForgetsIt) {
  for (const bool simple : {true, false}) {
    platform::Settings().SimpleUI = simple;
    OnNextDialog([&](QWidget& dialog) {
      auto& files = Find<QListWidget>(dialog, "FileList");
      (new QListWidgetItem(u"one"_s, &files))->setData(Qt::UserRole, u"move one.txt"_s);
      files.setCurrentRow(files.count() - 1);
      EXPECT_FALSE(Shows(dialog, "Play"));
      Press(dialog, "ImportOK");
    });
    EXPECT_EQ(PickMoveFile(), "/move one.txt");
    OnNextDialog(Key(Qt::Key_Escape));
    EXPECT_EQ(PickMoveFile(), std::nullopt);
  }
}

}  // namespace
}  // namespace ui
