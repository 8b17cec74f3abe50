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
  for (const char* value :
       {"True", "", " blanks around ", "800,600", "Müller, Jürgen; \"der Große\"", "88;-118;-39",
        "a=b # no comment", "back\\slash and %percent", "@Invalid()", "line\r\nend\ttab",
        "棋 ♔ 😀"}) {
    ASSERT_TRUE(settings_.Write("", "Key", value)) << value;
    ASSERT_TRUE(settings_.Write("Mail", "Key", value)) << value;
    EXPECT_EQ(settings_.Read("", "Key"), value);
    EXPECT_EQ(ReadAgain("", "Key"), value);
    EXPECT_EQ(ReadAgain("Mail", "Key"), value);
  }
  EXPECT_EQ(settings_.Read("NoGroup", "Key"), std::nullopt);
}

TEST_F(IniSettingsTest, GroupsAndNamesOfAnyLookStayApart) {
  const std::pair<const char*, const char*> keys[] = {
      {"", "x"},      {"Mail", "x"},     {"General", "x"}, {"2.3.0", "x"},
      {"", "Mail/x"}, {"a/b", "x"},      {"a", "b/x"},     {"", "Mail"},
      {"", "50%"},    {"%General", "x"}, {"back\\", "x"}};
  for (const auto& [group, name] : keys) {
    ASSERT_TRUE(settings_.Write(group, name, std::string(group) + name));
  }
  for (const auto& [group, name] : keys)
    EXPECT_EQ(ReadAgain(group, name), std::string(group) + name);
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
  EXPECT_EQ(other.Read("", "One"), "1");
  EXPECT_EQ(other.Read("", "Two"), "2");
  EXPECT_EQ(other.Read("", "Three"), "3");
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
  EXPECT_TRUE(std::filesystem::exists(desktop::ProgramFolder() + "desktop_test"));
  EXPECT_EQ(desktop::SettingsFileFor(folder_ / ""), folder_ / "config/Norlewick/Tarvolenix.conf");
  WriteFile(folder_ / "Tarvolenix.conf", "");
  EXPECT_EQ(desktop::SettingsFileFor(folder_ / ""), folder_ / "Tarvolenix.conf");
}

TEST_F(FoldersTest, WithoutAWritableProgramFolderTheDataIsTheUsers) {
  const std::string program = folder_ / "program/";
  const std::string own = folder_ / "data/tarvolenix/";
  EXPECT_EQ(desktop::DataFolderFor(program), own) << "nothing to write to";
  for (const std::string& made : {program + "Data", program + "AI Files", own + "Data"}) {
    std::filesystem::create_directories(made);
  }
  EXPECT_EQ(desktop::DataFolderFor(folder_ / "program"), program);

  WriteFile(program + "Data/Cs002.tvs", "check");
  WriteFile(program + "Data/Tvgdb.dat", "somebody's games");
  WriteFile(program + "AI Files/Bold.tva", "bold");
  WriteFile(own + "Data/Cs002.tvs", "my own");
  desktop::PrepareDataFolder(program, own);
  EXPECT_EQ(ReadFile(own + "Data/Cs002.tvs"), "my own");
  EXPECT_EQ(ReadFile(own + "AI Files/Bold.tva"), "bold");
  EXPECT_FALSE(std::filesystem::exists(own + "Data/Tvgdb.dat"));
}

}  // namespace
