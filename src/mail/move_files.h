// SPDX-License-Identifier: GPL-3.0-or-later
// Moves that travel as files: what a move mail says, written to a numbered file of the data folder,
// and read from there by a program without a mail service or from anywhere the user points to.
//
// A move file is the body of a move mail with a line break behind it, named "Cmove", a number and
// ".txt". Reading takes any text with the two markers in it, so a saved mail imports.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "mail/received_game.h"

namespace mail {

/// Writes the game with this GAME_ID to the first free number and, where asked, tells the file's
/// name without its folder. True on success, else the user was told.
bool ExportMoveFile(std::int32_t gameID, std::string* fileName = nullptr);

/// Imports one file that the user picks, or with `userPicks` false all waiting ones, which are
/// deleted where they were saved. Answers what became of each. A cancelled pick is reported as a
/// file that can't be read. PendingGames then lists the games that changed. Holds polling
/// meanwhile.
std::vector<MoveArrival> ImportMoveFiles(bool showStatus, bool userPicks);

/// The import of one file as if the user had just picked it.
MoveArrival ImportPickedFile(const std::string& path, bool showStatus);

/// The paths of the waiting move files, in the file system's order. A list and not one text with a
/// ";" behind each path: a ";" in a folder's or file's name would divide it. Raises
/// platform::FileError.
std::vector<std::string> ListMoveFiles();

}  // namespace mail
