// SPDX-License-Identifier: GPL-3.0-or-later
// Length of text as people count it: the limits on names, moves and comments count characters.
#pragma once

#include <cstddef>
#include <string_view>

namespace mail {

/// The code points of UTF-8 text. Each byte that belongs to no well-formed one counts by itself.
std::size_t CharacterCount(std::string_view text);

/// The beginning of the text, at most `count` characters of it.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

}  // namespace mail
