// SPDX-License-Identifier: GPL-3.0-or-later
// Where things lie on this machine. All folders end in "/".
#pragma once

#include <string>

namespace desktop {

/// $XDG_CONFIG_HOME and $XDG_DATA_HOME, or the folders below the home folder that stand for them.
std::string ConfigHome();
std::string DataHome();

/// The folder of the executable.
std::string ProgramFolder();

/// The folder of what came with the program that runs: share/tarvolenix beside the executable's
/// folder for a program that is installed, else the executable's folder itself. A
/// "Tarvolenix.conf" beside the executable makes a program folder of that.
std::string SharedFolder(const std::string& executables = ProgramFolder());

/// Which folders a run is about.
struct Folders {
  std::string program;  ///< what came with the program, and is only read
  std::string user;     ///< holds "Data", "AI Files", and the sets and skins that the user adds
  std::string settingsFile;
};

/// For the program folder `home`. "Tarvolenix.conf" in it holds the settings, so that several
/// players can live on one machine, and what is the user's lies in it where it can be written to.
/// Else, and for a program that is installed, both are in the user's own places. What `home` lacks
/// is read from where the program is installed.
Folders FoldersFor(const std::string& home, const std::string& executables = ProgramFolder());

/// Makes "Data" and "AI Files" in the user's folder and, where that isn't the program's, copies the
/// numbered sounds and the ready-made AI files there that are missing. What can't be copied is
/// missing then, without a word. Answers why nothing can be kept in "Data", or nothing where it
/// can.
std::string PrepareUserFolder(const Folders& folders);

/// Makes the folder of the settings. Answers which one it is and why none can be kept there, or
/// nothing where they can.
std::string PrepareSettingsFolder(const Folders& folders);

/// Where the local post office lies unless the account names another folder.
std::string DefaultPostFolder();

}  // namespace desktop
