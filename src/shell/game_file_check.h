// SPDX-License-Identifier: GPL-3.0-or-later
// The start's look at the game file: while a line of it is damaged no game can be opened and no
// move stored, so the user is asked at once what shall become of it.
#pragma once

namespace shell {

/// Tells of a damaged game file, or of one that can't be read, and repairs a damaged one as the
/// user chooses. Escape and the second buttons change nothing.
void CheckGameFile();

}  // namespace shell
