// SPDX-License-Identifier: GPL-3.0-or-later
#include "mail/character_count.h"

#include <algorithm>

namespace mail {
namespace {

using Byte = unsigned char;

/// The well-formed sequences. The second byte's range shuts out overlong forms, surrogates and what
/// lies past the last code point; all further bytes are 80 to BF.
struct Sequence {
  Byte firstFrom, firstTo;
  Byte secondFrom, secondTo;
  std::size_t length;
};

constexpr Sequence sequences[] = {
    {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3}, {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3}, {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
};

bool Between(char c, Byte from, Byte to) {
  return static_cast<Byte>(c) >= from && static_cast<Byte>(c) <= to;
}

std::size_t FirstCharacterLength(std::string_view text) {
  for (const Sequence& sequence : sequences) {
    if (!Between(text[0], sequence.firstFrom, sequence.firstTo)) continue;
    if (text.size() < sequence.length) return 1;
    if (!Between(text[1], sequence.secondFrom, sequence.secondTo)) return 1;
    const std::string_view further = text.substr(2, sequence.length - 2);
    const auto continues = [](char c) { return Between(c, 0x80, 0xBF); };
    return std::all_of(further.begin(), further.end(), continues) ? sequence.length : 1;
  }
  return 1;
}

}  // namespace

std::size_t CharacterCount(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(FirstCharacterLength(text));
  return count;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
  std::string_view rest = text;
  for (; count > 0 && !rest.empty(); --count) rest.remove_prefix(FirstCharacterLength(rest));
  return text.substr(0, text.size() - rest.size());
}

}  // namespace mail
