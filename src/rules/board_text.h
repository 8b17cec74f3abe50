// SPDX-License-Identifier: GPL-3.0-or-later
// The position as text: eight groups joined by ";", row 1 first; a group has two digits, "00" to
// "12", for each of columns 1 to 8. There is no side to move, no castle flag and no en-passant
// field.
#pragma once

#include <string>
#include <string_view>

#include "rules/position.h"

namespace rules {

inline constexpr std::string_view normalStart =
    "0102030405030201;0606060606060606;0000000000000000;0000000000000000;"
    "0000000000000000;0000000000000000;1212121212121212;0708091011090807";
inline constexpr std::string_view emptyBoard =
    "0000000000000000;0000000000000000;0000000000000000;0000000000000000;"
    "0000000000000000;0000000000000000;0000000000000000;0000000000000000";

/// Whatever isn't a code from 00 to 12 reads as an empty square.
BoardSquares ReadBoardText(std::string_view text);

/// Always 135 characters.
std::string WriteBoardText(const BoardSquares& board);

}  // namespace rules
