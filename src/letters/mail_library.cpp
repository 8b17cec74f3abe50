// SPDX-License-Identifier: GPL-3.0-or-later
#include "letters/mail_library.h"

#include <vmime/platforms/posix/posixHandler.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <mutex>
#include <utility>

namespace letters {
namespace {

const vmime::charset utf8(vmime::charsets::UTF_8);
const vmime::charset ascii(vmime::charsets::US_ASCII);
const vmime::charset latin1(vmime::charsets::ISO8859_1);

/// What bytes from 0x80 on mean in windows-1252 where Latin-1 has control characters.
constexpr std::array<std::string_view, 32> windowsCharacters = {
    "€", "",  "‚", "ƒ", "„", "…", "†", "‡", "ˆ", "‰", "Š", "‹", "Œ", "", "Ž", "",
    "",  "‘", "’", "“", "”", "•", "–", "—", "˜", "™", "š", "›", "œ", "", "ž", "Ÿ"};

/// How many bytes follow the first one of a character; -1 where no character begins with it.
int FollowingBytes(unsigned char lead) {
  if (lead < 0x80) return 0;
  if (lead < 0xC2) return -1;
  return lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : lead < 0xF5 ? 3 : -1;
}

bool IsValidUtf8(std::string_view bytes) {
  constexpr std::array<std::uint32_t, 4> smallest = {0, 0x80, 0x800, 0x10000};
  for (std::size_t i = 0; i < bytes.size();) {
    const auto lead = static_cast<unsigned char>(bytes[i++]);
    const int following = FollowingBytes(lead);
    if (following < 0 || bytes.size() - i < static_cast<std::size_t>(following)) return false;
    std::uint32_t code = following == 0 ? lead : lead & (0x3Fu >> following);
    for (const std::size_t end = i + following; i < end; ++i) {
      const auto byte = static_cast<unsigned char>(bytes[i]);
      if ((byte & 0xC0) != 0x80) return false;
      code = code << 6 | (byte & 0x3F);
    }
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    if (code < smallest[following] || surrogate || code > 0x10FFFF) return false;
  }
  return true;
}

/// A meaning for every byte.
std::string FromWindows(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      text += c;
    } else if (byte < 0xA0) {
      text += windowsCharacters[byte - 0x80];
    } else {
      text += {static_cast<char>(0xC0 | (byte >> 6)), static_cast<char>(0x80 | (byte & 0x3F))};
    }
  }
  return text;
}

std::string ValidLines(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const std::size_t size = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
    const std::string_view line = bytes.substr(0, size);
    text += IsValidUtf8(line) ? std::string(line) : FromWindows(line);
    bytes.remove_prefix(size);
  }
  return text;
}

}  // namespace

void PrepareMailLibrary() {
  static std::once_flag prepared;
  std::call_once(prepared,
                 [] { vmime::platform::setHandler<vmime::platforms::posix::posixHandler>(); });
}

std::string ToUtf8(const std::string& bytes, const vmime::charset& declared) {
  if (declared == latin1) return FromWindows(bytes);
  if (declared != ascii && declared != utf8) {
    try {
      std::string text;
      vmime::charset::convert(bytes, text, declared, utf8);
      if (IsValidUtf8(text)) return text;
    } catch (const vmime::exception&) {
      // a charset that nobody knows
    }
  }
  return ValidLines(bytes);
}

std::string ToUtf8(const vmime::text& text) {
  // A character may be cut in two between encoded words of one charset.
  std::string result;
  std::string bytes;
  vmime::charset charset = ascii;
  for (const auto& word : text.getWordList()) {
    if (word->getCharset() != charset) {
      result += ToUtf8(std::exchange(bytes, {}), charset);
      charset = word->getCharset();
    }
    bytes += word->getBuffer();
  }
  return result + ToUtf8(bytes, charset);
}

}  // namespace letters
