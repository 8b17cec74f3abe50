// SPDX-License-Identifier: GPL-3.0-or-later
// The people of the stored games, for the address book.
#pragma once

#include <vector>

#include "platform/address_book.h"

namespace shell {

/// Everybody a game was or is played with by mail, as his last game names him, the last one first.
/// Nobody where the games can't be read.
std::vector<platform::Recipient> PastOpponents();

}  // namespace shell
