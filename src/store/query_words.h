// SPDX-License-Identifier: GPL-3.0-or-later
// The words of selection and sort strings, which come in pairs of a key and what is asked of it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace store {

struct WordPair {
  std::string key;  ///< in upper case
  std::string_view value;
};

/// The pairs of a query text. Of an odd number of words the last one may be half a pair (its value
/// is then empty) or none: half the number of words is rounded, a half to the even neighbour.
std::vector<WordPair> WordPairs(std::string_view text);

/// Tells of a key that a query doesn't know, which no query of the program has.
void ReportUnknownKey(const std::string& message, const std::string& key);

}  // namespace store
