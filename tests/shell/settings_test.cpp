// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/settings.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "ai/heuristics.h"
#include "fakes/fake_desktop.h"
#include "platform/process_state.h"
#include "platform/setting_variables.h"

namespace {

using platform::Process;
using platform::Settings;
using Values = std::map<std::string, std::string>;

const Values factory = {{"CheckInterval", "20000"},
                        {"DisplaySplash", "True"},
                        {"NotificationMethod", "2"},
                        {"NotificationSoundPath", ""},
                        {"NotificationSoundWav", "None"},
                        {"NotificationTimeout", "1"},
                        {"Verbose", "False"},
                        {"ChessSet", "Classic Wood"},
                        {"ChessBoard", "Plain"},
                        {"SysTrayIcons", "1"},
                        {"SearchDepth", "1"},
                        {"ShowToolTips", "True"},
                        {"Heuristics", ""},
                        {"Skin", "Tarvolenix Classic"},
                        {"DefaultView", "False"},
                        {"SimpleUI", "False"},
                        {"SystrayStartup", "True"},
                        {"BppChecked", "False"}};

class SettingsTest : public testing::Test {
 protected:
  SettingsTest() { ai::Heuristics.fill(0); }

  Values& Stored(const std::string& group = {}) { return desktop_.settings.groups[group]; }

  std::vector<std::string> WrittenNames() const {
    std::vector<std::string> names;
    for (const auto& [name, value] : desktop_.settings.writes) names.push_back(name);
    return names;
  }

