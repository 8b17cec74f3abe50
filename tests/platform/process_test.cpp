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

struct OptionCase {
  const char* commandLine;
  const char* flags;  ///< which of the six differ from their start values
};

const OptionCase optionCases[] = {
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

TEST(ProcessTest, OptionsAreFoundAnywhereAndInAnyCase) {
  for (const OptionCase& row : optionCases) {
    SCOPED_TRACE(row.commandLine);
    Process().CurrentGameID = 7;
    SetupGlobalVariables("/some where", row.commandLine);
    const ProcessState& process = Process();
    std::string flags;
    if (process.StandAlone) flags += "StandAlone ";
    if (process.NoNetwork) flags += "NoNetwork ";
    if (!process.CheckDPI) flags += "DPI ";
    if (!process.CheckResolution) flags += "Resolution ";
    if (!process.CheckColourDepth) flags += "ColourDepth ";
    if (!process.SoundEnabled) flags += "Sound ";
    EXPECT_EQ(flags, row.flags);
    EXPECT_EQ(process.DataPath, "/some where/Data/");
    EXPECT_EQ(process.CurrentGameID, -1) << "everything starts afresh";
  }
}

TEST(ProcessTest, AMessageIsShownWithItsLinesItsTimeOutAndItsSound) {
  FakeDesktop desktop;
  Settings().NotificationTimeout = 3;
  desktop.boxes.answers = {true, false};
  EXPECT_TRUE(ShowMessage(MailIcon, "a|title", "one||two|", "Yes", "No", true, AttentionSound));
  const Message& message = desktop.boxes.messages.at(0);
  EXPECT_EQ(message.icon, 4);
  EXPECT_EQ(message.title, "a|title");
  EXPECT_EQ(message.text, "one\n\ntwo\n");
  EXPECT_EQ(message.okCaption, "Yes");
  EXPECT_EQ(message.cancelCaption, "No");
  EXPECT_EQ(message.timeoutTicks, 3);
  EXPECT_EQ(desktop.sounds.played, Texts{"/program/Data/Cs006.tvs"});

  EXPECT_FALSE(ShowMessage(InformationIcon, "", "", "OK", "Cancel", false));
  EXPECT_EQ(desktop.boxes.messages.at(1).timeoutTicks, 0);
  EXPECT_EQ(desktop.sounds.played.size(), 1u) << "no sound was asked for";
  for (const int never : {0, -5}) {
    Settings().NotificationTimeout = never;
    EXPECT_TRUE(ShowMessage(InformationIcon, "", "", "OK", {}, true));
    EXPECT_EQ(desktop.boxes.messages.back().timeoutTicks, 0);
  }
}

/// Looks at polling while a message is up.
struct PollingWatcher : fakes::RecordingMessageBoxes {
  bool Ask(const Message&) override {
    stopped = Process().CheckTimerHeld && !Process().CheckTimer.Enabled;
    return true;
  }
  bool stopped = false;
};

TEST(ProcessTest, PollingStopsForAMessageAndGoesOnAsItWas) {
  for (const bool enabled : {false, true}) {
    for (const bool held : {false, true}) {
      FakeDesktop desktop;
      PollingWatcher watcher;
      TheDesktop().messageBoxes = &watcher;
      SetCheckTimer(enabled);
      Process().CheckTimerHeld = held;
      ShowMessage(InformationIcon, "", "", "OK");
      EXPECT_TRUE(watcher.stopped);
      EXPECT_EQ(Process().CheckTimer.Enabled, enabled);
      EXPECT_EQ(Process().CheckTimerHeld, held);
    }
  }
}

TEST(ProcessTest, AnOptionalMessageIsShownOrOnlyHeard) {
  FakeDesktop desktop;
  VerboseMessage("text", "title", FailureSound);
  EXPECT_TRUE(desktop.boxes.messages.empty());
  Settings().Verbose = true;
  Settings().NotificationTimeout = 2;
  VerboseMessage("text", "title", FailureSound);
  ASSERT_EQ(desktop.boxes.messages.size(), 1u);
  const Message& message = desktop.boxes.messages[0];
  EXPECT_EQ(message.icon, 1);
  EXPECT_EQ(message.title + "/" + message.text + "/" + message.okCaption, "title/text/OK");
  EXPECT_EQ(message.cancelCaption, "");
  EXPECT_EQ(message.timeoutTicks, 2);
  EXPECT_EQ(desktop.sounds.played, (Texts{SoundPath(5), SoundPath(5)}));
}

TEST(ProcessTest, WithoutSoundNothingIsPlayedAndAllElseGoesOn) {
  FakeDesktop desktop("-nosound");
  PlayWave("/x.wav");
  VerboseMessage("text", "title", FailureSound);
  ShowMessage(InformationIcon, "", "", "OK", {}, false, WonSound);
  EXPECT_TRUE(desktop.sounds.played.empty());
  EXPECT_EQ(desktop.boxes.messages.size(), 1u);
}

struct ValueCase {
  const char* name;
  const char* value;
  const char* stored;  ///< null: refused, and the old value stands
  bool forceText = false;
};

const ValueCase valueCases[] = {
    {"text", "Plain", "Plain"},
    {"a number loses its zeros", "007", "7"},
    {"but not as text", "007", "007", true},
    {"a folder named as a number reads back", "2000", "2000"},
    {"an exponent is a number", "1e3", "1000"},
    {"a half is rounded to even", "2.5", "2"},
    {"a number beyond 32 bits", "1e10", nullptr},
    {"is fine as text", "1e10", "1e10", true},
    {"a version is text", "2.3.0", "2.3.0"},
    {"nothing", "", ""},
};

TEST(ProcessTest, NumericSettingsAreStoredAsWholeNumbers) {
  for (const ValueCase& row : valueCases) {
    SCOPED_TRACE(row.name);
    FakeDesktop desktop;
    desktop.settings.groups[""]["Skin"] = "old";
    EXPECT_EQ(WriteRegistry(productSection, "Skin", row.value, row.forceText),
              row.stored != nullptr);
    EXPECT_EQ(ReadRegistry(productSection, "Skin"), row.stored ? row.stored : "old");
  }
}

TEST(ProcessTest, SettingsLieInTheirGroupsAndBlankOnesTakeTheDefault) {
  FakeDesktop desktop;
  EXPECT_TRUE(WriteRegistry("Tarvolenix/2.3.0", "Skin", "Old"));
  EXPECT_TRUE(WriteRegistry(mailSection, "MyName", "Eva"));
  EXPECT_EQ(desktop.settings.groups["2.3.0"]["Skin"], "Old");
  EXPECT_EQ(EnumRegistryKeys(), (Texts{"2.3.0", "Mail"}));
  EXPECT_EQ(ReadRegistry(productSection, "Skin"), std::nullopt);
  EXPECT_EQ(ReturnValue(ReadRegistry(productSection, "Skin"), "New"), "New");
  EXPECT_EQ(ReturnValue("", "New"), "New");
  for (const char* present : {"0", "False", " "}) EXPECT_EQ(ReturnValue(present, "New"), present);
  desktop.settings.readOnly = true;
  EXPECT_FALSE(WriteRegistry(productSection, "Skin", "x"));
  desktop.settings.unreadable = true;
  EXPECT_EQ(ReadRegistry("Tarvolenix/2.3.0", "Skin"), std::nullopt);
  EXPECT_THROW(ReadRegistryOrRaise("Tarvolenix/2.3.0", "Skin"), SettingsError);
}

TEST(ProcessTest, TheLogonGuardIsWrittenAtOnce) {
  FakeDesktop desktop;
  EXPECT_FALSE(GetLogonStatus()) << "nothing stored";
  SetLogonStatus(true);
  EXPECT_EQ(desktop.settings.groups[""]["LogonStatus"], "True");
  EXPECT_TRUE(GetLogonStatus());
  SetLogonStatus(false);
  EXPECT_FALSE(GetLogonStatus());
  desktop.settings.groups[""]["LogonStatus"] = "TRUE";
  EXPECT_FALSE(GetLogonStatus()) << "only the exact word counts";
}

}  // namespace
}  // namespace platform
