// SPDX-License-Identifier: GPL-3.0-or-later
// Files that the user gives to the program: dropped on the list of games, or named when it is
// started.
#pragma once

#include <string>
#include <vector>

namespace shell {

/// Nothing else is going on that a file would disturb.
bool MayTakeGivenFiles();

/// Takes each as its kind wants it, with the messages of its menu entry, and tells of new moves as
/// if they had come by mail. Waits.
void TakeGivenFiles(const std::vector<std::string>& paths);

}  // namespace shell
