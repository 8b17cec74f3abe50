// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/settings.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "ai/heuristics.h"
#include "platform/busy_pointer.h"
#include "platform/conversions.h"
#include "platform/messages.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/setting_variables.h"
#include "shell/start_settings.h"

namespace shell {
namespace {

using platform::BooleanText;
using platform::productSection;
using platform::ReadRegistryOrRaise;
using platform::ReturnValue;
using platform::SettingVariables;
using platform::WriteRegistry;

constexpr int longestInterval = 30000;
constexpr int noLimit = std::numeric_limits<std::int16_t>::max();

/// A setting between the store and its variable.
struct Setting {
  using Copied = std::string (*)(const Setting& setting, const std::string& section);

  const char* name;
  const char* usual;  ///< stands in for a missing value
  /// False where the program can't start with that.
  bool (*load)(const std::string& text, const char* usual);
  std::string (*save)();
  Copied copied =
      nullptr;  ///< what an older version's section makes of it, where that isn't as plain
};

std::string ReadText(const Setting& setting, const std::string& section = productSection) {
  return ReturnValue(ReadRegistryOrRaise(section, setting.name), setting.usual);
}

/// Where there are two variables the first one rules this run, and the second one is stored.
template <bool SettingVariables::*Variable, bool SettingVariables::*Saved = Variable>
constexpr Setting Flag(const char* name, const char* usual, Setting::Copied copied = nullptr) {
  return {name, usual,
          [](const std::string& text, const char*) {
            platform::Settings().*Variable = platform::Settings().*Saved = text == "True";
            return true;
          },
          [] { return BooleanText(platform::Settings().*Saved); }, copied};
}

template <std::string SettingVariables::*Variable, std::string SettingVariables::*Saved = Variable>
constexpr Setting Text(const char* name, const char* usual, Setting::Copied copied = nullptr) {
  return {name, usual,
          [](const std::string& text, const char*) {
            platform::Settings().*Variable = platform::Settings().*Saved = text;
            return true;
          },
          [] { return platform::Settings().*Saved; }, copied};
}

/// What is no number of the setting's range counts as missing.
int NumberFrom(const std::string& text, const char* usual, int least, int most) {
  const auto number = platform::ToInteger32(text);
  return number && *number >= least && *number <= most ? *number : *platform::ToInteger32(usual);
}

template <int SettingVariables::*Variable, int least, int most = noLimit>
constexpr Setting Number(const char* name, const char* usual) {
  return {name, usual,
          [](const std::string& text, const char* usualText) {
            platform::Settings().*Variable = NumberFrom(text, usualText, least, most);
            return true;
          },
          [] { return std::to_string(platform::Settings().*Variable); }};
}

bool LoadInterval(const std::string& text, const char* usual) {
  platform::Process().CheckTimer.Interval = NumberFrom(text, usual, 0, longestInterval);
  return true;
}

bool LoadHeuristics(const std::string& text, const char*) {
  if (!text.empty()) return ai::SetHeuristicsFromText(text);
  ai::LoadDefaultHeuristics();
  return true;
}

/// It once had another name.
std::string CopiedSound(const Setting& sound, const std::string& section) {
  const Setting older{"NotificationSoundSav", sound.usual, sound.load, sound.save};
  const std::string stored = ReadText(older, section);
  return stored == sound.usual ? ReadText(sound, section) : stored;
}

std::string CopiedLook(const Setting& look, const std::string& section) {
  return platform::Process().ForcedSimpleUI ? BooleanText(true) : ReadText(look, section);
}

std::string CopiedWindowSize(const Setting& size, const std::string& section) {
  return ReturnValue(ReadRegistryOrRaise(section, size.name), newUsersWindowSize);
}

constexpr Setting DisplaySplash = Flag<&SettingVariables::DisplaySplash>(
    displaySplash, "True", [](const Setting&, const std::string&) { return BooleanText(true); });
constexpr Setting Heuristics{"Heuristics", "", LoadHeuristics, ai::HeuristicsText};
constexpr Setting Skin = Text<&SettingVariables::Skin>("Skin", "Tarvolenix Classic");
constexpr Setting SimpleUI = Flag<&SettingVariables::SimpleUI, &SettingVariables::SimpleUISaved>(
    simpleUI, "False", CopiedLook);
constexpr Setting WindowSize =
    Text<&SettingVariables::WindowSize, &SettingVariables::WindowSizeSaved>(
        windowSize, usualWindowSize, CopiedWindowSize);

/// All of them, in the order in which they are written.
constexpr Setting settings[] = {
    {"CheckInterval", "20000", LoadInterval,
     [] { return std::to_string(platform::Process().CheckTimer.Interval); }},
    DisplaySplash,
    Number<&SettingVariables::NotificationMethod, 0, 3>("NotificationMethod", "2"),
    Text<&SettingVariables::NotificationSoundPath>("NotificationSoundPath", ""),
    Text<&SettingVariables::NotificationSoundWav>("NotificationSoundWav", "None", CopiedSound),
    Number<&SettingVariables::NotificationTimeout, 0>("NotificationTimeout", "1"),
    Flag<&SettingVariables::Verbose>("Verbose", "False"),
    Text<&SettingVariables::ChessSet>("ChessSet", "Classic Wood"),
    Text<&SettingVariables::ChessBoard>("ChessBoard", "Plain"),
    Number<&SettingVariables::SysTrayIcons, 1>("SysTrayIcons", "1"),
    Number<&SettingVariables::SearchDepth, 0, 4>("SearchDepth", "1"),
    Flag<&SettingVariables::ShowToolTips>("ShowToolTips", "True"),
    Heuristics,
    Skin,
    Flag<&SettingVariables::DefaultView>("DefaultView", "False"),
    SimpleUI,
    Flag<&SettingVariables::SystrayStartup, &SettingVariables::SystrayStartupSaved>(
        "SystrayStartup", "True"),
    WindowSize,
    Number<&SettingVariables::BoardWidth, 0>("BoardWidth", "0"),
    Number<&SettingVariables::BoardHeight, 0>("BoardHeight", "0"),
    Flag<&SettingVariables::ShowMoves>("ShowMoves", "True"),
    Flag<&SettingVariables::Coordinates>("Coordinates", "False"),
    Flag<&SettingVariables::Pairs>("Pairs", "False"),
    Flag<&SettingVariables::DesktopNotices>("DesktopNotices", "False"),
    Flag<&SettingVariables::WhyInMailGames>("WhyInMailGames", "False"),
    Flag<&SettingVariables::AskBeforeSurrender>("AskBeforeSurrender", "True"),
    Flag<&SettingVariables::SetUpFirst>("SetUpFirst", "False"),
    Flag<&SettingVariables::ComputerGamesCount>("ComputerGamesCount", "True"),
    Text<&SettingVariables::HiddenColumns>("HiddenColumns", ""),
    Flag<&SettingVariables::ShowGamePreview>("ShowGamePreview", "True"),
};

void Write(const Setting& setting, const std::string& value) {
  WriteRegistry(productSection, setting.name, ReturnValue(value, setting.usual));
}

/// The latest older version that has left settings; blank without one. Versions compare as plain
/// text, so "2.10.0" is older than "2.6.7".
std::string PreviousVersion() {
  std::string previous;
  for (const std::string& name : platform::EnumRegistryKeys()) {
    if (name < platform::GetVersionText()) previous = std::max(previous, name);
  }
  return previous;
}

void CopySettings(const std::string& from) {
  for (const Setting& setting : settings) {
    Write(setting, setting.copied ? setting.copied(setting, from) : ReadText(setting, from));
  }
  // No variable has it: the warning is given before there are any.
  const std::string warned = ReturnValue(ReadRegistryOrRaise(from, "BppChecked"), "False");
  WriteRegistry(productSection, "BppChecked", warned);
}

}  // namespace

bool LoadSettings() {
  bool usable = true;
  for (const Setting& setting : settings) {
    usable = setting.load(ReadText(setting), setting.usual) && usable;
  }
  return usable;
}

bool SetHeuristicsAside() {
  const std::string name = "HeuristicsUnread";
  std::string aside = name;
  for (int i = 2; ReadRegistryOrRaise(productSection, aside); ++i) aside = name + std::to_string(i);
  return WriteRegistry(productSection, {{aside, ReadText(Heuristics)}, {Heuristics.name, ""}});
}

void SaveSettings() {
  const platform::BusyPointer busy;
  for (const Setting& setting : settings) Write(setting, setting.save());
}

void UpgradeSettings() {
  if (!platform::IsEmptyValue(ReadRegistryOrRaise(productSection, DisplaySplash.name))) {
    if (platform::Process().ForcedSimpleUI) Write(SimpleUI, BooleanText(true));
    return;
  }
  {
    const platform::BusyPointer busy;
    const auto versions = platform::EnumRegistryKeys();
    if (std::find(versions.begin(), versions.end(), platform::GetVersionText()) == versions.end()) {
      platform::CreateRegistryKey(productSection);
    }
    const std::string version = PreviousVersion();
    const std::string previous = productSection + ("/" + version);
    platform::Settings().Skin = ReadText(Skin, previous);
    platform::ShowStatus(true, "Tarvolenix is upgrading to version " + platform::GetVersionText());
    CopySettings(previous);
    if (version.empty()) platform::WriteRegistry(productSection, greeted, BooleanText(false));
  }
  platform::ShowStatus(false);
}

}  // namespace shell
