// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/start_up.h"

#include <exception>
#include <optional>
#include <string>

#include "mail/mail_session.h"
#include "platform/conversions.h"
#include "platform/messages.h"
#include "platform/polling.h"
#include "platform/process_state.h"
#include "platform/registry.h"
#include "platform/seams.h"
#include "platform/setting_variables.h"
#include "platform/text_fields.h"
#include "shell/game_file_check.h"
#include "shell/held_mail_questions.h"
#include "shell/notification.h"
#include "shell/playing.h"
#include "shell/settings.h"
#include "shell/shut_down.h"
#include "shell/tray_status.h"

namespace shell {

using platform::Process;
using platform::productSection;
using platform::TrayOperation;

namespace {

constexpr const char* usualDPI = "96";
constexpr const char* usualResolution = "800,600";
constexpr int leastWidth = 800;
constexpr int usualDepth = 16;
constexpr int leastDepth = 16;

platform::DisplaySettings Display() { return platform::TheSeams().screen->Settings(); }

bool IsMarked(const char* setting) {
  return platform::ReturnValue(platform::ReadRegistry(productSection, setting), "False") == "True";
}

void Mark(const char* setting, bool value) {
  platform::WriteRegistry(productSection, setting, platform::BooleanText(value));
}

void ForceSimpleUI(const std::string& title, const std::string& text) {
  platform::TheSeams().messageBoxes->PlainBox(platform::PlainIcon::Warning, title, text);
  Process().ForcedSimpleUI = true;
  platform::Settings().SimpleUI = true;
}

bool HasUsualDPI(const std::optional<std::string>& stored) {
  return platform::ReturnValue(stored, usualDPI) == usualDPI;
}

bool IsWideEnough(const std::optional<std::string>& stored) {
  const std::string resolution = platform::ReturnValue(stored, usualResolution);
  const auto width = platform::ToInteger32(platform::GetField(resolution, 1, ','));
  return !width || *width >= leastWidth;
}

bool IsOnlyInstance() {
  if (!platform::TheSeams().screen->IsAnotherInstanceRunning()) return true;
  platform::ShowMessage(platform::ErrorIcon, "Initialisation error",
                        "You already have Tarvolenix running.||You cannot have more than one copy "
                        "of Tarvolenix running at any one time.",
                        "Ok", {}, false, platform::FailureSound);
  return false;
}

void ReportFailedStart() {
  platform::ShowMessage(platform::ErrorIcon, "Initialisation error",
                        "An unknown error caused Tarvolenix to fail to load.||If this persists, "
                        "try reinstalling.",
                        "Ok", {}, false, platform::FailureSound);
}

/// False where the program can't go on with its settings. There is no skin yet to tell it in.
bool SettingsAreThere() {
  platform::MessageBoxes& boxes = *platform::TheSeams().messageBoxes;
  try {
    const std::string mended = platform::MendSettings();
    if (!mended.empty()) boxes.PlainBox(platform::PlainIcon::Warning, "Settings", mended);
    return !Process().Stopping;
  } catch (const platform::SettingsError& error) {
    boxes.PlainBox(platform::PlainIcon::Stop, "Settings",
                   error.what() + std::string("  Tarvolenix doesn't start, so that no "
                                              "settings get lost."));
    return false;
  }
}

/// The motivations that are stored can't be used. True where the user goes on with the factory's.
bool GoOnWithFactoryMotivations() {
  ReportFailedStart();
  if (Process().Stopping ||
      !platform::ShowMessage(
          platform::ErrorIcon, "Heuristics",
          "The setting Heuristics can't be used: it must be 54 whole numbers from -32768 to 32767 "
          "with a semicolon between each two.||Start with the computer's factory motivations?  "
          "What the setting holds is kept beside it as HeuristicsUnread.",
          "Start", "Quit")) {
    return false;
  }
  if (SetHeuristicsAside()) return LoadSettings();
  platform::ShowMessage(platform::ErrorIcon, "Heuristics",
                        "The settings file can't be changed, so what the setting holds can't be "
                        "kept, and Tarvolenix doesn't start.",
                        "OK");
  return false;
}

/// What must stand before the first skinned dialog, up to the first skinned dialogs themselves.
/// False where the program must not start.
bool PrepareLook() {
  if (!SettingsAreThere()) return false;
  CheckDisplaySettings();
  if (Process().Stopping) return false;
  UpgradeSettings();
  const bool hasMotivations = LoadSettings();  // told in the skin, which must be there first
  if (!platform::TheWindows().ApplySkinToSystemTray()) return false;
  if (!hasMotivations && !GoOnWithFactoryMotivations()) return false;
  CheckColourDepth();
  return !Process().Stopping;
}

/// The menus that depend on what is found here work out their entries when they open.
bool RunStartSequence() {
  if (!PrepareLook() || !IsOnlyInstance()) return false;
  CheckFirstRun();
  if (Process().Stopping) return false;  // the session may end while the user reads
  CheckGameFile();
  if (Process().Stopping) return false;
  platform::PollingHold hold;
  hold.HandOver();  // until the program is idle
  const bool splash = platform::Settings().DisplaySplash;
  if (splash) {
    platform::TheWindows().ShowSplash();
  } else {
    platform::TheWindows().CloseSplash();  // the setting may have changed since it was first read
  }
  mail::LogonAndCollect(false, false, true);
  if (Process().Stopping) return false;
  platform::TheSeams().tray->BuildGameMenu();
  if (!splash) HandOver();
  if (Process().Stopping) return false;
  Process().StartupComplete = true;
  return true;
}

void BecomeIdle() {
  if (!platform::Settings().SystrayStartup) platform::TheWindows().ShowGameList();
  UpdateTrayStatus(TrayOperation::Add);
  platform::ReleasePolling();
  const bool anyNews = Process().NewMoveArrived;
  NotifyNewMoves();
  if (!anyNews) TellOfWaitingGames();
  if (!Process().BoardOpen) {
    Process().HeldMailArrived = true;  // perhaps in a run that ended before he was asked
    AskAboutHeldMails(HeldMails::New);
  }
  platform::CallHook(platform::TheSeams().hooks.handedOver);
}

/// The failure may be the very one that keeps its own report from being shown.
void FailStart() {
  try {
    ReportFailedStart();
  } catch (...) {
  }
  AbortStart();
}

}  // namespace

bool StartUp() {
  try {
    if (RunStartSequence()) return true;
    AbortStart();
  } catch (...) {
    FailStart();
  }
  return false;
}

void HandOver() {
  if (Process().ShuttingDown || Process().Stopping) return;
  try {
    BecomeIdle();
  } catch (...) {
    // Without its one window the program would run unseen.
    FailStart();
  }
}

void CheckDisplaySettings() {
  const platform::DisplaySettings display = Display();
  if (Process().CheckDPI &&
      !(HasUsualDPI(display.DPILogicalX) && HasUsualDPI(display.DPILogicalY))) {
    ForceSimpleUI(
        "Windows setting error",
        "The Tarvolenix Graphical Interface will not display properly unless you have the Windows "
        "Font Size set to Small Fonts.  Because of this, Tarvolenix will now run in Simple "
        "Interface mode.  To use the Graphical Interface, change the Font Size to Small Fonts, run "
        "Tarvolenix again and uncheck Windows style User Interface in the options.  Please consult "
        "the file Trouble Shooting.txt for more details.");
  }
  if (Process().CheckResolution && !IsWideEnough(display.Resolution)) {
    ForceSimpleUI(
        "Screen too small",
        "The Tarvolenix Graphical Interface will not run at a screen resolution of less than "
        "800x600 because of the size of some of the windows.  Because of this, Tarvolenix will now "
        "run in Simple Interface mode.  To use the Graphical Interface, raise the screen "
        "resolution, run Tarvolenix again and uncheck Windows style User Interface in the "
        "options.");
  }
}

void CheckColourDepth() {
  if (!Process().CheckColourDepth) return;
  const bool low = Display().BitsPerPixel.value_or(usualDepth) < leastDepth;
  if (low == IsMarked("BppChecked")) return;
  if (low) {
    platform::ShowMessage(
        platform::InformationIcon, "Low Colour Depth",
        "Tarvolenix has been desiged to run with the colours set to high colour or better.  It "
        "will run at lower colour depths but will not look anywhere near as good.  Go to the "
        "Display control panel and set your colours to High Colour for better results.",
        "Ok");
  }
  if (!Process().Stopping) Mark("BppChecked", low);
}

void CheckFirstRun() {
  if (IsMarked("RunBefore")) return;
  platform::ShowMessage(
      platform::InformationIcon, "Versions prior to v" + platform::GetVersionText(),
      "This version of Tarvolenix contains features that are not present in older versions.  "
      "Because of this, versions prior to v2.4.0 may not recognise 100% of your chess move emails. "
      " I suggest that you get your opponents to visit the Tarvolenix website, "
      "https://tarvolenix.example, and download the latest version.  This warning will not appear "
      "again.",
      "OK", {}, false, platform::AttentionSound);
  if (Process().Stopping) return;  // he may not have read it
  if (platform::IsEmptyValue(platform::ReadRegistry(productSection, "DisplaySplash"))) {
    platform::CreateRegistryKey(productSection);
  }
  Mark("RunBefore", true);
}

void LiveWithoutTray() {
  if (Process().ShuttingDown || Process().Stopping || !platform::Settings().SystrayStartup) return;
  platform::Settings().SystrayStartup = false;
  Process().TrayMissing = true;
  if (Process().BoardOpen) {
    Process().BoardFromGameList = true;  // the list comes when the board goes
  } else {
    ShowGameList();
    if (!Process().GameListOpen) return ExitProgram();  // nothing of the program could be seen
    UpdateTrayStatus(TrayOperation::Modify);
  }
  if (IsMarked("TrayMissed")) return;
  Mark("TrayMissed", true);
  platform::ShowMessage(platform::InformationIcon, "No system tray",
                        "Tarvolenix would live in the system tray, but your desktop shows none.  "
                        "Therefore the list of games stays open, and closing it ends the program.",
                        "OK", {}, false, platform::AttentionSound);
}

void TrayHasCome() {
  if (Process().Stopping || !Process().TrayMissing) return;
  Process().TrayMissing = false;
  Mark("TrayMissed", false);
  platform::TheWindows().SetGameListFace(NothingNew, "Tarvolenix - Game list");
  platform::Settings().SystrayStartup = true;
  platform::TheSeams().tray->BuildGameMenu();
  UpdateTrayStatus(TrayOperation::Add);
}

}  // namespace shell
