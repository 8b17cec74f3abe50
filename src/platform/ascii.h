// SPDX-License-Identifier: GPL-3.0-or-later
// ASCII: capitals and small letters of A to Z alone, as file formats and protocols mean them. The
// standard library's would depend on the locale: in some, the small letter of I isn't i.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace platform {

constexpr char Lowered(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr char Uppered(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

inline std::string Lowered(std::string_view text) {
  std::string lowered(text);
  for (char& c : lowered) c = Lowered(c);
  return lowered;
}

inline std::string Uppered(std::string_view text) {
  std::string uppered(text);
  for (char& c : uppered) c = Uppered(c);
  return uppered;
}

inline bool IsAscii(std::string_view text) {
  return std::ranges::all_of(text, [](unsigned char c) { return c < 128; });
}

inline bool SameWithoutCase(std::string_view one, std::string_view other) {
  return std::ranges::equal(one, other, [](char a, char b) { return Lowered(a) == Lowered(b); });
}

}  // namespace platform
