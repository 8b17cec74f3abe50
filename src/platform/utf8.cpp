// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/utf8.h"

namespace platform {
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

/// What a byte behind the first one adds.
constexpr int bitsOfByte = 6;
constexpr Byte bitsMask = 0x3F;

}  // namespace

Character FirstCharacter(std::string_view text) {
  const Byte first = static_cast<Byte>(text[0]);
  if (first < 0x80) return {first, 1, true};
  for (const Sequence& sequence : sequences) {
    if (first < sequence.firstFrom || first > sequence.firstTo) continue;
    if (text.size() < sequence.length) return {};
    char32_t code = first & (bitsMask >> (sequence.length - 1));
    for (std::size_t i = 1; i < sequence.length; ++i) {
      const Byte byte = static_cast<Byte>(text[i]);
      const Byte from = i == 1 ? sequence.secondFrom : 0x80, to = i == 1 ? sequence.secondTo : 0xBF;
      if (byte < from || byte > to) return {};
      code = code << bitsOfByte | (byte & bitsMask);
    }
    return {code, sequence.length, true};
  }
  return {};
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const Character character = FirstCharacter(text);
    if (!character.isWellFormed) return false;
    text.remove_prefix(character.length);
  }
  return true;
}

void AppendUtf8(std::string& text, char32_t code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
    return;
  }
  int shift = code < 0x800 ? bitsOfByte : code < 0x10000 ? 2 * bitsOfByte : 3 * bitsOfByte;
  const unsigned lead = shift == bitsOfByte ? 0xC0 : shift == 2 * bitsOfByte ? 0xE0 : 0xF0;
  text += static_cast<char>(lead | code >> shift);
  while (shift > 0) {
    shift -= bitsOfByte;
    text += static_cast<char>(0x80 | (code >> shift & bitsMask));
  }
}

}  // namespace platform
