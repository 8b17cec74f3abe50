// SPDX-License-Identifier: GPL-3.0-or-later
// Using the games of another folder: its game file and backup are copied to where one's own are.
// The other folder is only read, and one's own files are kept under a name of their own.
#pragma once

#include <string>

namespace store {

/// What lies in another folder.
struct OtherGames {
  std::string path;  ///< of its game file
  std::string content;
  std::string backup;  ///< of its backup, where that is whole; else `content`
  int games = 0;
};

/// Looks in the folder, or in "Data" there as a program folder has it. Raises std::runtime_error
/// with the end of a sentence where there is no game file, or one that isn't whole.
OtherGames LookAtGamesIn(std::string folder);

/// Puts copies in the place of the game file and its backup, and keeps what was there beside them.
/// Answers the name that the former game file has now, blank where there was none. Raises
/// platform::FileError; game file and backup are as they were then.
std::string UseGames(const OtherGames& other);

}  // namespace store
