// SPDX-License-Identifier: GPL-3.0-or-later
// Whether two players' game files tell the same end of the game that they have played.
#pragma once

#include <string>

namespace demo {

/// The folders are program folders. Says what it finds; false where the copies differ.
bool EndEqual(const std::string& winner, const std::string& loser);

}  // namespace demo
