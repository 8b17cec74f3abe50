// SPDX-License-Identifier: GPL-3.0-or-later
// Writing JSON, one object a line, with its members in the order in which they are added.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// A JSON text in quotes. Bytes that are no UTF-8 become U+FFFD, so every line can be parsed. What
/// a terminal would obey or couldn't show is escaped.
std::string Quoted(std::string_view text);

std::string JsonValue(std::string_view text);
std::string JsonValue(const char* text);
std::string JsonValue(bool value);
std::string JsonValue(std::int64_t number);
std::string JsonValue(int number);
std::string JsonValue(double number);  ///< with six decimals, whatever the locale
std::string JsonValue(const std::optional<std::int32_t>& number);  ///< null where there is none

/// A value that is JSON already.
struct Json {
  std::string text;
};
inline std::string JsonValue(const Json& json) { return json.text; }

/// "[...]" of values that are JSON already.
Json JsonArray(const std::vector<std::string>& values);

class JsonObject {
 public:
  template <typename Value>
  JsonObject& Add(std::string_view key, const Value& value) {
    if (!members_.empty()) members_ += ',';
    members_ += Quoted(key) + ':' + JsonValue(value);
    return *this;
  }

  std::string Text() const { return '{' + members_ + '}'; }

  /// Writes the object as a line of standard output, at once.
  void Print() const;

 private:
  std::string members_;
};

}  // namespace cli
