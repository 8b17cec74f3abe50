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

struct Default {
  const char* name;
  const char* value;
};

constexpr Default CheckInterval{"CheckInterval", "20000"};
constexpr Default DisplaySplash{"DisplaySplash", "True"};
constexpr Default NotificationMethod{"NotificationMethod", "2"};
constexpr Default DesktopNotices{"DesktopNotices", "False"};
constexpr Default NotificationSoundPath{"NotificationSoundPath", ""};
constexpr Default NotificationSoundWav{"NotificationSoundWav", "None"};
constexpr Default OlderNotificationSoundWav{"NotificationSoundSav", "None"};
constexpr Default NotificationTimeout{"NotificationTimeout", "1"};
constexpr Default Verbose{"Verbose", "False"};
constexpr Default ChessSet{"ChessSet", "Classic Wood"};
constexpr Default ChessBoard{"ChessBoard", "Plain"};
constexpr Default SearchDepth{"SearchDepth", "1"};
constexpr Default SysTrayIcons{"SysTrayIcons", "1"};
constexpr Default ShowToolTips{"ShowToolTips", "True"};
constexpr Default Heuristics{"Heuristics", ""};
constexpr Default Skin{"Skin", "Tarvolenix Classic"};
constexpr Default WindowSize{"WindowSize", "100"};
constexpr const char* newUsersWindowSize = "Auto";
constexpr Default BoardWidth{"BoardWidth", "0"};
constexpr Default BoardHeight{"BoardHeight", "0"};
constexpr Default DefaultView{"DefaultView", "False"};
constexpr Default ShowMoves{"ShowMoves", "True"};
constexpr Default Coordinates{"Coordinates", "False"};
constexpr Default Pairs{"Pairs", "False"};
constexpr Default AskBeforeSurrender{"AskBeforeSurrender", "True"};
constexpr Default SetUpFirst{"SetUpFirst", "True"};
constexpr Default ComputerGamesCount{"ComputerGamesCount", "True"};
constexpr Default HiddenColumns{"HiddenColumns", ""};
constexpr Default ShowGamePreview{"ShowGamePreview", "True"};
constexpr Default SimpleUI{"SimpleUI", "False"};
constexpr Default SystrayStartup{"SystrayStartup", "True"};
constexpr Default BppChecked{"BppChecked", "False"};

std::string ReadText(const Default& setting, const std::string& section = productSection) {
  return ReturnValue(ReadRegistryOrRaise(section, setting.name), setting.value);
}

bool ReadFlag(const Default& setting) { return ReadText(setting) == "True"; }

/// What is no number of the setting's range counts as missing.
int ReadNumber(const Default& setting, int least, int most) {
  const auto number = platform::ToInteger32(ReadText(setting));
  if (number && *number >= least && *number <= most) return *number;
  return *platform::ToInteger32(setting.value);
}

void WriteText(const Default& setting, const std::string& value) {
  WriteRegistry(productSection, setting.name, value);
}

void WriteOrDefault(const Default& setting, const std::string& value) {
  WriteText(setting, ReturnValue(value, setting.value));
}

void WriteFlag(const Default& setting, bool value) { WriteText(setting, BooleanText(value)); }

bool LoadHeuristics() {
  const std::string text = ReadText(Heuristics);
  if (!text.empty()) return ai::SetHeuristicsFromText(text);
  ai::LoadDefaultHeuristics();
  return true;
}

/// The section of the latest older version. Versions compare as plain text, so "2.10.0" is older
/// than "2.6.7". Without an older version it is the product's own.
std::string PreviousSection() {
  std::string previous;
  for (const std::string& name : platform::EnumRegistryKeys()) {
    if (name < platform::GetVersionText()) previous = std::max(previous, name);
  }
  return productSection + ("/" + previous);
}

void CopySettings(const std::string& from) {
  const auto copy = [&from](const Default& setting) {
    WriteText(setting, ReadText(setting, from));
  };
  copy(CheckInterval);
  WriteFlag(DisplaySplash, true);
  copy(NotificationMethod);
  copy(NotificationSoundPath);
  std::string sound = ReadText(OlderNotificationSoundWav, from);
  if (sound == OlderNotificationSoundWav.value) sound = ReadText(NotificationSoundWav, from);
  WriteText(NotificationSoundWav, sound);
  for (const Default& setting : {NotificationTimeout, Verbose, ChessSet, ChessBoard, SysTrayIcons,
                                 SearchDepth, ShowToolTips, Heuristics, Skin, DefaultView}) {
    copy(setting);
  }
  if (platform::Process().ForcedSimpleUI) {
    WriteFlag(SimpleUI, true);
  } else {
    copy(SimpleUI);
  }
  copy(SystrayStartup);
  copy(BppChecked);
  WriteText(WindowSize, newUsersWindowSize);
}

}  // namespace

