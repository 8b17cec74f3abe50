// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/query_words.h"

#include <algorithm>

#include "platform/conversions.h"
#include "platform/desktop.h"
#include "platform/text_fields.h"

namespace store {

std::vector<WordPair> WordPairs(std::string_view text) {
  const int count = platform::RoundedQuotient(platform::CountFields(text, ';'), 2);
  std::vector<WordPair> pairs(static_cast<std::size_t>(count));
  platform::FieldWalk words(text, ';');
  for (WordPair& pair : pairs) {
    pair.key = UpperCase(words.Next());
    pair.value = words.Next();
  }
  return pairs;
}

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  });
  return upper;
}

void ReportUnknownKey(const std::string& message, const std::string& key) {
  platform::TheDesktop().messageBoxes->PlainBox(platform::PlainIcon::Stop, "Tarvolenix",
                                                message + key);
}

}  // namespace store
