// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "rules/position.h"

namespace board {

/// What no game of chess could have led to, side by side; lines end with "\n" and the last one has
/// no end. Empty where there is nothing to say.
std::string SetupWarnings(const rules::BoardSquares& squares);

}  // namespace board
