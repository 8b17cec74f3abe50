// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/json.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <iostream>
#include <utility>

#include "platform/harmless_text.h"
#include "platform/utf8.h"

namespace cli {
namespace {

constexpr std::pair<char32_t, const char*> shortEscapes[] = {
    {'"', "\\\""}, {'\\', "\\\\"}, {'\n', "\\n"}, {'\r', "\\r"}, {'\t', "\\t"}};

std::string EscapedUnit(char32_t unit) {
  char escape[12];
  std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(unit));
  return escape;
}

/// The same text to whoever parses it, but a terminal that shows the line obeys nothing in it.
void AppendCharacter(std::string& quoted, char32_t code) {
  for (const auto& [character, escape] : shortEscapes) {
    if (code != character) continue;
    quoted += escape;
    return;
  }
  if (!platform::IsHarmful(code)) {
    platform::AppendUtf8(quoted, code);
  } else if (code < 0x10000) {
    quoted += EscapedUnit(code);
  } else {
    quoted += EscapedUnit(0xD800 + ((code - 0x10000) >> 10));
    quoted += EscapedUnit(0xDC00 + (code & 0x3FF));
  }
}

}  // namespace

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  while (!text.empty()) {
    const platform::Character character = platform::FirstCharacter(text);
    AppendCharacter(quoted, character.code);
    text.remove_prefix(character.length);
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
