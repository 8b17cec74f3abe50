// SPDX-License-Identifier: GPL-3.0-or-later
// When two mail addresses are one. An address doesn't tell cases apart, and a name without "@" is
// one of this machine's users.
#pragma once

#include <string>
#include <string_view>

#include "platform/ascii.h"

namespace platform {

/// Without blanks around it, in small letters, with its machine. Blank for a blank address.
inline std::string ComparableAddress(std::string_view address) {
  const auto first = address.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  const std::string text =
      Lowered(address.substr(first, address.find_last_not_of(' ') - first + 1));
  return text.find('@') == std::string::npos ? text + "@localhost" : text;
}

/// Blank addresses are nobody's, so they are never the same.
inline bool SameAddress(std::string_view a, std::string_view b) {
  const std::string comparable = ComparableAddress(a);
  return !comparable.empty() && comparable == ComparableAddress(b);
}

}  // namespace platform
