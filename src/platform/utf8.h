// SPDX-License-Identifier: GPL-3.0-or-later
// Text is UTF-8, and what comes from outside may be none: each byte that belongs to no well-formed
// character stands for a character by itself.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace platform {

constexpr char32_t replacementCharacter = 0xFFFD;

struct Character {
  char32_t code = replacementCharacter;
  std::size_t length = 1;  ///< in bytes
  bool isWellFormed = false;
};

/// The character at the front of `text`, which is not empty.
Character FirstCharacter(std::string_view text);

bool IsUtf8(std::string_view text);

/// `code` is a character's: no surrogate, and 0x10FFFF at most.
void AppendUtf8(std::string& text, char32_t code);

}  // namespace platform
