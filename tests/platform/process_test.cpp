// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "fakes/fake_desktop.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/setting_variables.h"

namespace platform {
namespace {

using fakes::FakeDesktop;
using Texts = std::vector<std::string>;

TEST(ProcessTest, OptionsAreFoundAnywhereAndInAnyCase) {
  const std::pair<const char*, const char*> rows[] = {
      {"", ""},
      {"-testingmode", "StandAlone "},
      {"-nonetwork", "NoNetwork "},
      {"-nodpi", "DPI "},
      {"-nores", "Resolution "},
      {"-nobpp", "ColourDepth "},
      {"-nosound", "Sound "},
      {"--NoDPI-NORES x-TestingMode!", "StandAlone DPI Resolution "},
      {"nosound - nodpi -noresults -nob pp", "Resolution "},
  };
  for (const auto& [commandLine, expected] : rows) {
    Process().CurrentGameID = 7;
    SetupGlobalVariables("/some where", commandLine);
    const ProcessState& process = Process();
    std::string flags;
    if (process.StandAlone) flags += "StandAlone ";
    if (process.NoNetwork) flags += "NoNetwork ";
    if (!process.CheckDPI) flags += "DPI ";
    if (!process.CheckResolution) flags += "Resolution ";
    if (!process.CheckColourDepth) flags += "ColourDepth ";
    if (!process.SoundEnabled) flags += "Sound ";
    EXPECT_EQ(flags, expected) << commandLine;
    EXPECT_EQ(process.DataPath, "/some where/Data/");
    EXPECT_EQ(process.CurrentGameID, -1) << "everything starts afresh";
  }
}

TEST(ProcessTest, AMessageIsShownWithItsLinesItsTimeOutAndItsSound) {
  FakeDesktop desktop;
  const std::tuple<int, bool, int> timeouts[] = {{3, true, 3}, {3, false, 0}, {-5, true, 0}};
  for (const auto& [setting, mayTimeOut, ticks] : timeouts) {
    Settings().NotificationTimeout = setting;
    desktop.boxes.answers = {false};
    EXPECT_FALSE(ShowMessage(MailIcon, "a|title", "one||two|", "Yes", "No", mayTimeOut));
    const Message& message = desktop.boxes.messages.back();
    EXPECT_EQ(message.title, "a|title");
    EXPECT_EQ(message.text, "one\n\ntwo\n");
    EXPECT_EQ(message.timeoutTicks, ticks);
  }
  EXPECT_TRUE(desktop.sounds.played.empty()) << "none was asked for";
  ShowMessage(MailIcon, {}, {}, "OK", {}, false, AttentionSound);
  EXPECT_EQ(desktop.sounds.played, Texts{"/program/Data/Cs006.tvs"});
}

TEST(ProcessTest, PollingStopsForAMessageAndGoesOnAsItWas) {
  for (const bool enabled : {false, true}) {
    for (const bool held : {false, true}) {
      FakeDesktop desktop;
      SetCheckTimer(enabled);
      Process().CheckTimerHeld = held;
      bool stopped = false;
      desktop.boxes.whileUp = [&stopped] {
        stopped = Process().CheckTimerHeld && !Process().CheckTimer.Enabled;
      };
      ShowMessage(InformationIcon, "", "", "OK");
      EXPECT_TRUE(stopped);
      EXPECT_EQ(Process().CheckTimer.Enabled, enabled);
      EXPECT_EQ(Process().CheckTimerHeld, held);
    }
  }
}

TEST(ProcessTest, AnOptionalMessageIsShownOrOnlyHeardOrNeither) {
  for (const bool shown : {false, true}) {
    for (const bool heard : {false, true}) {
      FakeDesktop desktop(heard ? "" : "-nosound");
      Settings().Verbose = shown;
      VerboseMessage("text", "title", FailureSound);
      EXPECT_EQ(desktop.boxes.messages.size(), shown ? 1U : 0U);
      EXPECT_EQ(desktop.sounds.played.size(), heard ? 1U : 0U);
    }
  }
}

TEST(ProcessTest, NumericSettingsAreStoredAsWholeNumbers) {
  const struct {
    const char* name;
    const char* value;
    const char* stored;  ///< "old" where it is refused
    bool forceText = false;
  } rows[] = {
      {"text", "Plain", "Plain"},
      {"a number loses its zeros", "007", "7"},
      {"but not as text", "007", "007", true},
      {"a half is rounded to even", "2.5", "2"},
      {"a number beyond 32 bits", "1e10", "old"},
      {"is fine as text", "1e10", "1e10", true},
      {"a version is text", "2.3.0", "2.3.0"},
      {"nothing", "", ""},
  };
  for (const auto& row : rows) {
    FakeDesktop desktop;
    desktop.settings.groups[""]["Skin"] = "old";
    WriteRegistry(productSection, "Skin", row.value, row.forceText);
    EXPECT_EQ(ReadRegistry(productSection, "Skin"), row.stored) << row.name;
  }
}

TEST(ProcessTest, SettingsLieInTheirGroupsAndBlankOnesTakeTheDefault) {
  FakeDesktop desktop;
  EXPECT_TRUE(WriteRegistry("Tarvolenix/2.3.0", "Skin", "Old"));
  EXPECT_TRUE(CreateRegistryKey(mailSection));
  EXPECT_EQ(desktop.settings.groups["2.3.0"]["Skin"], "Old");
  EXPECT_EQ(EnumRegistryKeys(), (Texts{"2.3.0", "Mail"}));
  EXPECT_EQ(ReadRegistry(productSection, "Skin"), std::nullopt);
  EXPECT_EQ(ReturnValue(ReadRegistry(productSection, "Skin"), "New"), "New");
  EXPECT_EQ(ReturnValue("", "New"), "New");
  desktop.settings.readOnly = true;
  EXPECT_FALSE(WriteRegistry(productSection, "Skin", "x"));
  desktop.settings.unreadable = true;
  EXPECT_EQ(ReadRegistry("Tarvolenix/2.3.0", "Skin"), std::nullopt);
  EXPECT_THROW(ReadRegistryOrRaise("Tarvolenix/2.3.0", "Skin"), SettingsError);
}

}  // namespace
}  // namespace platform
