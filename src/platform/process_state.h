// SPDX-License-Identifier: GPL-3.0-or-later
// The process-wide flags and values, in one record. They are set by SetupGlobalVariables before
// anything else runs, and belong to the window's thread.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

/// The polling timer of the hidden window, as the rest of the program sees it.
struct PollingTimer {
  bool Enabled = false;
  int Interval = 0;  ///< milliseconds; 0 never fires
};

/// What the new game dialog holds until its game has a record of its own.
struct NewGameFields {
  std::string Game_name;             ///< at most 50 characters
  std::string Game_opponents_name;   ///< at most 50 characters
  std::string Game_opponents_email;  ///< at most 255 characters
};

struct ProcessState {
  bool ShuttingDown = false;     ///< a failed start or a fatal skin failure is in progress
  bool StartupComplete = false;  ///< settings are saved at shutdown only when this is set
  bool Stopping = false;         ///< the hidden window is closing, or has closed
  bool CheckTimerHeld = false;   ///< a modal dialog or a long task is running: no polling
  bool Offline = true;           ///< not logged on to the mail service
  bool StandAlone = false;       ///< moves travel as files, without a mail service
  bool NoNetwork = false;        ///< the logon is skipped
  bool SoundEnabled = true;
  bool CheckDPI = true;
  bool CheckResolution = true;
  bool CheckColourDepth = true;
  bool ForcedSimpleUI = false;    ///< a display check forced the plain look during this start
  bool BoardFromGameList = true;  ///< the board was opened from the game list window
  bool GameListOpen = false;
  bool BoardOpen = false;
  bool TrayMenuOpen = false;            ///< a menu of the hidden window is on the screen
  bool NewMoveArrived = false;          ///< at least one move waits for notification
  bool HeldMailArrived = false;         ///< a mail was set aside that the user wasn't asked about
  bool SaveFailureTold = false;         ///< a tick couldn't save, and the user has heard of it
  bool OfflineByRefusal = false;        ///< not by a failed logon, nor by the user
  std::string RefusalTold;              ///< why the mail service refuses, as the user has heard it
  bool ComputerGame = false;            ///< the open game is played against the computer
  bool SetupGame = false;               ///< the game about to open begins in board setup
  bool BoardSetupMode = false;          ///< the board window is in setup mode now
  bool TrayMissing = false;             ///< the program would live in the tray, but there is none
  std::int32_t CurrentGameID = -1;      ///< the game open on the board; -1 none
  std::int16_t GameListSortColumn = 1;  ///< 1 status, 2 opponent, 3 title, 4 date
  std::string GameListSortOrder;        ///< empty for ascending, "DESC" for descending
  std::vector<std::int32_t> PendingGames;  ///< GAME_IDs to notify of; one may stand there twice
  NewGameFields NewGame;
  PollingTimer CheckTimer;
  long SessionLookedAt = 0;               ///< the mail session whose Inbox a tick looks at; 0 none
  std::string BackedUpGameFile;           ///< the stamp of the game file that the backup equals
  std::vector<std::string> DeletedGames;  ///< their lines of the game file, to be put back
  std::string ListedGameFileStamp;  ///< of the game file that a tick filled the game list from
  std::string ArrivalsStamp;        ///< of the game file that ArrivalsSeen tells of
  bool ArrivalsSeen = false;        ///< a game in it waits for the user's move

  std::string ProgramFolder;  ///< what came with the program; ends in "/"
  std::string UserFolder;     ///< what is the user's; ends in "/"
  std::string DataPath;       ///< folder of the game file and the sounds; ends in "/"
  std::string AIFilesPath;    ///< folder of the computer opponent's styles; ends in "/"
  std::string DatabaseFile = "Tvgdb.dat";
};

/// The process's one record.
ProcessState& Process();

/// Puts the record into its initial state for a program that lives in `programFolder` (with or
/// without a "/" behind it) and was started with `commandLine`. Options are found anywhere in that
/// text and in any case; what is no option is ignored. What is the user's lies in the program
/// folder too, or in `userFolder`.
void SetupGlobalVariables(std::string programFolder, std::string commandLine,
                          std::string userFolder = {});

/// The program's version: major, minor and revision in plain decimal, joined by ".".
std::string GetVersionText();

}  // namespace platform