  fakes::FakeDesktop desktop_;
};

TEST_F(SettingsTest, FirstStartLeavesACompleteStoreThatLoads) {
  std::vector<bool> pointer;
  platform::TheDesktop().hooks.busyPointer = [&pointer](bool busy) { pointer.push_back(busy); };
  shell::UpgradeSettings();
  EXPECT_EQ(Stored(), factory);
  EXPECT_EQ(WrittenNames(),
            (std::vector<std::string>{
                "CheckInterval", "DisplaySplash", "NotificationMethod", "NotificationSoundPath",
                "NotificationSoundWav", "NotificationTimeout", "Verbose", "ChessSet", "ChessBoard",
                "SysTrayIcons", "SearchDepth", "ShowToolTips", "Heuristics", "Skin", "DefaultView",
                "SimpleUI", "SystrayStartup", "BppChecked"}));
  EXPECT_EQ(desktop_.boxes.statusTexts,
            (std::vector<std::string>{"Tarvolenix is upgrading to version 3.0.0", ""}));
  EXPECT_EQ(pointer, (std::vector<bool>{true, false}));

  ASSERT_TRUE(shell::LoadSettings());
  EXPECT_EQ(Process().CheckTimer.Interval, 20000);
  EXPECT_EQ(Settings().ChessSet, "Classic Wood");
  EXPECT_TRUE(Settings().SystrayStartup);
  EXPECT_EQ(ai::HeuristicsText().substr(0, 15), "88;-118;-39;-51");
  EXPECT_TRUE(ai::HeuristicsText().ends_with(";-88;148"));
}

struct UpgradeCase {
  const char* name;
  std::vector<std::string> versions;  ///< each one's ChessSet is its own name with a "v" before it
  const char* expectedSet;
};

const UpgradeCase upgradeCases[] = {
    {"the greatest of the older versions wins", {"2.2.0", "2.9.9", "2.4.1"}, "v2.9.9"},
    {"a newer version is passed over", {"2.4.1", "3.0.1", "4.0.0"}, "v2.4.1"},
    {"versions compare as text", {"2.10.0", "2.6.7"}, "v2.6.7"},
    {"the present version's own group is no older one", {"3.0.0"}, "Classic Wood"},
    {"the mail account's group is no version", {"Mail"}, "Classic Wood"},
};

TEST_F(SettingsTest, UpgradeCopiesFromThePreviousVersion) {
  for (const UpgradeCase& row : upgradeCases) {
    SCOPED_TRACE(row.name);
    desktop_.settings.groups.clear();
    for (const std::string& version : row.versions) Stored(version)["ChessSet"] = "v" + version;
    const auto before = desktop_.settings.groups;
    shell::UpgradeSettings();
    EXPECT_EQ(Stored()["ChessSet"], row.expectedSet);
    for (const std::string& version : row.versions) {
      EXPECT_EQ(Stored(version), before.at(version)) << "old groups stay as they are";
    }
  }
}

TEST_F(SettingsTest, UpgradeReadsTheOlderNameOfTheNotificationSoundFirst) {
  const std::pair<Values, std::string> rows[] = {
      {{{"NotificationSoundSav", "old.wav"}, {"NotificationSoundWav", "new.wav"}}, "old.wav"},
      {{{"NotificationSoundSav", "None"}, {"NotificationSoundWav", "new.wav"}}, "new.wav"},
      {{{"NotificationSoundWav", "new.wav"}}, "new.wav"},
      {{}, "None"}};
  for (const auto& [old, expected] : rows) {
    desktop_.settings.groups = {{"2.4.1", old}};
    shell::UpgradeSettings();
    EXPECT_EQ(Stored()["NotificationSoundWav"], expected);
  }
}

TEST_F(SettingsTest, UpgradeForcesThePlainLookAndNothingElseOnAStoreThatIsComplete) {
  Process().ForcedSimpleUI = true;
  Stored("2.4.1") = {{"SimpleUI", "False"}, {"Skin", "Blue"}, {"DisplaySplash", "False"}};
  shell::UpgradeSettings();
  EXPECT_EQ(Stored()["SimpleUI"], "True");
  EXPECT_EQ(Stored()["DisplaySplash"], "True");
  EXPECT_EQ(Settings().Skin, "Blue") << "the status popup needs the skin before the settings load";

  Stored() = {{"DisplaySplash", "False"}, {"SimpleUI", "False"}};
  desktop_.settings.writes.clear();
  desktop_.boxes.statusTexts.clear();
  shell::UpgradeSettings();
  EXPECT_EQ(Stored(), (Values{{"DisplaySplash", "False"}, {"SimpleUI", "True"}}));
  EXPECT_TRUE(desktop_.boxes.statusTexts.empty());

  Process().ForcedSimpleUI = false;
  desktop_.settings.writes.clear();
  shell::UpgradeSettings();
  EXPECT_TRUE(desktop_.settings.writes.empty());
}

std::string FieldsOfHeuristics(int count, const std::string& last = "3") {
  std::string text;
  for (int i = 1; i < count; ++i) text += "3;";
  return text + last;
}

struct LoadCase {
  const char* name;
  const char* value;
  std::string text;
  bool loads;
};

const LoadCase loadCases[] = {
    {"an interval of 0 is kept", "CheckInterval", "0", true},
    {"an interval that is no number", "CheckInterval", "often", false},
    {"an interval below 0", "CheckInterval", "-1", false},
    {"a number with blanks and decimals is still one", "SearchDepth", " 2.0 ", true},
    {"a number beyond 32 bits", "NotificationMethod", "99999999999", false},
    {"a time-out that is no number", "NotificationTimeout", "x", false},
    {"an icon set that is no number", "SysTrayIcons", "x", false},
    {"53 fields", "Heuristics", FieldsOfHeuristics(53), false},
    {"54 fields", "Heuristics", FieldsOfHeuristics(54), true},
    {"what stands behind the 54th is not looked at", "Heuristics", FieldsOfHeuristics(55, "x"),
     true},
    {"a motivation that is no number", "Heuristics", FieldsOfHeuristics(54, "x"), false},
    {"a motivation beyond 16 bits", "Heuristics", FieldsOfHeuristics(54, "32768"), false},
};

TEST_F(SettingsTest, LoadRefusesNumbersThatCannotBeRead) {
  for (const LoadCase& row : loadCases) {
    Stored() = factory;
    Stored()[row.value] = row.text;
    EXPECT_EQ(shell::LoadSettings(), row.loads) << row.name;
  }
  Stored() = {{"CheckInterval", "0"}, {"SearchDepth", " 2.0 "}};
  ASSERT_TRUE(shell::LoadSettings());
  EXPECT_EQ(Process().CheckTimer.Interval, 0);
  EXPECT_EQ(Settings().SearchDepth, 2);
}

TEST_F(SettingsTest, LoadTakesOnlyTheExactWordForTrue) {
  for (const char* text : {"TRUE", "true", "-1", "1", " True"}) {
    Stored() = {{"Verbose", text}, {"ShowToolTips", text}};
    ASSERT_TRUE(shell::LoadSettings());
    EXPECT_FALSE(Settings().Verbose || Settings().ShowToolTips) << text;
  }
}

TEST_F(SettingsTest, SaveWritesWhatLoadReadsAndTheSavedOfTheTwins) {
  Stored() = {{"CheckInterval", "0"},
              {"DisplaySplash", "False"},
              {"NotificationMethod", "0"},
              {"NotificationSoundPath", "/sounds/"},
              {"NotificationSoundWav", ""},
              {"NotificationTimeout", "4"},
              {"Verbose", "True"},
              {"ChessSet", "2000"},
              {"ChessBoard", "Märmor"},
              {"SysTrayIcons", "2"},
              {"SearchDepth", "4"},
              {"ShowToolTips", "False"},
              {"Skin", "Blue"},
              {"Heuristics", FieldsOfHeuristics(54, "-32768")},
              {"DefaultView", "True"},
              {"SimpleUI", "False"},
              {"SystrayStartup", "True"}};
  Values expected = Stored();
  ASSERT_TRUE(shell::LoadSettings());
  Settings().SimpleUISaved = true;
  Settings().SystrayStartupSaved = false;
  Stored() = {{"RunBefore", "True"}, {"LogonStatus", "True"}};
  shell::SaveSettings();
  expected["NotificationSoundWav"] = "None";
  expected["SimpleUI"] = "True";
  expected["SystrayStartup"] = "False";
  expected["RunBefore"] = "True";
  expected["LogonStatus"] = "True";
  EXPECT_EQ(Stored(), expected);
  EXPECT_FALSE(Settings().SimpleUI) << "the running program keeps its look";
  EXPECT_EQ(WrittenNames(),
            (std::vector<std::string>{"CheckInterval", "DisplaySplash", "NotificationMethod",
                                      "NotificationSoundPath", "NotificationSoundWav",
                                      "NotificationTimeout", "Verbose", "ChessSet", "ChessBoard",
                                      "SysTrayIcons", "SearchDepth", "ShowToolTips", "Heuristics",
                                      "Skin", "DefaultView", "SimpleUI", "SystrayStartup"}));
}

}  // namespace
