// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/json.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <iostream>

namespace cli {
namespace {

/// The length of the UTF-8 sequence at the start of `text`; 0 where there is none.
std::size_t SequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(0);
  std::size_t length = 1;
  std::uint32_t code = lead;
  if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    code = lead & 0x07U;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    code = lead & 0x0FU;
  } else if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
    code = lead & 0x1FU;
  } else if (lead >= 0x80) {
    return 0;
  }
  if (text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return 0;
    code = (code << 6U) | (byte(i) & 0x3FU);
  }
  const bool tooShort = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  return tooShort || surrogate || code > 0x10FFFF ? 0 : length;
}

std::string EscapedCharacter(char c) {
  switch (c) {
    case '"':
      return "\\\"";
    case '\\':
      return "\\\\";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      break;
  }
  if (static_cast<unsigned char>(c) >= 0x20) return {c};
  char escape[8];
  std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
  return escape;
}

}  // namespace

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = SequenceLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  while (!text.empty()) {
    const std::size_t length = SequenceLength(text);
    if (length == 0) {
      quoted += "\xEF\xBF\xBD";
      text.remove_prefix(1);
    } else if (length == 1) {
      quoted += EscapedCharacter(text.front());
      text.remove_prefix(1);
    } else {
      quoted.append(text.substr(0, length));
      text.remove_prefix(length);
    }
  }
  return quoted + '"';
}

std::string JsonValue(std::string_view text) { return Quoted(text); }
std::string JsonValue(const char* text) { return Quoted(text); }
std::string JsonValue(bool value) { return value ? "true" : "false"; }
std::string JsonValue(std::int64_t number) { return std::to_string(number); }
std::string JsonValue(double number) {
  constexpr int decimals = 6;
  std::array<char, 400> text;  // more than the largest number takes
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                 std::chars_format::fixed, decimals);
  return {text.data(), end.ptr};
}

std::string JsonValue(int number) { return std::to_string(number); }
std::string JsonValue(const std::optional<std::int32_t>& number) {
  return number ? std::to_string(*number) : "null";
}

Json JsonArray(const std::vector<std::string>& values) {
  std::string text = "[";
  for (const std::string& value : values) {
    if (text.size() > 1) text += ',';
    text += value;
  }
  return {text + ']'};
}

void JsonObject::Print() const { std::cout << Text() << std::endl; }

}  // namespace cli