bool LoadSettings() {
  SettingVariables& variables = platform::Settings();
  platform::Process().CheckTimer.Interval = ReadNumber(CheckInterval, 0, longestInterval);
  variables.DisplaySplash = ReadFlag(DisplaySplash);
  variables.NotificationMethod = ReadNumber(NotificationMethod, 0, 3);
  variables.DesktopNotices = ReadFlag(DesktopNotices);
  variables.NotificationSoundPath = ReadText(NotificationSoundPath);
  variables.NotificationSoundWav = ReadText(NotificationSoundWav);
  variables.NotificationTimeout = ReadNumber(NotificationTimeout, 0, noLimit);
  variables.Verbose = ReadFlag(Verbose);
  variables.ChessSet = ReadText(ChessSet);
  variables.ChessBoard = ReadText(ChessBoard);
  variables.SearchDepth = ReadNumber(SearchDepth, 0, 4);
  variables.SysTrayIcons = ReadNumber(SysTrayIcons, 1, noLimit);
  variables.ShowToolTips = ReadFlag(ShowToolTips);
  variables.Skin = ReadText(Skin);
  variables.WindowSize = variables.WindowSizeSaved = ReadText(WindowSize);
  variables.BoardWidth = ReadNumber(BoardWidth, 0, noLimit);
  variables.BoardHeight = ReadNumber(BoardHeight, 0, noLimit);
  variables.DefaultView = ReadFlag(DefaultView);
  variables.ShowMoves = ReadFlag(ShowMoves);
  variables.Coordinates = ReadFlag(Coordinates);
  variables.Pairs = ReadFlag(Pairs);
  variables.AskBeforeSurrender = ReadFlag(AskBeforeSurrender);
  variables.SetUpFirst = ReadFlag(SetUpFirst);
  variables.ComputerGamesCount = ReadFlag(ComputerGamesCount);
  variables.HiddenColumns = ReadText(HiddenColumns);
  variables.ShowGamePreview = ReadFlag(ShowGamePreview);
  variables.SimpleUI = variables.SimpleUISaved = ReadFlag(SimpleUI);
  variables.SystrayStartup = variables.SystrayStartupSaved = ReadFlag(SystrayStartup);
  return LoadHeuristics();
}

std::optional<std::string> WindowSizeAtStart() {
  const auto read = [](const Default& setting) {
    return platform::ReadRegistry(productSection, setting.name);
  };
  if (read(SimpleUI) == "True") return std::nullopt;
  const bool isNew = platform::IsEmptyValue(read(DisplaySplash));
  return ReturnValue(read(WindowSize), isNew ? newUsersWindowSize : WindowSize.value);
}

bool SetHeuristicsAside() {
  const std::string name = "HeuristicsUnread";
  std::string aside = name;
  for (int i = 2; ReadRegistryOrRaise(productSection, aside); ++i) aside = name + std::to_string(i);
  return WriteRegistry(productSection, {{aside, ReadText(Heuristics)}, {Heuristics.name, ""}});
}

void SaveSettings() {
  const platform::BusyPointer busy;
  const SettingVariables& variables = platform::Settings();
  WriteText(CheckInterval, std::to_string(platform::Process().CheckTimer.Interval));
  WriteFlag(DisplaySplash, variables.DisplaySplash);
  WriteText(NotificationMethod, std::to_string(variables.NotificationMethod));
  WriteFlag(DesktopNotices, variables.DesktopNotices);
  WriteOrDefault(NotificationSoundPath, variables.NotificationSoundPath);
  WriteOrDefault(NotificationSoundWav, variables.NotificationSoundWav);
  WriteText(NotificationTimeout, std::to_string(variables.NotificationTimeout));
  WriteFlag(Verbose, variables.Verbose);
  WriteText(ChessSet, variables.ChessSet);
  WriteText(ChessBoard, variables.ChessBoard);
  WriteText(SysTrayIcons, std::to_string(variables.SysTrayIcons));
  WriteText(SearchDepth, std::to_string(variables.SearchDepth));
  WriteFlag(ShowToolTips, variables.ShowToolTips);
  WriteText(Heuristics, ai::HeuristicsText());
  WriteText(Skin, variables.Skin);
  WriteText(WindowSize, variables.WindowSizeSaved);
  WriteText(BoardWidth, std::to_string(variables.BoardWidth));
  WriteText(BoardHeight, std::to_string(variables.BoardHeight));
  WriteFlag(DefaultView, variables.DefaultView);
  WriteFlag(SimpleUI, variables.SimpleUISaved);
  WriteFlag(SystrayStartup, variables.SystrayStartupSaved);
  WriteFlag(ShowMoves, variables.ShowMoves);
  WriteFlag(Coordinates, variables.Coordinates);
  WriteFlag(Pairs, variables.Pairs);
  WriteFlag(AskBeforeSurrender, variables.AskBeforeSurrender);
  WriteFlag(SetUpFirst, variables.SetUpFirst);
  WriteFlag(ComputerGamesCount, variables.ComputerGamesCount);
  WriteText(HiddenColumns, variables.HiddenColumns);
  WriteFlag(ShowGamePreview, variables.ShowGamePreview);
}

void UpgradeSettings() {
  if (!platform::IsEmptyValue(ReadRegistryOrRaise(productSection, DisplaySplash.name))) {
    if (platform::Process().ForcedSimpleUI) WriteFlag(SimpleUI, true);
    return;
  }
  {
    const platform::BusyPointer busy;
    const auto versions = platform::EnumRegistryKeys();
    if (std::find(versions.begin(), versions.end(), platform::GetVersionText()) == versions.end()) {
      platform::CreateRegistryKey(productSection);
    }
    const std::string previous = PreviousSection();
    platform::Settings().Skin = ReadText(Skin, previous);
    platform::ShowStatus(true, "Tarvolenix is upgrading to version " + platform::GetVersionText());
    CopySettings(previous);
  }
  platform::ShowStatus(false);
}

}  // namespace shell
