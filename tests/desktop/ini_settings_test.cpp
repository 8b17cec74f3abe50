// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ini_settings.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "desktop/folders.h"
#include "temporary_folder.h"

namespace {

using desktop::IniSettings;

class IniSettingsTest : public testing::Test {
 protected:
  std::optional<std::string> ReadAgain(const std::string& group, const std::string& name) {
    return IniSettings(path_).Read(group, name);
  }

  TemporaryFolder folder_;
  std::string path_ = folder_ / "below/Tarvolenix.conf";
  IniSettings settings_{path_};
};

TEST_F(IniSettingsTest, ValuesReadBackAsTheyWereWritten) {
  const char* values[] = {"True",
                          "20000",
                          "",
                          " blanks around ",
                          "800,600",
                          "Müller, Jürgen; \"der Große\"",
                          "88;-118;-39",
                          "a=b # no comment",
                          "back\\slash and %percent",
                          "@Invalid()",
                          "@at",
                          "line\r\nend\ttab",
                          "[brackets]",
                          "棋 ♔ 😀"};
  for (const char* value : values) {
    ASSERT_TRUE(settings_.Write("", "Key", value)) << value;
    ASSERT_TRUE(settings_.Write("Mail", "Key", value)) << value;
    EXPECT_EQ(settings_.Read("", "Key"), value);
    EXPECT_EQ(ReadAgain("", "Key"), value);
    EXPECT_EQ(ReadAgain("Mail", "Key"), value);
  }
  EXPECT_EQ(settings_.Read("", "NoKey"), std::nullopt);
  EXPECT_EQ(settings_.Read("NoGroup", "Key"), std::nullopt);
}

TEST_F(IniSettingsTest, TheFileCanBeWrittenByHand) {
  std::filesystem::create_directories(folder_ / "below");
  WriteFile(path_,
            "Skin=Blue\n[General]\nResolution=800,600\nChessSet=Märmor, weiß\n"
            "[Mail]\nMyName=Jürgen\n[2.3.0]\nVerbose=True\nthis is no setting\n");
  EXPECT_EQ(settings_.Read("", "Skin"), "Blue");
  EXPECT_EQ(settings_.Read("", "Resolution"), "800,600");
  EXPECT_EQ(settings_.Read("", "ChessSet"), "Märmor,weiß");
  EXPECT_EQ(settings_.Read("Mail", "MyName"), "Jürgen");
  EXPECT_EQ(settings_.Read("2.3.0", "Verbose"), "True");
  EXPECT_TRUE(settings_.Write("", "Skin", "Red")) << "a damaged line doesn't stop the others";
  EXPECT_EQ(ReadAgain("", "Skin"), "Red");
  EXPECT_EQ(ReadAgain("2.3.0", "Verbose"), "True");
  EXPECT_NE(ReadFile(path_).find("MyName=Jürgen"), std::string::npos) << "UTF-8 as it is";
}

TEST_F(IniSettingsTest, GroupsAndNamesOfAnyLookStayApart) {
  const std::pair<const char*, const char*> keys[] = {
      {"", "x"},      {"General", "x"},  {"Mail", "x"},  {"2.3.0", "x"},
      {"", "Mail/x"}, {"a/b", "x"},      {"a", "b/x"},   {"", "Mail"},
      {"", "50%"},    {"%General", "x"}, {"back\\", "x"}};
  int number = 0;
  for (const auto& [group, name] : keys) {
    ASSERT_TRUE(settings_.Write(group, name, std::to_string(++number)));
  }
  number = 0;
  for (const auto& [group, name] : keys) {
    EXPECT_EQ(ReadAgain(group, name), std::to_string(++number)) << group << " " << name;
  }
  auto groups = settings_.Groups();
  std::sort(groups.begin(), groups.end());
  EXPECT_EQ(groups, (std::vector<std::string>{"%General", "2.3.0", "General", "Mail", "a", "a/b",
                                              "back\\"}));
}

TEST_F(IniSettingsTest, TwoProcessesKeepEachOthersValues) {
  settings_.Write("", "One", "1");
  std::filesystem::create_directories(folder_ / "other");
  // A link of another name: the toolkit takes it for another file, as another process would.
  std::filesystem::create_directory_symlink(folder_ / "below", folder_ / "other/way");
  IniSettings other(folder_ / "other/way/Tarvolenix.conf");
  ASSERT_TRUE(other.Write("", "Two", "2"));
  EXPECT_EQ(settings_.Read("", "Two"), "2");
  ASSERT_TRUE(settings_.Write("", "Three", "3"));
  EXPECT_EQ(other.Read("", "One").value_or("") + other.Read("", "Two").value_or("") +
                other.Read("", "Three").value_or(""),
            "123");
}

TEST_F(IniSettingsTest, AFailedWriteLeavesTheOldValueAndNothingPending) {
  WriteFile(folder_ / "below", "a file where the folder should be");
  EXPECT_FALSE(settings_.Write("", "Key", "new"));
  EXPECT_FALSE(settings_.Write("", "Key", "new")) << "also when asked again";
  EXPECT_FALSE(settings_.CreateGroup("Mail"));
  EXPECT_EQ(settings_.Read("", "Key"), std::nullopt);
  std::filesystem::remove(folder_ / "below");
  ASSERT_TRUE(settings_.Write("", "Other", "x"));
  EXPECT_EQ(ReadAgain("", "Key"), std::nullopt);
  EXPECT_TRUE(settings_.CreateGroup("Mail"));
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

TEST_F(FoldersTest, AProgramFolderWithItsOwnSettingsIsPortable) {
  EXPECT_EQ(desktop::SettingsFileFor(folder_ / ""), folder_ / "config/Norlewick/Tarvolenix.conf");
  WriteFile(folder_ / "Tarvolenix.conf", "");
  EXPECT_EQ(desktop::SettingsFileFor(folder_ / ""), folder_ / "Tarvolenix.conf");
  ::setenv("XDG_CONFIG_HOME", "relative", 1);
  ::setenv("HOME", "/home/somebody", 1);
  EXPECT_EQ(desktop::ConfigHome(), "/home/somebody/.config/");
}

TEST_F(FoldersTest, WithoutAWritableProgramFolderTheDataIsTheUsers) {
  const std::string program = folder_ / "program/";
  EXPECT_EQ(desktop::DataFolderFor(program), folder_ / "data/tarvolenix/") << "nothing to write to";
  for (const char* name : {"Data", "AI Files"}) {
    std::filesystem::create_directories(program + name);
  }
  EXPECT_EQ(desktop::DataFolderFor(folder_ / "program"), program);

  WriteFile(program + "Data/Cs001.tvs", "won");
  WriteFile(program + "Data/Cs002.tvs", "check");
  WriteFile(program + "Data/Tvgdb.dat", "somebody's games");
  WriteFile(program + "AI Files/Bold.tva", "bold");
  const std::string own = folder_ / "data/tarvolenix/";
  std::filesystem::create_directories(own + "Data");
  WriteFile(own + "Data/Cs002.tvs", "my own");
  desktop::PrepareDataFolder(program, own);
  EXPECT_EQ(ReadFile(own + "Data/Cs001.tvs"), "won");
  EXPECT_EQ(ReadFile(own + "Data/Cs002.tvs"), "my own");
  EXPECT_EQ(ReadFile(own + "AI Files/Bold.tva"), "bold");
  EXPECT_FALSE(std::filesystem::exists(own + "Data/Tvgdb.dat"));
  desktop::PrepareDataFolder(program, program);
  EXPECT_EQ(ReadFile(program + "Data/Cs001.tvs"), "won");
}

}  // namespace
