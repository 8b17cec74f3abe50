// SPDX-License-Identifier: GPL-3.0-or-later
// One variable per setting. They are read once at start, changed by the options pages and written
// once at an orderly stop.
#pragma once

#include <string>

namespace platform {

struct SettingVariables {
  bool DisplaySplash = true;
  int NotificationMethod = 2;   ///< 0 nothing, 1 a sound, 2 a dialog, 3 both
  bool DesktopNotices = false;  ///< the desktop's own notifications, beside the method
  std::string NotificationSoundPath;
  std::string NotificationSoundWav = "None";
  int NotificationTimeout = 1;  ///< 30-second ticks until a dialog answers for itself; 0 never
  bool Verbose = false;         ///< show optional messages; off, only their sound plays
  std::string ChessSet = "Classic Wood";
  std::string ChessBoard = "Plain";
  int SearchDepth = 1;  ///< 0 to 4
  int SysTrayIcons = 1;
  bool ShowToolTips = true;
  std::string Skin = "Tarvolenix Classic";
  int BoardWidth = 0;  ///< of the plain board window; 0 until it was resized, as the next
  int BoardHeight = 0;
  bool DefaultView = false;  ///< always show the board from White's side
  bool AskBeforeSurrender = true;
  bool SetUpFirst = false;  ///< whoever begins a game against the computer sets the pieces up first
  bool ComputerGamesCount = true;  ///< in the tray a game against the computer is a new move, too
  std::string HiddenColumns;       ///< of the list of games, by name, each with a ";" behind it
  bool ShowGamePreview = true;     ///< show the board of the game in the list that is pointed at
  bool ShowMoves = true;           ///< show where a lifted piece may go
  bool Coordinates = false;        ///< leave them on the board for good
  bool WhyInMailGames = false;     ///< explain moves of games against people that still go on
  bool Pairs = false;              ///< list White's move and Black's answer in one row

  // These take effect at the next start: the live value rules this run, the saved one is
  // stored.
  bool SimpleUI = false;
  bool SimpleUISaved = false;
  bool SystrayStartup = true;
  bool SystrayStartupSaved = true;
  std::string WindowSize = "100";  ///< of the skinned windows
  std::string WindowSizeSaved = "100";
};

/// The process's one record.
SettingVariables& Settings();

}  // namespace platform
