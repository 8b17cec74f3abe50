// SPDX-License-Identifier: GPL-3.0-or-later
// "Use games from another folder...": who has played from a program folder takes his games along.
#pragma once

#include <string>

namespace shell {

/// Copies the games of a folder to where one's own are, which are kept; asks first where there are
/// any. True where the games are others now; what was done or not done, the user is told.
bool UseGamesOfFolder(const std::string& folder);

}  // namespace shell
