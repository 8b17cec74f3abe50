// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ini_settings.h"

#include <QSettings>
#include <gtest/gtest.h>

#include "desktop/autostart_entry.h"
#include "desktop/folders.h"
#include "desktop/posix_files.h"
#include "fakes/fake_desktop.h"
#include "fakes/memory_files.h"
#include "fakes/temporary_folder.h"

namespace {

using desktop::IniSettings;

class IniSettingsTest : public testing::Test {
 protected:
  void Conf(const std::string& content) {
    std::filesystem::create_directories(folder_ / "below");
    WriteFile(path_, content);
  }

  TemporaryFolder folder_;
  std::string path_ = folder_ / "below/Tarvolenix.conf";
  desktop::PosixFiles files_;
  IniSettings settings_{files_, path_};
};

TEST_F(IniSettingsTest, TheToolkitReadsTheSameValuesAndWroteThemBefore) {
  const auto toolkit = [](const std::string& path) {
    return QSettings(QString::fromStdString(path), QSettings::IniFormat);
  };
  for (const char* value :
       {"", " blanks around ", "800,600", "Müller, Jürgen; \"der Große\"", "88;-118;-39",
        "a=b # no comment", "back\\slash and %percent", "@Invalid()", "line\r\nend\ttab",
        "\x1b"
        "a1\x07",
        "棋 ♔ 😀"}) {
    SCOPED_TRACE(value);
    toolkit(folder_ / "earlier.conf").setValue("Mail/Key", QString::fromUtf8(value));
    EXPECT_EQ(IniSettings(files_, folder_ / "earlier.conf").Read("Mail", "Key"), value);
    ASSERT_TRUE(settings_.Write("Mail", {{"Key", value}}));
    EXPECT_EQ(settings_.Read("Mail", "Key"), value);
    EXPECT_EQ(toolkit(path_).value("Mail/Key").toString().toStdString(), value);
  }
  EXPECT_EQ(settings_.Read("NoGroup", "Key"), std::nullopt);
}

TEST_F(IniSettingsTest, ValuesWrittenByHandAreRead) {
  for (const auto& [written, value] : std::initializer_list<std::pair<const char*, const char*>>{
           {"Key=1;-2;3", "1;-2;3"},
           {"\xEF\xBB\xBF  Key = a , \"b , \" c  ; no comment", "a,b , c  ; no comment"},
           {"[%General]\nKey=no\n[GENERAL]\nKey=\\xe9t\\351 \\q\\\"\\", "ét\xC3\xA9 \""},
           {"Key=old\r\n#Key=no\r\n;Key\r\n%4Bey=new", "new"}}) {
    Conf(written);
    EXPECT_EQ(settings_.Read("", "Key"), value) << written;
  }
}

TEST_F(IniSettingsTest, OneChangeLeavesTheOtherLinesAsTheyStand) {
  const std::string before = "; mine\n A = 1;2\n\n[Other]\nx=a, b\n[Mail]\nMyName=Anna\n# end";
  Conf(before);
  std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
  std::filesystem::create_hard_link(path_, folder_ / "the same");
  EXPECT_TRUE(settings_.Write("Mail", {{"MyName", "Anna"}}));
  EXPECT_TRUE(std::filesystem::equivalent(path_, folder_ / "the same")) << "nothing to write";
  std::filesystem::create_symlink(path_, folder_ / "link.conf");
  EXPECT_TRUE(
      IniSettings(files_, folder_ / "link.conf").Write("Mail", {{"MyName", "Eva, née Maß"}}));
  EXPECT_EQ(ReadFile(path_ + ".bak"), before);
  EXPECT_TRUE(settings_.Write("Mail", {{"MailKind", "Post"}}));
  EXPECT_TRUE(settings_.Write("", {{"B", "3"}}));
  EXPECT_TRUE(settings_.Write("General", {{"C", "4"}}));
  EXPECT_EQ(ReadFile(path_),
            "; mine\n A = 1;2\nB=3\n\n[Other]\nx=a, b\n[Mail]\nMyName=\"Eva, née Maß\"\n"
            "MailKind=Post\n# end\n\n[%General]\nC=4\n");
  const auto mode = [](const std::string& path) {
    return std::filesystem::status(path).permissions();
  };
  EXPECT_EQ(mode(path_), std::filesystem::perms::owner_all);
  EXPECT_EQ(mode(path_ + ".bak"),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(IniSettingsTest, NoFailureLeavesLessThanTheOldFileAndWhatIsReportedIsThere) {
  const std::string before = "[Mail]\nMailKind=Imap\n";
  for (int failing = 1; failing < 20; ++failing) {
    fakes::MemoryFiles files;
    files.content[path_] = before;
    files.FailOperation(failing);
    const bool stored = IniSettings(files, path_).Write("Mail", {{"MailKind", "Post"}});
    EXPECT_EQ(files.content[path_], stored ? "[Mail]\nMailKind=Post\n" : before) << failing;
    EXPECT_EQ(stored, failing > 7) << failing;  // read; twice written, compared, renamed
    EXPECT_FALSE(files.Exists(path_ + ".new") || !files.locked.empty());
  }
}

TEST_F(IniSettingsTest, WhatCantBeReadIsNeitherEmptyNorWrittenOver) {
  std::filesystem::create_directories(path_);
  std::filesystem::create_symlink(folder_ / "nowhere", folder_ / "link");
  EXPECT_EQ(desktop::FoldersFor(folder_ / "below").settingsFile, path_);
  for (const std::string& path : {path_, folder_ / "link"}) {
    IniSettings settings(files_, path);
    EXPECT_THROW(settings.Read("", "A"), platform::SettingsError);
    EXPECT_THROW(settings.Mend(), platform::SettingsError);
    EXPECT_FALSE(settings.Write("", {{"A", "1"}}));
    EXPECT_FALSE(std::filesystem::is_regular_file(path));
  }
}

TEST_F(IniSettingsTest, DamageIsToldAndMendedFromWhatIsKept) {
  const std::string zeros(8, '\0');
  const std::string good = "A=2\n";
  const std::pair<std::string, std::string> rows[] = {// the file and what is kept
                                                      {zeros, good},
                                                      {"A=1\nSki", good},
                                                      {"=x", zeros},
                                                      {"[Mail\nA=1", ""},
                                                      {"", good}};
  for (const auto& [damaged, kept] : rows) {
    SCOPED_TRACE(damaged);
    Conf(damaged);
    WriteFile(path_ + ".bak", kept);
    EXPECT_THROW(settings_.Read("", "A"), platform::SettingsError);
    EXPECT_FALSE(settings_.Write("", {{"A", "1"}}));
    EXPECT_EQ(ReadFile(path_), damaged);
    const std::string told = settings_.Mend();
    EXPECT_EQ(settings_.Read("", "A").value_or(""), kept == good ? "2" : "");
    EXPECT_EQ(settings_.Mend(), "");
    const std::size_t aside = told.find(path_ + ".damaged-");
    ASSERT_NE(aside, std::string::npos) << told;
    EXPECT_EQ(ReadFile(told.substr(aside, told.find(".  ") - aside)), damaged);
  }
}

class FoldersTest : public testing::Test {
 public:
  FoldersTest() {
    ::setenv("XDG_CONFIG_HOME", (folder_ / "config").c_str(), 1);
    ::setenv("XDG_DATA_HOME", (folder_ / "data/").c_str(), 1);
  }
  ~FoldersTest() override {
    ::unsetenv("XDG_CONFIG_HOME");
    ::unsetenv("XDG_DATA_HOME");
  }

 protected:
  TemporaryFolder folder_;
};

TEST_F(FoldersTest, EachKindOfProgramFindsItsFolders) {
  EXPECT_TRUE(std::filesystem::exists(desktop::ProgramFolder() + "desktop_test"));
  for (const char* made : {"usr/games", "usr/share/tarvolenix", "usr/home/UI Graphics", "usr/bare",
                           "usr/portable", "alone/program"}) {
    std::filesystem::create_directories(folder_ / made);
  }
  WriteFile(folder_ / "usr/portable/Tarvolenix.conf", "");
  const std::string installed = "usr/share/tarvolenix/";
  const std::string users = "data/tarvolenix/";
  const std::string conf = "Tarvolenix.conf";
  const std::string usersConf = "config/Norlewick/" + conf;
  const struct {
    std::string executables, home, program, user, settingsFile;
  } rows[] = {
      {"alone/program/", "alone/program/", "alone/program/", "alone/program/", usersConf},
      {"alone/program/", "nowhere/", "nowhere/", users, usersConf},
      {"usr/games/", "usr/games/", installed, users, usersConf},
      {"usr/portable/", "usr/portable/", "usr/portable/", "usr/portable/", "usr/portable/" + conf},
      {"usr/games/", "usr/portable/", installed, "usr/portable/", "usr/portable/" + conf},
      {"usr/games/", "usr/bare/", installed, "usr/bare/", usersConf},
      {"usr/games/", "usr/home/", "usr/home/", "usr/home/", usersConf},
  };
  for (const auto& row : rows) {
    const auto found = desktop::FoldersFor(folder_ / row.home, folder_ / row.executables);
    EXPECT_EQ(found.program, folder_ / row.program) << row.executables << ' ' << row.home;
    EXPECT_EQ(found.user, folder_ / row.user) << row.executables << ' ' << row.home;
    EXPECT_EQ(found.settingsFile, folder_ / row.settingsFile) << row.executables << ' ' << row.home;
  }
}

TEST_F(FoldersTest, TheUserGetsWhatHeLacksAndNobodysGames) {
  const desktop::Folders folders{folder_ / "program/", folder_ / "own/", {}};
  for (const char* made : {"program/Data", "program/AI Files", "own/Data"}) {
    std::filesystem::create_directories(folder_ / made);
  }
  WriteFile(folders.program + "Data/Cs002.tvs", "check");
  WriteFile(folders.program + "Data/Tvgdb.dat", "somebody's games");
  WriteFile(folders.program + "AI Files/Bold.tva", "bold");
  WriteFile(folders.user + "Data/Cs002.tvs", "my own");
  EXPECT_EQ(desktop::PrepareUserFolder(folders), "");
  EXPECT_EQ(ReadFile(folders.user + "Data/Cs002.tvs"), "my own");
  EXPECT_EQ(ReadFile(folders.user + "AI Files/Bold.tva"), "bold");
  EXPECT_FALSE(std::filesystem::exists(folders.user + "Data/Tvgdb.dat"));
  EXPECT_EQ(desktop::PrepareUserFolder({folders.program, folders.user + "Data/Cs002.tvs/", {}}),
            "Not a directory");
}

TEST_F(FoldersTest, TheSessionStartsTheProgramWhereItsUserSaysSo) {
  const std::string path = folder_ / "config/autostart/tarvolenix.desktop";
  desktop::PosixFiles files;
  fakes::FakeDesktop seams;
  platform::TheSeams().files = &files;
  desktop::AutostartEntry entry(files, "/opt/100% \"Chess\" \\$/");
  entry.StartProgram(false);
  EXPECT_FALSE(entry.StartsProgram());
  entry.StartProgram(true);
  EXPECT_TRUE(entry.StartsProgram());
  // As the toolkit of another desktop reads it: escapes of a value first, then quotes.
  EXPECT_NE(ReadFile(path).find(R"(Exec="/opt/100%% \\"Chess\\" \\\\\\$/tarvolenix")"),
            std::string::npos)
      << ReadFile(path);
  const std::string written = ReadFile(path);
  WriteFile(path, written + "Hidden=true\n");
  EXPECT_FALSE(entry.StartsProgram());
  desktop::AutostartEntry(files, "/elsewhere/").StartProgram(false);
  EXPECT_TRUE(files.Exists(path)) << "another program's";
  entry.StartProgram(false);
  EXPECT_FALSE(files.Exists(path));
  std::filesystem::remove_all(folder_ / "config");
  WriteFile(folder_ / "config", "in the way");
  EXPECT_THROW(entry.StartProgram(true), platform::FileError);
}

}  // namespace
