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

/// The folder that holds "Data" and "AI Files": the program's own where it can be written to, else
/// the user's own place for a program that is installed for everybody.
std::string DataFolderFor(const std::string& programFolder);

/// Makes "Data" and "AI Files" in `dataFolder` and, where that isn't the program folder, copies the
/// numbered sounds and the ready-made AI files there that are missing. What can't be made or copied
/// is missing then, without a word.
void PrepareDataFolder(const std::string& programFolder, const std::string& dataFolder);

/// "Tarvolenix.conf" in the program folder where there is one, so that several players can live on
/// one machine; else the user's own.
std::string SettingsFileFor(const std::string& programFolder);

/// Where the local post office lies unless the account names another folder.
std::string DefaultPostFolder();

}  // namespace desktop
