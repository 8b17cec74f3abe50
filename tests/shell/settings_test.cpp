// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/settings.h"

#include <gtest/gtest.h>

#include <functional>
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

class SettingsTest : public testing::Test {
 protected:
  SettingsTest() { ai::Heuristics.fill(0); }

  Values& Stored(const std::string& group = {}) { return desktop_.settings.groups[group]; }

  fakes::FakeDesktop desktop_;
};

TEST_F(SettingsTest, UpgradeCopiesFromTheGreatestOlderVersionAsTextCompares) {
  const std::pair<std::vector<std::string>, const char*> rows[] = {
      {{"2.2.0", "2.9.9", "2.4.1"}, "2.9.9"},
      {{"2.10.0", "2.6.7", "3.0.1"}, "2.6.7"},
      {{"3.0.0", "Mail"}, "Classic Wood"}};
  for (const auto& [versions, expected] : rows) {
    desktop_.settings.groups.clear();
    for (const std::string& version : versions) {
      Stored(version)["ChessSet"] = Stored(version)["HiddenColumns"] = version;
    }
    const auto old = desktop_.settings.groups;
    shell::UpgradeSettings();
    EXPECT_EQ(Stored()["ChessSet"], expected);
    EXPECT_EQ(Stored()["Greeted"], versions[0] == "3.0.0" ? "False" : "");
    EXPECT_EQ(Stored()["HiddenColumns"], versions[0] == "3.0.0" ? "" : expected);
    for (const auto& [group, values] : old) EXPECT_EQ(Stored(group), values) << "stays as it is";
  }
}

std::string FieldsOfHeuristics(int count, const std::string& last = "3") {
  std::string text;
  for (int i = 1; i < count; ++i) text += "3;";
  return text + last;
}

TEST_F(SettingsTest, LoadTakesTheDefaultForNonsenseButRefusesABadTableOfMotivations) {
  for (const std::string& text : {FieldsOfHeuristics(53), FieldsOfHeuristics(54, "32768")}) {
    Stored() = {{"Heuristics", text}};
    EXPECT_FALSE(shell::LoadSettings()) << text;
  }
  const std::tuple<const char*, std::function<int()>, int> numbers[] = {
      {"CheckInterval", [] { return Process().CheckTimer.Interval; }, 20000},
      {"NotificationMethod", [] { return Settings().NotificationMethod; }, 2},
      {"NotificationTimeout", [] { return Settings().NotificationTimeout; }, 1},
      {"SearchDepth", [] { return Settings().SearchDepth; }, 1},
      {"SysTrayIcons", [] { return Settings().SysTrayIcons; }, 1}};
  for (const char* nonsense : {"often", "-1", "40000"}) {
    for (const auto& [name, loaded, usual] : numbers) {
      Stored() = {{name, nonsense}};
      EXPECT_TRUE(shell::LoadSettings());
      EXPECT_EQ(loaded(), usual) << name << " " << nonsense;
    }
  }
  desktop_.settings.unreadable = true;
  EXPECT_THROW(shell::LoadSettings(), platform::SettingsError) << "no default for what is there";
  EXPECT_THROW(shell::UpgradeSettings(), platform::SettingsError);
}

// The first start leaves a complete store.
TEST_F(SettingsTest, SaveWritesWhatLoadReadsAndTheSavedOfTheTwins) {
  shell::UpgradeSettings();
  EXPECT_EQ(Stored()["ShowMoves"], "True");
  EXPECT_EQ(Stored()["WindowSize"], "Auto");
  Stored().erase("BppChecked");
  Stored().erase("Greeted");
  Stored()["HiddenColumns"] = "Since;";
  for (auto& [name, value] : Stored()) {
    if (value == "True" || value == "False") value = value == "True" ? "False" : "True";
    if (value == "1") value = "3";
  }
  Stored()["CheckInterval"] = "0";
  Stored()["NotificationSoundWav"] = "";
  Stored()["NotificationMethod"] = "1";
  Stored()["ChessSet"] = "2000";
  Stored()["WindowSize"] = "150";
  Stored()["BoardWidth"] = Stored()["BoardHeight"] = "800";
  Stored()["ChessBoard"] = "Märmor";
  Stored()["Heuristics"] = FieldsOfHeuristics(54, "-32768");
  Values expected = Stored();
  ASSERT_TRUE(shell::LoadSettings());
  Settings().SimpleUISaved = false;
  Settings().SystrayStartupSaved = true;
  Stored() = {{"RunBefore", "True"}};
  shell::SaveSettings();
  expected["NotificationSoundWav"] = "None";
  expected["SimpleUI"] = "False";
  expected["SystrayStartup"] = "True";
  expected["RunBefore"] = "True";
  EXPECT_EQ(Stored(), expected);
  EXPECT_TRUE(Settings().SimpleUI) << "the running program keeps its look";
}

}  // namespace
