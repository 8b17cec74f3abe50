// SPDX-License-Identifier: GPL-3.0-or-later
#include "letters/mail_library.h"

#include <vmime/platforms/posix/posixHandler.hpp>

#include <algorithm>
#include <array>
#include <mutex>
#include <utility>

#include "platform/utf8.h"

namespace letters {
namespace {

const vmime::charset ascii(vmime::charsets::US_ASCII);
const vmime::charset latin1(vmime::charsets::ISO8859_1);

/// What bytes from 0x80 on mean in windows-1252 where Latin-1 has control characters.
constexpr std::array<std::string_view, 32> windowsCharacters = {
    "€", "",  "‚", "ƒ", "„", "…", "†", "‡", "ˆ", "‰", "Š", "‹", "Œ", "", "Ž", "",
    "",  "‘", "’", "“", "”", "•", "–", "—", "˜", "™", "š", "›", "œ", "", "ž", "Ÿ"};

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
      platform::AppendUtf8(text, byte);
    }
  }
  return text;
}

std::string ValidLines(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const std::size_t size = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
    const std::string_view line = bytes.substr(0, size);
    text += platform::IsUtf8(line) ? std::string(line) : FromWindows(line);
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
      if (platform::IsUtf8(text)) return text;
    } catch (const vmime::exception&) {
      // a charset that nobody knows
    }
  }
  return ValidLines(bytes);
}

std::string Encoded(const std::string& bytes, const vmime::encoding& encoding) {
  std::string result;
  vmime::utility::inputStreamStringAdapter in(bytes);
  vmime::utility::outputStreamStringAdapter out(result);
  const auto encoder = encoding.getEncoder();
  encoder->getProperties()["text"] = true;
  encoder->getProperties()["maxlinelength"] = 74;
  encoder->encode(in, out);
  return result;
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
